#pragma once
// Velocity models of VSP processing projects: the data sets of type 0. An empty
// name shows "速度模型名称不能为空！".
#include "petrodb/seismic/IVspGeneralData.h"

class IVspVelData : public IVspCodedGeneralData {};
