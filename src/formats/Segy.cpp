#include "formats/Segy.h"

#include <segyio/segy.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>

namespace petrodb::segy {
namespace {

struct FileCloser {
  void operator()(segy_file* f) const { segy_close(f); }
};

// The field at `position` (1-based, counted from `base` + 1) of a header:
// through segyio when it knows the position, else decoded at the layout's width.
bool Field(const char* header, int base, const SegyFieldPos& pos, bool binary, std::int32_t& value) {
  if (binary ? segy_get_bfield(header, pos.position - base + SEGY_TEXT_HEADER_SIZE, &value) == SEGY_OK
             : segy_get_field(header, pos.position, &value) == SEGY_OK)
    return true;
  const int size = binary ? SEGY_BINARY_HEADER_SIZE : SEGY_TRACE_HEADER_SIZE;
  const int offset = pos.position - base - 1;
  if (pos.width != 1 && pos.width != 2 && pos.width != 4) return false;
  if (offset < 0 || offset + pos.width > size) return false;
  std::uint32_t raw = 0;
  for (int i = 0; i < pos.width; ++i) raw = (raw << 8) | static_cast<unsigned char>(header[offset + i]);
  const int shift = 32 - 8 * pos.width;  // sign-extend
  value = static_cast<std::int32_t>(raw << shift) >> shift;
  return true;
}

std::string Describe(const char* what, const std::string& name, const SegyFieldPos& pos) {
  return std::string("cannot read ") + what + " value " + name + " at byte " + std::to_string(pos.position) +
         " (width " + std::to_string(pos.width) + ")";
}

}  // namespace

double Scaled(std::int32_t value, std::int32_t scalar) {
  if (scalar < 0) return static_cast<double>(value) / -static_cast<double>(scalar);
  if (scalar > 0) return static_cast<double>(value) * scalar;
  return value;
}

bool ReadHeaders(const std::string& path, const SegyFormat& layout, Headers& out, std::string& error,
                 const HeaderProgress& progress) {
  out = Headers{};
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = path + ": a directory, not a SEG-Y file";
    return false;
  }
  std::unique_ptr<segy_file, FileCloser> file(segy_open(path.c_str(), "rb"));
  if (!file) {
    error = "cannot open " + path + ": " + std::strerror(errno);
    return false;
  }
  char binary[SEGY_BINARY_HEADER_SIZE];
  if (segy_binheader(file.get(), binary) != SEGY_OK) {
    error = path + ": too short for a SEG-Y file (no binary header)";
    return false;
  }
  SegyFormat lookup = layout;  // looking a name up may insert it
  const int textLength = lookup.textHeaderLength;
  struct {
    const char* name;
    int* value;
  } binaryValues[] = {{"SampleInterval", &out.sampleInterval},
                      {"NumberOfSamples", &out.samples},
                      {"DataFormatCode", &out.format}};
  for (const auto& v : binaryValues) {
    std::int32_t value = 0;
    if (!Field(binary, textLength, lookup.Binary(v.name), true, value)) {
      error = path + ": " + Describe("binary-header", v.name, lookup.Binary(v.name));
      return false;
    }
    *v.value = value;
  }
  const int traceSize = segy_trsize(out.format, out.samples);
  if (out.samples <= 0 || traceSize < 0) {
    error = path + ": not a SEG-Y file segyio can read (format code " + std::to_string(out.format) + ", " +
            std::to_string(out.samples) + " samples)";
    return false;
  }
  const long trace0 = textLength + lookup.binaryHeaderLength + (segy_trace0(binary) - SEGY_TEXT_HEADER_SIZE -
                                                                SEGY_BINARY_HEADER_SIZE);
  int count = 0;
  if (segy_traces(file.get(), &count, trace0, traceSize) != SEGY_OK) {
    error = path + ": the traces do not fill the file (" + std::to_string(out.samples) + " samples of format " +
            std::to_string(out.format) + " a trace)";
    return false;
  }
  const SegyFieldPos scalarPos =
      lookup.traceFields.count("CoordinateScalar") ? lookup.Trace("CoordinateScalar") : SegyFieldPos{71, 2};
  struct {
    const char* name;
    SegyFieldPos pos;
  } const traceValues[] = {{"LineNumber", lookup.Trace("LineNumber")},
                           {"CDPNumber", lookup.Trace("CDPNumber")},
                           {"XCoordinate", lookup.Trace("XCoordinate")},
                           {"YCoordinate", lookup.Trace("YCoordinate")},
                           {"CoordinateScalar", scalarPos}};
  out.traces.reserve(static_cast<std::size_t>(count));
  char header[SEGY_TRACE_HEADER_SIZE];
  for (int i = 0; i < count; ++i) {
    if (segy_traceheader(file.get(), i, header, trace0, traceSize) != SEGY_OK) {
      error = path + ": cannot read the header of trace " + std::to_string(i + 1);
      return false;
    }
    std::int32_t v[5];
    for (int k = 0; k < 5; ++k) {
      if (!Field(header, 0, traceValues[k].pos, false, v[k])) {
        error = path + ": " + Describe("trace-header", traceValues[k].name, traceValues[k].pos);
        return false;
      }
    }
    out.traces.push_back(TraceHeader{v[0], v[1], v[4], Scaled(v[2], v[4]), Scaled(v[3], v[4])});
    if (progress && (i % 1024 == 1023 || i + 1 == count))
      progress(static_cast<std::uint64_t>(i) + 1, static_cast<std::uint64_t>(count));
  }
  return true;
}

}  // namespace petrodb::segy
