#pragma once

#include <QLatin1String>

/// Names that stand in a cell and in the commands.
namespace pendant::keys {

// Service items: what a plugin may read.
inline const QLatin1String weldSetting("weld_setting_config");
inline const QLatin1String weldIo("weld_io_config");
inline const QLatin1String weldData("laser_weld_data");
inline const QLatin1String weldSchedules("weld_param_config");
inline const QLatin1String weldMatching("weld_param_match");
inline const QLatin1String weldCurves("weld_curve_config");

// Lists of the cell that are no service items.
inline const QLatin1String ports("ports");
inline const QLatin1String registers("registers");

inline const QLatin1String tools("tools");
inline const QLatin1String workObjects("work_objects");
inline const QLatin1String speeds("speeds");
inline const QLatin1String zones("zones");
inline const QLatin1String points("points");
inline const QLatin1String selection("selection"); ///< of a tool and a work object

// Fields of a point and of the selection.
inline const QLatin1String name("name");
inline const QLatin1String tool("tool");
inline const QLatin1String workObject("work_object");
inline const QLatin1String position("position");

// Fields that the controller itself uses.
inline const QLatin1String manualGasTime("manual_gas_time");
inline const QLatin1String manualFeedSpeed("manual_feed_speed");
inline const QLatin1String manualRetractSpeed("manual_retract_speed");

} // namespace pendant::keys
