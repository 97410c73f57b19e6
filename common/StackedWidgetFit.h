#pragma once

#include <QStackedWidget>

/// A stack that takes the height of its current page instead of that of its tallest one.
///
/// A page whose vertical size policy is Fixed or Minimum is fitted to its content; any other page
/// fills the stack and takes no part in the stack's hints.
class StackedWidgetFit : public QStackedWidget
{
    Q_OBJECT

public:
    explicit StackedWidgetFit(QWidget* parent);

    QSize sizeHint() const override;
    /// Asks for the content height of a fitted page that is higher than the stack, else for none.
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Re-applies the fit; to be called after the contents of the current page have changed.
    void recomputeSize();

protected:
    void resizeEvent(QResizeEvent* event) override;
    /// The stack's own layout fills it with the page at each request; a fitted page is put back.
    bool event(QEvent* event) override;

private:
    bool placePage();
};
