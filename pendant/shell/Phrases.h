#pragma once

#include <QString>

namespace pendant {

/// What the controller and the loader of plugins say comes in English, with its values filled in.
/// The same in the language that is installed; a text that is not known stays as it is.
QString phrase(const QString& english);

} // namespace pendant
