#pragma once

#include <QLatin1String>

/// Names that stand in a cell and in the commands.
namespace pendant::keys {

// Service items: what a plugin may read.
inline const QLatin1String weldSetting("weld_setting_config");
inline const QLatin1String weldIo("weld_io_config");
inline const QLatin1String weldData("laser_weld_data");

// Lists of the cell that are no service items.
inline const QLatin1String ports("ports");
inline const QLatin1String registers("registers");

// Fields that the controller itself uses.
inline const QLatin1String manualGasTime("manual_gas_time");

} // namespace pendant::keys
