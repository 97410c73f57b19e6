#pragma once

#include <QString>

#include <functional>

namespace qelplugin {

/// One hardware key of the pendant. The order of the fields is part of the binary interface.
struct PhysicalButton
{
    QString label;                      ///< caption, already translated
    QString pressedIcon;                ///< resource path of the picture while the key is held
    QString unpressedIcon;              ///< resource path of the picture at rest
    std::function<void(bool)> callback; ///< called with true on press and false on release
};

} // namespace qelplugin
