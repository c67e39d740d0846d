#include "dbaccess/DataObject.h"
#include "petrodb/project/IUpdateProjectArea.h"

using namespace petrodb;

namespace {

constexpr Pattern<"update b_aoi_data set Xmin = %f, Xmax = %f, Ymin= %f, Ymax = %f where lcase(AOIName) = 'global' "
                  "and ProjectName = '%s'">
    kUpdateJet;
constexpr Pattern<"update b_aoi_data set Xmin = %f, Xmax = %f, Ymin= %f, Ymax = %f where lower(AOIName) = 'global' "
                  "and ProjectName = '%s'">
    kUpdateServer;

}  // namespace

class CUpdateProjectArea final : public CDataObject<IUpdateProjectArea> {
 public:
  // The project's "global" area takes the project's map extent.
  bool UpdateProjectArea(const char* projectName, const ProjectRecord& p) override {
    return Execute(IsJet() ? kUpdateJet(p.EWmin, p.EWmax, p.SNmin, p.SNmax, projectName)
                           : kUpdateServer(p.EWmin, p.EWmax, p.SNmin, p.SNmax, projectName));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CUpdateProjectArea, IUpdateProjectArea)
