#pragma once

#include <QFrame>

#include <optional>

class QAbstractButton;
class QHBoxLayout;
class QLabel;

namespace pendant {

class BriefLabel;
struct Message;

/// The strip at the bottom: the last message in the colour of its severity, and the buttons that
/// open the panels. It is of one height whatever the message says: what two lines do not hold is
/// left out there, and stands in the tool tip.
class MessageStrip : public QFrame
{
    Q_OBJECT

public:
    explicit MessageStrip(QWidget* parent = nullptr);

    void showMessage(const Message& message);
    void clear();
    /// Adds a checkable button behind the message; its name becomes "button_<name>".
    QAbstractButton* addButton(const QString& name, const QString& caption);

Q_SIGNALS:
    void messageClicked();

protected:
    void changeEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void tint();

    QHBoxLayout* row;
    QFrame* box;
    QLabel* time;
    BriefLabel* text;
    std::optional<int> level; ///< of the message on show
};

} // namespace pendant
