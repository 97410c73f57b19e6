#pragma once

#include <QString>

/// What every page and key asks of the host, under the plugin's own name.
namespace Host {

/// Name under which the host knows the plugin; the key of all its replies.
QString pluginName();

/// True for a user who may operate: level 3 and more.
bool mayOperate();

/// The controller's present state; false when it does not tell.
bool isVirtualWelding();
bool isRedLightOn();

/// Messages to the operator, by severity.
void tellSuccess(const QString& text);
void tellWarning(const QString& text);
void tellError(const QString& text);

} // namespace Host
