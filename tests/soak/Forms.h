#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

class QTableWidget;
class QWidget;

namespace soak {

/// What the pages show, put together as the controller's records have it, by the names of the
/// widgets and by what is painted. The page is the widget of the class' name.
namespace Forms {

/// A switch of the plugin, by the colour in which it is painted.
bool isOn(QWidget* toggle);
/// Of a widget that must be there.
QWidget* within(QWidget* page, const QString& name);
template<typename Widget>
Widget* within(QWidget* page, const QString& name)
{
    return qobject_cast<Widget*>(within(page, name));
}

/// "weld_setting_config".
QJsonObject setting(QWidget* page);
/// "weld_io_config".
QJsonObject mapping(QWidget* page);
/// One record of "weld_param_config", without its key.
QJsonObject schedule(QWidget* page);
/// One record of "weld_param_match", without its key.
QJsonObject matching(QWidget* page);

/// A number of the setting or of a schedule that the operator can change: where it stands.
QStringList settingNumbers(QWidget* page);
QStringList scheduleNumbers();
QStringList scheduleSwitches();
QStringList scheduleChoices();

/// What the four tabs of the curves are called.
struct Curve
{
    const char* tab; ///< title in English
    const char* nodeBox;
    const char* table;
    const char* compute;
    const char* cancel;
    const char* save;
    const char* nodeKey;
    const char* dataKey;
    const char* command;
};
constexpr int CurveCount = 4;
const Curve& curve(int index);
/// The two keys of the curve in "weld_curve_config".
QJsonObject curveRecord(QWidget* page, int index);
/// What the page tells of nodes that it sends nowhere; empty for those that it sends.
QString complaint(const QJsonArray& nodes);

} // namespace Forms

} // namespace soak
