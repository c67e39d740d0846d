#pragma once
// Turns a measured depth of a well into true vertical depth, vertical depth
// below sea level and a map position, from the well head and its deviation
// survey.
//
// Conventions:
// - Depths are positive downwards, in the survey's unit; angles in degrees.
//   Inclination is measured from vertical, azimuth clockwise from grid north.
// - X = Well_EW + east offset, Y = Well_SN + north offset.
// - TVDSS = TVD - Kb (positive below sea level). When the survey has a Tvdss
//   array as long as Md, its stations give the datum instead: TVDSS = TVD +
//   (Tvdss - Tvd), that difference interpolated linearly in Md and held at
//   the ends.
// - With Md, Inclination and Azimuth: minimum curvature. A station whose Tvd,
//   Xcoor and Ycoor are stored sits where they say; any other station is
//   computed from the one above, the first from a vertical hole below the well
//   head. A depth between stations lies on the arc between them; above the
//   first station the hole is vertical; below the last it goes on along the
//   last tangent.
// - With Md and Tvd but no angles: Tvd, Xcoor and Ycoor are interpolated
//   linearly in Md; above the first station the hole is vertical, below the
//   last it goes on with the slope of the last two stations.
// - With no usable survey: a vertical well at the head, TVD = MD.
#include <memory>

#include "petrodb/welllog/IDeviateData.h"

struct WellHead {
  double Well_SN = 0.0;  // north coordinate of the head
  double Well_EW = 0.0;  // east coordinate of the head
  double Kb = 0.0;       // kelly-bushing elevation above sea level
};

struct DepthPoint {
  double TVD = 0.0;
  double TVDSS = 0.0;
  double X = 0.0;
  double Y = 0.0;
};

class PETRODB_API IDepthConverter {
 public:
  virtual ~IDepthConverter() = default;
  // Takes the well head and survey; later conversions use them.
  virtual void SetWell(const WellHead& head, const DeviationSurvey& survey) = 0;
  virtual DepthPoint Convert(double md) const = 0;
};

namespace petrodb {
// A new depth converter, or null when the component is not available (the
// environment variable PETRODB_NO_DEPTH_CONVERTER is set and not "0", or a host
// or test switched it off).
PETRODB_API std::unique_ptr<IDepthConverter> GetDepthConverter();
// Switches the component off (false) or back on.
PETRODB_API void SetDepthConverterAvailable(bool available);
}  // namespace petrodb
