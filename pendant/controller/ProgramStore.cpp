#include "ProgramStore.h"

#include "JsonText.h"
#include "Names.h"

namespace pendant {
namespace {

/// The outcome of a change of the cell, for the user.
QString outcome(const QString& name, bool isDone, const QString& error)
{
    return isDone ? QString()
                  : QStringLiteral("The program %1 was left as it was: %2.")
                        .arg(jsonText(name), error);
}

} // namespace

QString ProgramStore::save(const QString& name, const QByteArray& text)
{
    const QString reason = has(name) ? QString() : names::checkProgram(name);
    if (!reason.isEmpty())
        return reason;
    if (text.size() > largest)
        return QStringLiteral("The program %1 has %2 bytes. Divide it into programs of at most %3.")
            .arg(jsonText(name), QString::number(text.size()), QString::number(int(largest)));
    QString error;
    return outcome(name, m_cell.storeProgram(name, text, &error), error);
}

QString ProgramStore::create(const QString& name)
{
    const QString reason = checkNew(name);
    return reason.isEmpty() ? save(name, {}) : reason;
}

QString ProgramStore::rename(const QString& from, const QString& to)
{
    const QString missing = checkOld(from);
    const QString reason = missing.isEmpty() ? checkNew(to) : missing;
    QString error;
    return reason.isEmpty() ? outcome(from, m_cell.renameProgram(from, to, &error), error) : reason;
}

QString ProgramStore::remove(const QString& name)
{
    const QString reason = checkOld(name);
    QString error;
    return reason.isEmpty() ? outcome(name, m_cell.removeProgram(name, &error), error) : reason;
}

QString ProgramStore::checkNew(const QString& name) const
{
    if (has(name))
        return QStringLiteral("There is a program %1 already. Choose another name, or delete that "
                              "one first.")
            .arg(jsonText(name));
    return names::checkProgram(name);
}

QString ProgramStore::checkOld(const QString& name) const
{
    if (has(name))
        return {};
    return QStringLiteral("There is no program %1. Choose one of the list.").arg(jsonText(name));
}

} // namespace pendant
