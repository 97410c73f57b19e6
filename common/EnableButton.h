#pragma once

#include <QColor>
#include <QVariant>
#include <QWidget>

class QPropertyAnimation;

/// The animated on/off switch.
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
    QPropertyAnimation* animation;
    int sliderX = 0;
    int lastWidth = 0;
    bool checked = false;
};
