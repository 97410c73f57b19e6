#pragma once

#include <QFrame>

class QAbstractButton;

namespace pendant {

/// Name of the user of a level, 0 to 4.
QString userName(int level);

/// The panel under the user's button: one button for each level.
class LoginPanel : public QFrame
{
    Q_OBJECT

public:
    explicit LoginPanel(QWidget* parent);

    /// Marks the level of the user who is logged in.
    void setLevel(int level);

Q_SIGNALS:
    void levelChosen(int level);
};

} // namespace pendant
