#include "Skeleton.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace pendant {

namespace {

constexpr QLatin1Char FieldMark('$');
constexpr QLatin1Char PartMark('#');
constexpr int Parts = 4; // label, kind, values, flag

QString tr(const char* text)
{
    return QCoreApplication::translate("Skeleton", text);
}

bool fail(SkeletonError* error, int offset, const QString& reason)
{
    *error = {offset, reason};
    return false;
}

/// A part of a field and where it stands.
struct Part
{
    QString text;
    int offset;
};

QVector<Part> split(const Part& whole, QLatin1Char mark)
{
    QVector<Part> parts;
    int offset = whole.offset;
    const QStringList texts = whole.text.split(mark);
    for (const QString& text : texts) {
        parts.append({text, offset});
        offset += text.size() + 1;
    }
    return parts;
}

bool readEntries(const Part& values, SkeletonField* field, SkeletonError* error)
{
    const QVector<Part> entries = split(values, QLatin1Char('/'));
    for (const Part& entry : entries) {
        if (entry.text.isEmpty())
            return fail(error, entry.offset, tr("an entry of the list is empty"));
        field->entries << entry.text;
    }
    return true;
}

bool readRange(const Part& values, SkeletonField* field, SkeletonError* error)
{
    const QVector<Part> ends = split(values, QLatin1Char(','));
    if (ends.size() != 2)
        return fail(error, values.offset, tr("a range is two numbers with a comma between"));
    int* const numbers[] = {&field->minimum, &field->maximum};
    for (int i = 0; i < 2; ++i) {
        bool isNumber = false;
        *numbers[i] = ends.at(i).text.toInt(&isNumber);
        if (!isNumber)
            return fail(error, ends.at(i).offset,
                        tr("\"%1\" is no whole number").arg(ends.at(i).text));
    }
    return field->minimum <= field->maximum ||
           fail(error, values.offset, tr("the range ends before it begins"));
}

bool readValues(const Part& kind, const Part& values, SkeletonField* field, SkeletonError* error)
{
    if (kind.text == QLatin1String("cmb")) {
        field->kind = SkeletonField::Kind::Choice;
        return readEntries(values, field, error);
    }
    if (kind.text == QLatin1String("spn")) {
        field->kind = SkeletonField::Kind::Number;
        return readRange(values, field, error);
    }
    return fail(error, kind.offset, tr("\"%1\" is no kind of input").arg(kind.text));
}

bool readFlag(const Part& part, SkeletonField* field, SkeletonError* error)
{
    field->flag = part.text == QLatin1String("true");
    return field->flag || part.text == QLatin1String("false") ||
           fail(error, part.offset, tr("\"%1\" is neither true nor false").arg(part.text));
}

bool readField(const Part& whole, SkeletonField* field, SkeletonError* error)
{
    const QVector<Part> parts = split(whole, PartMark);
    if (parts.size() != Parts)
        return fail(error, whole.offset,
                    tr("a field has %1 parts, this one has %2").arg(Parts).arg(parts.size()));
    field->label = parts.at(0).text;
    return readValues(parts.at(1), parts.at(2), field, error) &&
           readFlag(parts.at(3), field, error);
}

// Words and signs of a literal, with any spaces between them.
QString literalPattern(const QString& literal)
{
    static const QRegularExpression token(QStringLiteral("\\w+|[^\\w\\s]"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    QString pattern;
    for (auto each = token.globalMatch(literal); each.hasNext();)
        pattern += QRegularExpression::escape(each.next().captured()) + QLatin1String("\\s*");
    return pattern;
}

QString valuePattern(SkeletonField::Kind kind)
{
    return kind == SkeletonField::Kind::Number ? QStringLiteral("(-?[0-9]+)\\s*")
                                               : QStringLiteral("(\"[^\"]*\"|[^\"]*?)\\s*");
}

} // namespace

QString SkeletonError::text() const
{
    return tr("at character %1: %2").arg(offset + 1).arg(reason);
}

std::optional<Skeleton> Skeleton::parse(const QString& text, SkeletonError* error)
{
    Skeleton result;
    int from = 0;
    for (;;) {
        const int start = text.indexOf(FieldMark, from);
        result.pieces << text.mid(from, start < 0 ? -1 : start - from);
        if (start < 0)
            return result;
        const int end = text.indexOf(FieldMark, start + 1);
        if (end < 0) {
            fail(error, start, tr("the field has no end"));
            return std::nullopt;
        }
        SkeletonField field;
        if (!readField({text.mid(start + 1, end - start - 1), start + 1}, &field, error))
            return std::nullopt;
        result.inputs << field;
        from = end + 1;
    }
}

QString Skeleton::write(const QStringList& values) const
{
    QString text = pieces.first();
    for (int i = 0; i < inputs.size(); ++i)
        text += values.value(i) + pieces.at(i + 1);
    return text;
}

std::optional<QStringList> Skeleton::read(const QString& line) const
{
    QString pattern = QStringLiteral("^\\s*") + literalPattern(pieces.first());
    for (int i = 0; i < inputs.size(); ++i)
        pattern += valuePattern(inputs.at(i).kind) + literalPattern(pieces.at(i + 1));
    // What is a blank for the literals is one for the line.
    const QRegularExpression expression( // clazy:exclude=use-static-qregularexpression
        pattern, QRegularExpression::UseUnicodePropertiesOption);
    const auto match = expression.match(line); // clazy:exclude=use-static-qregularexpression
    if (!match.hasMatch())
        return std::nullopt;
    return match.capturedTexts().mid(1);
}

} // namespace pendant
