#pragma once

#include <QColor>
#include <QVariant>
#include <QWidget>

class QPropertyAnimation;

/// The animated on/off switch.
///
/// The state changes at once, the thumb slides to its new end within 200 ms.
class EnableButton : public QWidget
{
    Q_OBJECT

public:
    explicit EnableButton(QWidget* parent);
    ~EnableButton() override;

    bool isChecked() const { return checked; }
    /// Changes the state with a slide and emits nothing; `force` replays the slide of an unchanged
    /// state.
    void setChecked(bool on, bool force = false);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A press of the left button has changed the state; emitted at the start of the slide.
    void enabled(bool is_enable);

public Q_SLOTS:
    /// Places the thumb for a value of the animation, 0 to 25.
    void moveSlider(QVariant value, bool need_update = true);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void startSlide();
    int drawnWidth() const { return width() - marginLeft - marginRight; }
    int drawnHeight() const { return height() - marginTop - marginBottom; }
    void paintTrack(QPainter& painter) const;
    void paintThumb(QPainter& painter) const;

    QPropertyAnimation* animation; ///< the clock of the slide; it drives no property
    qint32 sliderX = 0;            ///< left edge of the thumb from the left margin, in pixels
    qint32 lastWidth = 0;          ///< width for which sliderX was computed
    bool checked = false;
    QColor onTrackColor{141, 185, 244, 255};
    QColor offTrackColor{189, 193, 198, 255};
    QColor onThumbColor{26, 115, 232, 255};
    QColor offThumbColor{221, 221, 221, 255};
    qint32 marginLeft = 0;
    qint32 marginTop = 0;
    qint32 marginRight = 0;
    qint32 marginBottom = 0;
};
