// Feeds a skeleton and, behind the first line feed, a program line to the pendant's parser and to
// the form that is made from a skeleton.
//
// A skeleton that is refused is refused at a place within it, with a reason. One that is taken
// reads back what it has written, and its form shows numbers within their ranges and builds the
// same again when it is filled with what it has built.

#include "Harness.h"
#include "Skeleton.h"
#include "SkeletonForm.h"

#include <QRegularExpression>
#include <QSpinBox>

#include <algorithm>

namespace {

using pendant::Skeleton;
using pendant::SkeletonField;

constexpr int MostInputs = 6; // a form of more is slow, and no other one

bool isNumber(const SkeletonField& field)
{
    return field.kind == SkeletonField::Kind::Number;
}

QString firstValue(const SkeletonField& field)
{
    return isNumber(field) ? QString::number(field.minimum) : field.entries.first();
}

QString lastValue(const SkeletonField& field)
{
    return isNumber(field) ? QString::number(field.maximum) : field.entries.last();
}

QStringList valuesOf(const Skeleton& skeleton, QString (*value)(const SkeletonField&))
{
    QStringList values;
    for (const SkeletonField& field : skeleton.fields())
        values << value(field);
    return values;
}

// A word, or a text between quotation marks, as the values of an instruction are.
bool isPlain(const QString& value)
{
    static const QRegularExpression plain(QStringLiteral("^(-?\\w+|\"[\\w ]*\")$"));
    return plain.match(value).hasMatch();
}

void checkFields(const Skeleton& skeleton)
{
    Fuzz::demand(skeleton.literals().size() == skeleton.fields().size() + 1,
                 "a field stands between two literals");
    for (const SkeletonField& field : skeleton.fields()) {
        if (isNumber(field))
            Fuzz::demand(field.minimum <= field.maximum, "a range begins before it ends");
        else
            Fuzz::demand(!field.entries.isEmpty() && !field.entries.contains(QString()),
                         "a choice has entries");
    }
}

void checkReading(const Skeleton& skeleton, const QStringList& values)
{
    const bool arePlain = std::all_of(values.begin(), values.end(), isPlain);
    const QString line = skeleton.write(values);
    if (!arePlain || !line.isValidUtf16())
        return;
    const auto read = skeleton.read(line);
    Fuzz::demand(read.has_value(), "a skeleton reads what it has written");
    Fuzz::demand(read->size() == values.size(), "it reads a value for each field");
    Fuzz::demand(skeleton.read(skeleton.write(*read)).has_value(), "and reads that again");
}

void checkForm(const Skeleton& skeleton, const QString& line)
{
    pendant::SkeletonForm form(skeleton);
    form.FillWith(line);
    const QString built = form.BuildText();
    const auto boxes = form.findChildren<QSpinBox*>();
    for (const QSpinBox* box : boxes)
        Fuzz::demand(box->value() >= box->minimum() && box->value() <= box->maximum(),
                     "a number is within its range");
    const auto read = skeleton.read(built);
    form.FillWith(built);
    if (!read || skeleton.write(*read) == built)
        Fuzz::demand(form.BuildText() == built, "what is built builds itself");
}

} // namespace

QStringList Fuzz::words()
{
    return {};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString input = Fuzz::text(data, size);
    const int end = input.indexOf(QLatin1Char('\n'));
    const QString text = input.left(end);
    const QString line = end < 0 ? QString() : input.mid(end + 1);
    pendant::SkeletonError error;
    const auto skeleton = Skeleton::parse(text, &error);
    if (!skeleton) {
        Fuzz::demand(error.offset >= 0 && error.offset <= text.size() && !error.reason.isEmpty(),
                     "a refusal tells its place and its reason");
        return 0;
    }
    checkFields(*skeleton);
    if (skeleton->fields().size() > MostInputs)
        return 0;
    skeleton->read(line);
    checkReading(*skeleton, valuesOf(*skeleton, &firstValue));
    checkReading(*skeleton, valuesOf(*skeleton, &lastValue));
    checkForm(*skeleton, line);
    return 0;
}
