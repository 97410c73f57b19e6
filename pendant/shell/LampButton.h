#pragma once

#include <QAbstractButton>
#include <QColor>

namespace pendant {

/// A button of the status bar: a caption over a value, and a lamp before them while it has a
/// colour.
class LampButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LampButton(const QString& caption, QWidget* parent = nullptr);

    void setValue(const QString& value);
    QString value() const { return shown; }
    /// An invalid colour takes the lamp away.
    void setLamp(const QColor& colour);
    QColor lamp() const { return lampColour; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont captionFont() const;
    QFont valueFont() const;
    int lampRoom() const;

    QString shown;
    QColor lampColour;
};

} // namespace pendant
