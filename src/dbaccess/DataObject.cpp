#include "dbaccess/DataObject.h"

namespace petrodb {

bool RowsFailed(const CDbManage&) { return false; }

}  // namespace petrodb
