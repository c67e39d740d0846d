#pragma once
// The trace positions of the database's one seismic-body outline
// (b_earthshockbody_data); not scoped by project.
#include <vector>

#include "petrodb/IDataBase.h"

struct ShockBodyPoint {
  int LineNumber = 0;
  int CDPNumber = 0;
  float X = 0;  // single precision in the database too
  float Y = 0;

  bool operator==(const ShockBodyPoint&) const = default;
};

class PETRODB_API IEarthShockBodyData : public IDataBase {
 public:
  // Every point (cleared first); false when there is none or a row cannot be read.
  virtual bool LoadShockBody(std::vector<ShockBodyPoint>& points) = 0;
  // Appends the points in one batch; nothing is deleted first (clear first to
  // replace the outline). False when the table is missing.
  virtual bool SaveShockBody(const std::vector<ShockBodyPoint>& points) = 0;
  // Removes every point; false when the table is missing or the delete fails.
  virtual bool ClearShockBody() = 0;
};
