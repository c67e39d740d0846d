#include "petrodb/seismic/IVspDeteData.h"
#include "seismic/VspCodedFront.h"

using namespace petrodb;

namespace {
struct GeophoneLayouts {
  static constexpr const char* general = "IVspGeneralData";
  static constexpr int value = 1;
  static constexpr Message emptyName = AppMessage("检波器名称不能为空！");
};
}  // namespace

class CVspDeteData final : public seismic::CCodedGeneralData<IVspDeteData, GeophoneLayouts> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspDeteData, IVspDeteData)
