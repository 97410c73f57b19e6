#include "Phrases.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace pendant {

namespace {

// %1 and so on stand for the values, in this order.
constexpr const char* Patterns[] = {
    // of the plugin loader
    QT_TRANSLATE_NOOP("Phrases", "wrong Qt: needs %1, the pendant runs with Qt %2"),
    QT_TRANSLATE_NOOP("Phrases", "missing symbol: %1"),
    QT_TRANSLATE_NOOP("Phrases", "needs a library that is not there: %1"),
    QT_TRANSLATE_NOOP("Phrases", "no plugin: has no function qelplugin::api()"),
    QT_TRANSLATE_NOOP("Phrases", "made for version %1 of the plugin interface, the pendant has %2"),
    QT_TRANSLATE_NOOP("Phrases", "the plugin folder does not exist"),
    QT_TRANSLATE_NOOP("Phrases", "the plugin folder holds no lib*.so"),
    QT_TRANSLATE_NOOP("Phrases", "no factory: the library registers no plugin"),
    QT_TRANSLATE_NOOP("Phrases", "not a library"),
    QT_TRANSLATE_NOOP("Phrases", "a library for another kind of machine"),
    QT_TRANSLATE_NOOP("Phrases", "another library has registered this name"),
    QT_TRANSLATE_NOOP("Phrases", "its factory made no plugin"),
    // of the controller
    QT_TRANSLATE_NOOP("Phrases", "The program %1 was left as it was: %2."),
    QT_TRANSLATE_NOOP("Phrases",
                      "The program %1 has %2 bytes. Divide it into programs of at most %3."),
    // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): a long text in two pieces
    QT_TRANSLATE_NOOP("Phrases", "There is a program %1 already. Choose another name, or delete "
                                 "that one first."),
    QT_TRANSLATE_NOOP("Phrases", "There is no program %1. Choose one of the list."),
    QT_TRANSLATE_NOOP("Phrases", "The list \"%1\" has no %2. Choose a name of the list."),
    QT_TRANSLATE_NOOP("Phrases", "There is a point %1 already. Choose another name."),
    QT_TRANSLATE_NOOP("Phrases", "The connection to the controller is down. Bring it up, then try "
                                 "again."),
    QT_TRANSLATE_NOOP("Phrases", "The name \"\" is empty. Give a name of 1 to %1 characters."),
    QT_TRANSLATE_NOOP("Phrases", "The name %1 has %2 characters. Give a name of at most %3."),
    QT_TRANSLATE_NOOP("Phrases", "The name %1 holds a control character. Leave it out."),
    QT_TRANSLATE_NOOP("Phrases", "The name %1 cannot stand in a program. Use letters, digits and "
                                 "underscores, and no digit first."),
    QT_TRANSLATE_NOOP("Phrases", "The name %1 begins or ends with a blank. Leave it out."),
    QT_TRANSLATE_NOOP("Phrases", "The name %1 holds a slash. Leave it out."),
};

QRegularExpression expressionOf(const char* pattern)
{
    static const QRegularExpression value(QStringLiteral("%\\d"));
    QString text = QRegularExpression::escape(QString::fromLatin1(pattern));
    text.replace(QLatin1String("\\%"), QLatin1String("%"));
    text.replace(value, QStringLiteral("(.+)"));
    return QRegularExpression(QRegularExpression::anchoredPattern(text),
                              QRegularExpression::DotMatchesEverythingOption);
}

// All at once: a value may look like the mark of another one.
QString filled(const QString& text, const QRegularExpressionMatch& match)
{
    const auto value = [&](int number) { return match.captured(number); };
    switch (match.lastCapturedIndex()) {
    case 0:
        return text;
    case 1:
        return text.arg(value(1));
    case 2:
        return text.arg(value(1), value(2));
    default:
        return text.arg(value(1), value(2), value(3));
    }
}

} // namespace

QString phrase(const QString& english)
{
    for (const char* pattern : Patterns) {
        const auto match =
            expressionOf(pattern).match(english); // clazy:exclude=use-static-qregularexpression
        if (!match.hasMatch())
            continue;
        return filled(QCoreApplication::translate("Phrases", pattern), match);
    }
    return english;
}

} // namespace pendant
