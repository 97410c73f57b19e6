#include "Examiner.h"

#include "DrawnTexts.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabBar>
#include <QTableView>

#include <algorithm>

namespace {

constexpr double Tolerance = 1; ///< pixels, that a rounded outline may stand out
/// A box with more entries is filled from the controller: it is judged by what it shows.
constexpr int MostChoices = 4;

const QChar Dots(0x2026);

QString nameOf(const QWidget* widget)
{
    QString path;
    for (; widget; widget = widget->parentWidget()) {
        const QString name = widget->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
            return name + path;
        path = QLatin1Char('/') + QString::fromLatin1(widget->metaObject()->className()) + path;
    }
    return path;
}

bool isViewport(const QWidget* widget)
{
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
    return area && area->viewport() == widget;
}

class Examination
{
public:
    Examination(const QString& viewName, QWidget* rootWidget)
        : view(viewName)
        , root(rootWidget)
    {}

    QVector<Finding> run()
    {
        look(root);
        const auto all = root->findChildren<QWidget*>();
        for (QWidget* each : all) {
            if (each->isVisibleTo(root))
                look(each);
        }
        return findings;
    }

private:
    void note(const QWidget* widget, const QString& what, const QString& text = {})
    {
        const Finding found{view, nameOf(widget), what, text, 0};
        const bool isKnown =
            std::any_of(findings.begin(), findings.end(), [&](const Finding& each) {
                return each.widget == found.widget && each.what == found.what &&
                       each.text == found.text;
            });
        if (!isKnown)
            findings << found;
    }

    void noteCut(const QWidget* widget, const DrawnText& text)
    {
        note(widget, QStringLiteral("cut"), text.text);
        findings.last().pixels = missing(text);
    }

    // The widest gap between what is drawn and what can be seen.
    static double missing(const DrawnText& text)
    {
        return std::max({text.room.left() - text.ink.left(), text.ink.right() - text.room.right(),
                         text.room.top() - text.ink.top(), text.ink.bottom() - text.room.bottom()});
    }

    void look(QWidget* widget)
    {
        if (auto* box = qobject_cast<QComboBox*>(widget))
            lookAtChoices(box);
        else if (auto* number = qobject_cast<QSpinBox*>(widget))
            lookAtEnds(number);
        else if (auto* fraction = qobject_cast<QDoubleSpinBox*>(widget))
            lookAtEnds(fraction);
        else
            lookAtTexts(widget);
        lookAtPlaces(widget);
        if (const auto* table = qobject_cast<QTableView*>(widget))
            lookAtReach(table);
    }

    void lookAtChoices(QComboBox* box)
    {
        lookAtTexts(box);
        if (box->count() > MostChoices)
            return;
        const QSignalBlocker silent(box);
        const int before = box->currentIndex();
        for (int index = 0; index < box->count(); ++index) {
            box->setCurrentIndex(index);
            lookAtTexts(box);
        }
        box->setCurrentIndex(before);
    }

    template<typename SpinBox>
    void lookAtEnds(SpinBox* box)
    {
        auto* edit = box->template findChild<QLineEdit*>();
        const QSignalBlocker silent(box);
        const auto before = box->value();
        for (const auto end : {box->minimum(), box->maximum()}) {
            box->setValue(end);
            lookAtTexts(edit);
        }
        box->setValue(before);
    }

    void lookAtTexts(QWidget* widget)
    {
        const bool isComment = isViewport(widget) && !qobject_cast<QHeaderView*>(widget->parent());
        const auto texts = drawnTexts(widget);
        for (const DrawnText& each : texts) {
            if (isComment)
                continue;
            if (each.text.contains(Dots))
                note(widget, QStringLiteral("elided"), each.text);
            else if (missing(each) > Tolerance && !isScrolled(widget, each))
                noteCut(widget, each);
        }
    }

    // A header reaches as far as its table does.
    static bool isScrolled(const QWidget* widget, const DrawnText& text)
    {
        const auto* header = qobject_cast<const QHeaderView*>(widget->parentWidget());
        if (!header || header->length() <= widget->width())
            return false;
        return text.ink.right() > widget->width() || text.ink.left() < 0;
    }

    void lookAtPlaces(const QWidget* parent)
    {
        if (isViewport(parent) || qobject_cast<const QAbstractScrollArea*>(parent) ||
            qobject_cast<const QTabBar*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent))
            return;
        const QVector<QWidget*> children = placedChildren(parent);
        for (int index = 0; index < children.size(); ++index) {
            const QWidget* child = children.at(index);
            const int slack = int(Tolerance);
            if (!parent->rect().adjusted(-slack, -slack, slack, slack).contains(child->geometry()))
                note(child, QStringLiteral("outside"));
            for (int other = index + 1; other < children.size(); ++other)
                lookAtPair(child, children.at(other));
        }
    }

    void lookAtPair(const QWidget* one, const QWidget* other)
    {
        const QRect common = one->geometry() & other->geometry();
        if (common.width() > Tolerance && common.height() > Tolerance)
            note(one, QStringLiteral("over ") + nameOf(other));
    }

    QVector<QWidget*> placedChildren(const QWidget* parent) const
    {
        QVector<QWidget*> placed;
        const auto children = parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* each : children) {
            // Scroll bars that a small table draws over its edge are of no account.
            if (!each->isWindow() && each->isVisibleTo(root) && !qobject_cast<QScrollBar*>(each))
                placed << each;
        }
        return placed;
    }

    // Rows below the end of a table that does not scroll.
    void lookAtReach(const QTableView* table)
    {
        if (table->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff &&
            table->verticalHeader()->length() > table->viewport()->height())
            note(table, QStringLiteral("unreachable"), QStringLiteral("rows"));
        if (table->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff &&
            table->horizontalHeader()->length() > table->viewport()->width())
            note(table, QStringLiteral("unreachable"), QStringLiteral("columns"));
    }

    QString view;
    QWidget* root;
    QVector<Finding> findings;
};

} // namespace

QString Finding::line() const
{
    return QStringLiteral("%1: %2 %3 \"%4\" %5")
        .arg(view, widget, what, text)
        .arg(pixels, 0, 'f', 1);
}

QVector<Finding> examine(const QString& view, QWidget* root)
{
    return Examination(view, root).run();
}
