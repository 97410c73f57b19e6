#pragma once

#include "qelplugin.h"

#include <QPixmap>
#include <QWidget>

namespace pendant {

/// One hardware key: a picture and a caption that call back on press and on release.
///
/// It is held by the mouse, a finger or the space bar, from wherever the pointer went down until it
/// comes up, also beside the key. Whatever takes the key away from the operator lets it go: it is
/// hidden or disabled, its window loses the focus or closes, or it loses the focus itself while the
/// keyboard holds it. Every press is followed by exactly one release.
class HardwareKey : public QWidget
{
    Q_OBJECT

public:
    /// The record is copied.
    explicit HardwareKey(const qelplugin::PhysicalButton& key, QWidget* parent = nullptr);
    /// Lets the key go.
    ~HardwareKey() override;

    QString label() const { return record.label; }
    bool isHeld() const { return held; }

    /// Presses the key; nothing while it is held or disabled.
    void hold();
    /// Releases the key; nothing while it is not held.
    void letGo();

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void call(bool pressed);
    bool touched(QEvent* event);
    void paintPicture(QPainter& painter, const QRect& place) const;

    qelplugin::PhysicalButton record;
    QPixmap pressedPicture;
    QPixmap restPicture;
    bool held = false;
    bool byKeyboard = false; ///< held, and not by a pointer
};

} // namespace pendant
