#pragma once

#include <QLabel>

namespace pendant {

/// A label of two lines, whatever its text: what does not fit is left out at the end of the second
/// one, which then ends in "…". Plain text only; text() is the whole.
class BriefLabel : public QLabel
{
    Q_OBJECT

public:
    explicit BriefLabel(QWidget* parent = nullptr);

    /// The lines as they are drawn in the width in pixels: two, one, or none for an empty text.
    QStringList linesFor(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pendant
