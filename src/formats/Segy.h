#pragma once
// SEG-Y headers read through segyio: the binary file header and every trace
// header, with each value taken where a layout (SegyFormat) says it sits and
// the coordinates scaled by the trace's coordinate scalar.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "petrodb/seismic/SegyFormat.h"

namespace petrodb::segy {

struct TraceHeader {
  int line = 0;   // the layout's LineNumber
  int cdp = 0;    // CDPNumber
  int scalar = 0; // the coordinate scalar as stored (0 means 1)
  double x = 0;   // XCoordinate, scaled
  double y = 0;   // YCoordinate, scaled
};

struct Headers {
  int sampleInterval = 0;  // microseconds (SampleInterval)
  int samples = 0;         // per trace (NumberOfSamples)
  int format = 0;          // data sample format code (DataFormatCode)
  std::vector<TraceHeader> traces;
};

// Applies a coordinate scalar as SEG-Y defines it: negative divides by its
// magnitude, positive multiplies, zero leaves the value.
double Scaled(std::int32_t value, std::int32_t scalar);

// Reads the headers of `path`. A value's position is looked up in `layout`;
// a position segyio knows is read with segyio's width for it, any other with
// the layout's width (1, 2 or 4 bytes, big-endian). Binary-header positions
// count from the file's start, so they move with the layout's text-header
// length; traces start after the layout's two header lengths plus any
// extended textual headers the binary header announces. The coordinate scalar
// is read at the layout's "CoordinateScalar" entry where it has one, else at
// byte 71. False with `error` set when the file cannot be read as SEG-Y.
// `progress`, when given, hears how many trace headers of how many are read.
using HeaderProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;
bool ReadHeaders(const std::string& path, const SegyFormat& layout, Headers& out, std::string& error,
                 const HeaderProgress& progress = {});

}  // namespace petrodb::segy
