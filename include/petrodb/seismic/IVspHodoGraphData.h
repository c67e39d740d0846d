#pragma once
// Curves of VSP processing projects: the lines of type "0".
#include "petrodb/seismic/IVspLineData.h"

class IVspHodoGraphData : public IVspLineData {};
