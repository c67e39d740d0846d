#include "dbaccess/DataObject.h"
#include "petrodb/project/IUpdateProjectArea.h"

using petrodb::sql::Format;

class CUpdateProjectArea final : public petrodb::CDataObject<IUpdateProjectArea> {
 public:
  bool UpdateProjectArea(const char* projectName, const ProjectRecord& project) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CUpdateProjectArea, IUpdateProjectArea)

bool CUpdateProjectArea::UpdateProjectArea(const char* projectName, const ProjectRecord& p) {
  const char* pattern = IsJet() ? "update b_aoi_data set Xmin = %f, Xmax = %f, Ymin= %f, Ymax = %f where "
                                  "lcase(AOIName) = 'global' and ProjectName = '%s'"
                                : "update b_aoi_data set Xmin = %f, Xmax = %f, Ymin= %f, Ymax = %f where "
                                  "lower(AOIName) = 'global' and ProjectName = '%s'";
  CDbManage db(connectionString.c_str());
  return db.ExecuteSQL(Format(pattern, p.EWmin, p.EWmax, p.SNmin, p.SNmax, projectName).c_str());
}
