#pragma once

#include <QStackedWidget>

/// A stack that takes the height of its current page instead of that of its tallest one.
class StackedWidgetFit : public QStackedWidget
{
    Q_OBJECT

public:
    explicit StackedWidgetFit(QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Re-applies the fit; to be called after the contents of the current page have changed.
    void recomputeSize();

protected:
    void resizeEvent(QResizeEvent* event) override;
};
