#include "Forced.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

/// Findings of one reason. View, widget, what and text are wildcards.
struct Row
{
    const char* view;
    const char* widget;
    const char* what;
    const char* text;
    const char* where; ///< words as "en96:800,1024"
    const char* reason;
};

// docs/architecture.md, "What the fixed sizes force", says more.
constexpr char RowHeight[] = "rows are 20 to 28 px high and the table does not scroll";
constexpr char SwitchInRow[] = "a switch of 50 x 24 px in a row below 28 px";
constexpr char BoxInRow[] = "boxes are as high as their row less 8 px";
constexpr char NameInRow[] = "a name is as high as its row";
constexpr char HeaderPadding[] =
    "columns are wider than their title by 14 px, the padding is 17 px";
constexpr char CurveColumn[] =
    "columns share a third of the page, some of which the scroll bar takes";
constexpr char TabWidth[] = "tabs are 145 px wide and more; their bar scrolls";
constexpr char CurveButtons[] = "three buttons under a chart of a third of the page";
constexpr char ListColumn[] = "columns of a list share the page's width";
constexpr char ScheduleHeader[] = "number and comment of a schedule stand in one row";
constexpr char MatchingRows[] = "header rows of 38 px, drawn in 7pt at least";
constexpr char RecordTitle[] = "number of the record in 15pt beside the buttons";
constexpr char EditorBox[] =
    "a box is as wide as the host's sheet makes it, which knows not of the screen";

constexpr Row Table[] = {
    {"io/output", "tableWidget_output", "unreachable", "rows",
     "en96:800 zh96:800 en144:800 zh144:800 en192:800 zh192:800", RowHeight},
    {"io/*", "pushButton_*_enabled", "outside", "*",
     "en96:800 zh96:800 en144:800,1024 zh144:800,1024 en192:800,1024,1280 zh192:800,1024,1280",
     SwitchInRow},
    {"io/*", "comboBox_*", "cut", "*", "en192:800,1024,1280 zh192:800,1024,1280", BoxInRow},
    {"io/*", "label_*_name", "cut", "*", "en192:800,1024,1280 zh192:800", NameInRow},
    {"io/*", "tableWidget_*/QHeaderView/QWidget", "cut", "*",
     "en144:1280 zh144:800,1024,1280 en192:800,1024,1280 zh192:800,1024,1280", HeaderPadding},
    {"curve/*", "tableWidget_*/QWidget/*SpinBox/QLineEdit", "cut", "*",
     "en96:800 zh96:800 en144:800,1024 zh144:800 en192:800,1024 zh192:800,1024", CurveColumn},
    {"curve/*", "tableWidget_*/QHeaderView/QWidget", "cut", "*", "en144:800 zh192:800",
     CurveColumn},
    {"*", "tabWidget*/QTabBar", "cut", "*",
     "en96:800 zh96:800 en144:800,1024 zh144:800 en192:800,1024,1280 zh192:800,1024", TabWidth},
    {"curve/*", "pushButton_*", "cut", "*", "en144:800 en192:800", CurveButtons},
    {"data/*", "tableWidget*/QHeaderView/QWidget", "cut", "*", "en192:800", ListColumn},
    {"schedule/*", "lineEdit", "outside", "", "en144:800 en192:800", ScheduleHeader},
    {"schedule/*", "label_ID|label_3", "cut", "*", "en192:800", ScheduleHeader},
    {"matching", "tableWidget_matching/QWidget/QLabel", "cut", "*", "en144:800", MatchingRows},
    {"matching", "label_*", "cut", "*", "en192:800", RecordTitle},
    {"insert/*", "cbx*", "cut", "*", "zh144:800,1024,1280 en192:800,1024,1280 zh192:800,1024,1280",
     EditorBox},
    {"property/*", "cbx*", "cut", "*",
     "zh144:800,1024,1280 en192:800,1024,1280 zh192:800,1024,1280", EditorBox},
};

bool matches(const char* wildcard, const QString& text)
{
    const QString pattern = QRegularExpression::escape(QString::fromUtf8(wildcard))
                                .replace(QLatin1String("\\*"), QLatin1String(".*"))
                                .replace(QLatin1String("\\|"), QLatin1String("|"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption)
        .match(text)
        .hasMatch();
}

bool matches(const Row& row, const Finding& finding)
{
    return matches(row.view, finding.view) && matches(row.widget, finding.widget) &&
           matches(row.what, finding.what) && matches(row.text, finding.text);
}

bool isAt(const Row& row, const QString& where)
{
    const QString screen = where.section(QLatin1Char(':'), 0, 0);
    const QString window = where.section(QLatin1Char(':'), 1, 1);
    const QStringList words = QString::fromLatin1(row.where).split(QLatin1Char(' '));
    return std::any_of(words.begin(), words.end(), [&](const QString& word) {
        return word.section(QLatin1Char(':'), 0, 0) == screen &&
               word.section(QLatin1Char(':'), 1, 1).split(QLatin1Char(',')).contains(window);
    });
}

} // namespace

QStringList Forced::differences(const QString& where, const QVector<Finding>& findings)
{
    QStringList lines;
    const auto isKnown = [&](const Finding& finding) {
        return std::any_of(std::begin(Table), std::end(Table), [&](const Row& row) {
            return isAt(row, where) && matches(row, finding);
        });
    };
    for (const Finding& each : findings) {
        if (!isKnown(each))
            lines << QStringLiteral("new: %1 %2").arg(where, each.line());
    }
    for (const Row& row : Table) {
        const bool occurs = std::any_of(findings.begin(), findings.end(),
                                        [&](const Finding& each) { return matches(row, each); });
        if (isAt(row, where) && !occurs)
            lines << QStringLiteral("gone: %1 %2 %3 %4")
                         .arg(where, QLatin1String(row.view), QLatin1String(row.widget),
                              QLatin1String(row.what));
    }
    return lines;
}
