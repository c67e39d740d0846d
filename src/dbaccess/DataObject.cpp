#include "dbaccess/DataObject.h"

namespace petrodb {

bool RowsFailed(const CDbManage& db) { return db.ReadFailed(); }

}  // namespace petrodb
