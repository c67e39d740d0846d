#pragma once
// The messages the well-log data classes share.
#include "dbaccess/DataObject.h"

namespace petrodb::welllog {

inline constexpr Message kEmptyWell = AppMessage("井名称不能为空！");
inline constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");

}  // namespace petrodb::welllog
