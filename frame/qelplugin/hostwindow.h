#pragma once

#include "physicalbutton.h"
#include "qelpluginglobal.h"

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

namespace qelplugin {

/// Severity of a message to the operator.
enum enThrowLogLevel {
    ThrowLogInformation = 0,
    ThrowLogWarning = 1,
    ThrowLogError = 2,
};

// What a plugin puts into the host's window. The results are status codes, 0 for success.

/// Installs the widget as the plugin's central page and takes it over.
QELPLUGIN_EXPORT int CreateCenterWidget(const QString& plugin, QWidget* widget);
/// Installs the widget in the status bar and takes it over.
QELPLUGIN_EXPORT int CreateStatusBar(const QString& plugin, QWidget* widget, int position);
/// Installs the plugin's hardware keys; the records are copied.
QELPLUGIN_EXPORT int CreatePhyButtonList(const QString& plugin, const QString& group,
                                         const QList<PhysicalButton>& firstList,
                                         const QList<PhysicalButton>& secondList,
                                         QStringList extra);
/// Switches a group of hardware keys.
QELPLUGIN_EXPORT int ChangePhyButtonStatus(const QString& plugin, const QString& group,
                                           bool active);
/// Fills `widget` with the page of another plugin, or leaves it null while that is not ready.
QELPLUGIN_EXPORT int GetPluginNoUniqueWidget(const QString& plugin, QWidget*& widget);
/// Shows the text to the operator.
QELPLUGIN_EXPORT int ThrowLog(const QString& plugin, enThrowLogLevel level, const QString& text);

} // namespace qelplugin
