#include "petrodb/seismic/IVspVelData.h"
#include "seismic/VspCodedFront.h"

using namespace petrodb;

namespace {
struct VelocityModels {
  static constexpr const char* general = "IVspGeneralData";
  static constexpr int value = 0;
  static constexpr Message emptyName = AppMessage("速度模型名称不能为空！");
};
}  // namespace

class CVspVelData final : public seismic::CCodedGeneralData<IVspVelData, VelocityModels> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspVelData, IVspVelData)
