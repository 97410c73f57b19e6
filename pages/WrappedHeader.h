#pragma once

#include <QFont>
#include <QHash>
#include <QHeaderView>

class QTableWidget;

/// Horizontal header that breaks a caption into lines where its column is too narrow for it, and
/// is as high as the highest of them. A caption with a word that is too wide is drawn smaller.
class WrappedHeader : public QHeaderView
{
public:
    /// Gives the table such a header in the place of its own, which loses its resize modes.
    static void install(QTableWidget* table);

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    explicit WrappedHeader(QTableWidget* table);

    QString caption(int section) const;
    void followWidths();

    /// A caption is measured once for each width.
    struct Measured
    {
        int width = 0;
        int height = 0;
        double scale = 1; ///< less where a word is wider than the column
    };
    const Measured& measuredCaption(int section) const;
    Measured measure(const QString& text, const QFont& drawn, int width) const;

    mutable QHash<QString, Measured> measured;
    mutable QFont measuredIn;
    bool isFollowing = false;
};
