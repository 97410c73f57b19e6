#pragma once

/// Registers the laser-welding instructions with the host's program editor. The registrations
/// outlive the object.
class RlLaserWeldDefine
{
public:
    RlLaserWeldDefine();
};
