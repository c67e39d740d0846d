#pragma once
// Geophone layouts of VSP processing projects: the data sets of type 1. An
// empty name shows "检波器名称不能为空！".
#include "petrodb/seismic/IVspGeneralData.h"

class IVspDeteData : public IVspCodedGeneralData {};
