#include "UiScale.h"

#include "ComboPopupFixer.h"

#include <qelplugin.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QJsonValue>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QSpinBox>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <limits>

namespace UiScale {

namespace {

// Both the screen scale and the font zoom.
constexpr double MinScale = 0.75;
constexpr double MaxScale = 3.0;
constexpr double DesignDpi = 96.0;

QString fontFamily()
{
    return QLatin1String("Microsoft YaHei UI");
}

/// To nearest, halves up, at least 1. What is no number counts as 1.
int rounded(double size)
{
    constexpr int largest = std::numeric_limits<int>::max();
    if (!(size >= 1.0))
        return 1;
    return size < largest ? static_cast<int>(std::lround(size)) : largest;
}

const QScreen* screenOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QWindow* window = widget->windowHandle();
        if (window && window->screen())
            return window->screen();
    }
    return QGuiApplication::primaryScreen();
}

/// Half of what exceeds 1 is kept.
double softened(double scale)
{
    return scale <= 1.0 ? scale : (scale - 1.0) * 0.5 + 1.0;
}

/// A point size grows with the screen by itself; this leaves it the softened growth.
double pointFactor(QWidget* widget)
{
    const double scale = screenScale(widget);
    return softened(scale) / scale;
}

/// Multiplies the number that each match captures.
QString scaleNumbers(const QString& css, const QRegularExpression& expression, double factor)
{
    QString scaled;
    scaled.reserve(css.size());
    int done = 0;
    auto matches = expression.globalMatch(css);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        scaled += css.midRef(done, match.capturedStart(1) - done);
        scaled += QString::number(rounded(match.capturedRef(1).toInt() * factor));
        done = match.capturedEnd(1);
    }
    return scaled += css.midRef(done);
}

bool isInHeader(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->objectName() == QLatin1String("frame_config_header"))
            return true;
    }
    return false;
}

template<typename Widget>
QList<Widget*> fieldsOutsideHeader(const QWidget* root)
{
    QList<Widget*> fields = root->findChildren<Widget*>();
    fields.erase(std::remove_if(fields.begin(), fields.end(), isInHeader), fields.end());
    return fields;
}

template<typename Widget>
void setFonts(const QWidget* root, const QFont& font)
{
    const auto widgets = root->findChildren<Widget*>();
    for (Widget* each : widgets)
        each->setFont(font);
}

void capHeight(QWidget* field, int cap)
{
    field->setMinimumHeight(0);
    field->setMaximumHeight(cap);
}

void relaxLabel(QLabel* label, int cap)
{
    label->setWordWrap(false);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // A unit keeps its width.
    if (label->property("type").toString() != QLatin1String("unit")) {
        label->setMinimumWidth(0);
        label->setMaximumWidth(QWIDGETSIZE_MAX);
    }
    capHeight(label, cap);
}

void relaxLineEdit(QLineEdit* edit, int cap)
{
    constexpr int minWidth = 140;
    edit->setMinimumWidth(minWidth);
    capHeight(edit, cap);
    edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

bool keepsWidth(const QFrame* frame)
{
    static const QSet<QString> names{
        QLatin1String("frame"),    QLatin1String("frame_16"), QLatin1String("frame_2"),
        QLatin1String("frame_3"),  QLatin1String("frame_17"), QLatin1String("frame_19"),
        QLatin1String("frame_20"),
    };
    return names.contains(frame->objectName());
}

void relaxFrame(QFrame* frame)
{
    constexpr int lowFrame = 400;
    if (frame->maximumHeight() > 0 && frame->maximumHeight() < lowFrame)
        frame->setMaximumHeight(QWIDGETSIZE_MAX);
    frame->setSizePolicy(keepsWidth(frame) ? QSizePolicy::Minimum : QSizePolicy::Expanding,
                         QSizePolicy::Minimum);
}

void relaxFields(const QWidget* root, int cap)
{
    const auto labels = fieldsOutsideHeader<QLabel>(root);
    for (QLabel* each : labels)
        relaxLabel(each, cap);
    const auto spinBoxes = fieldsOutsideHeader<QSpinBox>(root);
    for (QSpinBox* each : spinBoxes)
        capHeight(each, cap);
    const auto combos = fieldsOutsideHeader<QComboBox>(root);
    for (QComboBox* each : combos)
        capHeight(each, cap);
    const auto lineEdits = fieldsOutsideHeader<QLineEdit>(root);
    for (QLineEdit* each : lineEdits)
        relaxLineEdit(each, cap);
}

// Frames are labels too: a label's cap of above ends here, and that is meant.
void relaxContainers(const QWidget* root)
{
    const auto groups = root->findChildren<QGroupBox*>();
    for (QGroupBox* each : groups)
        each->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    const auto frames = root->findChildren<QFrame*>();
    for (QFrame* each : frames) {
        if (each->objectName() != QLatin1String("frame_config_header"))
            relaxFrame(each);
    }
    const auto grids = root->findChildren<QGridLayout*>();
    for (QGridLayout* each : grids) {
        each->setVerticalSpacing(4);
        each->setHorizontalSpacing(6);
    }
}

/// The view of a popup keeps the rules of the moment in which it was made. A sheet that is set
/// before the first show reaches it only so.
void repolishViews(const QWidget* root)
{
    const auto views = root->findChildren<QAbstractItemView*>();
    for (QAbstractItemView* each : views) {
        if (each->testAttribute(Qt::WA_WState_Polished))
            each->style()->polish(each);
    }
}

void installFixer(QComboBox* combo, const char* marker, int maxRows, bool below)
{
    if (!combo || combo->property(marker).toBool() || !combo->view())
        return;
    new ComboPopupFixer(combo, maxRows, below); // the view owns it
    combo->setProperty(marker, true);
}

} // namespace

double screenScale(QWidget* widget)
{
    const QScreen* screen = screenOf(widget);
    if (!screen)
        return 1.0;
    return std::clamp(screen->logicalDotsPerInchX() / DesignDpi, MinScale, MaxScale);
}

double fontZoom()
{
    const QJsonValue node =
        qelplugin::qelPluginInterface().getNodeData(QLatin1String("qeltheme.fontzoom"));
    const double zoom = node.toDouble(1.0);
    return zoom >= MinScale && zoom <= MaxScale ? zoom : 1.0;
}

int pointSize(int pt, QWidget* widget)
{
    return pt < 1 ? pt : rounded(pt * pointFactor(widget));
}

int pixels(int px, QWidget*)
{
    return std::max(px, 1);
}

int scaledPixels(int px, QWidget* widget)
{
    return rounded(px * fontZoom() * softened(screenScale(widget)));
}

int rowHeight(QWidget* widget)
{
    return scaledPixels(35, widget);
}

int controlHeight(QWidget* widget)
{
    const int textHeight = QFontMetrics(font(10, widget)).height();
    return std::max(rounded(fontZoom() * softened(screenScale(widget)) * 28.0), textHeight + 8);
}

int fieldHeightCap(QWidget* widget)
{
    return std::clamp(QFontMetrics(font(9, widget)).height() + 2, 20, 26);
}

QFont font(int pt, QWidget* widget)
{
    return QFont(fontFamily(), pointSize(pt, widget));
}

void applyFonts(QWidget* root, int pt)
{
    if (!root)
        return;
    const QFont fieldFont = font(pt, root);
    setFonts<QSpinBox>(root, fieldFont);
    setFonts<QDoubleSpinBox>(root, fieldFont);
    setFonts<QComboBox>(root, fieldFont);
}

void expand(QWidget* widget)
{
    if (widget)
        widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void relaxPageLimits(QWidget* root, QWidget* widget)
{
    if (!root)
        return;
    expand(root);
    relaxFields(root, fieldHeightCap(widget));
    relaxContainers(root);
}

int comboContentWidth(QComboBox* combo, QWidget* widget)
{
    constexpr int withoutCombo = 80;
    constexpr int margins = 24;
    if (!combo)
        return withoutCombo;
    const QFont own = combo->font();
    const bool sized = own.pointSize() >= 1 || own.pixelSize() >= 1;
    const QFontMetrics metrics(sized ? own : font(10, widget));
    int widest = 0;
    for (int index = 0; index < combo->count(); ++index)
        widest = std::max(widest, metrics.horizontalAdvance(combo->itemText(index)));
    return (widest > 0 ? widest : metrics.horizontalAdvance(combo->currentText())) + margins;
}

void tuneComboPopup(QComboBox* combo, int maxVisible)
{
    if (!combo)
        return;
    combo->setMaxVisibleItems(maxVisible);
    styleComboRows(combo);
    QAbstractItemView* view = combo->view();
    if (auto* list = qobject_cast<QListView*>(view)) {
        list->setUniformItemSizes(true);
        // It lays its rows out for each spacing that it is given.
        if (list->spacing() != 0)
            list->setSpacing(0);
    }
    if (view) {
        view->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
        view->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
}

void styleComboRows(QComboBox* combo)
{
    if (combo && !qobject_cast<QStyledItemDelegate*>(combo->itemDelegate()))
        combo->setItemDelegate(new QStyledItemDelegate(combo));
}

void fixComboPopupBelow(QComboBox* combo, int maxRows)
{
    installFixer(combo, "comboPopupFixerBelow", maxRows, true);
}

void fixComboPopupHeight(QComboBox* combo, int maxRows)
{
    installFixer(combo, "comboPopupFixerHeight", maxRows, false);
}

QString scaleStyleSheet(const QString& css, double factor)
{
    if (css.isEmpty() || std::abs(factor - 1.0) < 0.001)
        return css;
    static const QRegularExpression points(QLatin1String(R"((\d+)pt)"));
    static const QRegularExpression fontPixels(QLatin1String(R"(font-size\s*:\s*(\d+)px)"),
                                               QRegularExpression::CaseInsensitiveOption);
    return scaleNumbers(scaleNumbers(css, points, factor), fontPixels, factor);
}

QString styleSheet(const QString& css, QWidget* widget)
{
    return scaleStyleSheet(css, pointFactor(widget));
}

void setScaledSheet(QWidget* widget, const QString& sheet)
{
    if (widget->styleSheet() == sheet)
        return;
    // Qt goes on with the old sheet of a widget that has not been polished.
    if (!widget->styleSheet().isEmpty())
        widget->ensurePolished();
    widget->setStyleSheet(sheet);
    if (!widget->testAttribute(Qt::WA_WState_Polished))
        repolishViews(widget);
}

void setStyleSheet(QWidget* widget, const QString& css, QWidget* scaleOf)
{
    if (widget)
        setScaledSheet(widget, styleSheet(css, scaleOf ? scaleOf : widget));
}

} // namespace UiScale
