#include "FaultDocument.h"

#include <algorithm>
#include <utility>

namespace {

QString lines(const QStringList& all)
{
    return all.isEmpty() ? QStringLiteral("nothing") : all.join(QStringLiteral("<br>"));
}

QString row(const QStringList& cells)
{
    return QStringLiteral("| %1 |\n").arg(cells.join(QStringLiteral(" | ")));
}

struct Row
{
    QStringList faults;
    QString deeds; ///< empty: all of them
    QString cells;
};

/// Under one fault, the outcomes with the deeds that have them, in the order of the deeds.
QVector<Row> rowsOf(int fault, const QString& name, const QVector<DeedOutcomes>& deeds)
{
    QVector<Row> rows;
    for (const DeedOutcomes& deed : deeds) {
        const QString cells = deed.outcomes.at(fault).cells();
        const auto same = std::find_if(rows.begin(), rows.end(),
                                       [&](const Row& each) { return each.cells == cells; });
        if (same == rows.end())
            rows.append({{name}, deed.name, cells});
        else
            same->deeds += QStringLiteral("; ") + deed.name;
    }
    if (rows.size() == 1)
        rows.first().deeds.clear();
    return rows;
}

void add(QVector<Row>& rows, const Row& added)
{
    const auto same = std::find_if(rows.begin(), rows.end(), [&](const Row& each) {
        return each.deeds == added.deeds && each.cells == added.cells;
    });
    if (same == rows.end())
        rows.append(added);
    else
        same->faults += added.faults;
}

QString beginLine(const QString& name)
{
    return QStringLiteral("<!-- made by tst_faulttable: %1 -->\n").arg(name);
}

const QString EndLine = QStringLiteral("<!-- end -->\n");

} // namespace

QString Outcome::cells() const
{
    return QStringList{lines(told), lines(logged), shown, held}.join(QStringLiteral(" | "));
}

QString FaultDocument::table(const QStringList& faults, const QVector<DeedOutcomes>& deeds)
{
    QVector<Row> rows;
    for (int fault = 0; fault < faults.size(); ++fault) {
        const QVector<Row> added = rowsOf(fault, faults.at(fault), deeds);
        for (const Row& each : added)
            add(rows, each);
    }
    const bool hasExceptions = std::any_of(rows.cbegin(), rows.cend(),
                                           [](const Row& each) { return !each.deeds.isEmpty(); });
    QStringList head{QStringLiteral("Fault"), QStringLiteral("Operator reads"),
                     QStringLiteral("Log"), QStringLiteral("Shown"),
                     QStringLiteral("Controller holds")};
    if (hasExceptions)
        head.insert(1, QStringLiteral("At"));
    QVector<QStringList> cells;
    for (const Row& each : std::as_const(rows)) {
        cells.append({each.faults.join(QStringLiteral(", ")), each.cells});
        if (hasExceptions)
            cells.last().insert(1, each.deeds.isEmpty() ? QStringLiteral("all") : each.deeds);
    }
    return plainTable(head, cells);
}

QString FaultDocument::plainTable(const QStringList& head, const QVector<QStringList>& rows)
{
    QString text = row(head) + QLatin1Char('|') + QStringLiteral("---|").repeated(head.size()) +
                   QLatin1Char('\n');
    for (const QStringList& each : rows)
        text += row(each);
    return text;
}

QString FaultDocument::part(const QString& document, const QString& name)
{
    const QString begin = beginLine(name);
    const int found = document.indexOf(begin);
    if (found < 0)
        return {};
    const int start = found + begin.size();
    return document.mid(start, document.indexOf(EndLine, start) - start);
}

QString FaultDocument::withPart(const QString& document, const QString& name, const QString& text)
{
    const QString begin = beginLine(name);
    return QString(document).replace(begin + part(document, name) + EndLine,
                                     begin + text + EndLine);
}
