#include "petrodb/seismic/IVspSegyLineData.h"
#include "seismic/VspCodedFront.h"

using namespace petrodb;

namespace {
// Names are checked by the general object, with its own message.
struct SegyLines {
  static constexpr const char* value = "2";
  static constexpr Message emptyName{};
};
}  // namespace

class CVspSegyLineData final : public seismic::CCodedLineData<IVspSegyLineData, SegyLines> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspSegyLineData, IVspSegyLineData)
