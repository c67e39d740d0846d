#pragma once
// SEG-Y lines of VSP processing projects: the lines of type "2".
#include "petrodb/seismic/IVspLineData.h"

class IVspSegyLineData : public IVspLineData {};
