#include "RlLaserWeldDefine.h"

RlLaserWeldDefine::RlLaserWeldDefine() = default;
