#include "petrodb/seismic/IVspHodoGraphData.h"
#include "seismic/VspCodedFront.h"

using namespace petrodb;

namespace {
// Names are checked by the general object, with its own message.
struct Curves {
  static constexpr const char* value = "0";
  static constexpr Message emptyName{};
};
}  // namespace

class CVspHodoGraph final : public seismic::CCodedLineData<IVspHodoGraphData, Curves> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspHodoGraph, IVspHodoGraphData)
