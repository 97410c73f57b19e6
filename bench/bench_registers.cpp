#include "JsonCommon.h"
#include "NaturalSort.h"
#include "Ratio.h"

#include "hostbackend.h"

#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QStringList>

#include <array>
#include <random>
#include <string>

namespace {

constexpr int Registers = 10000;
constexpr int Rounds = 60;

// A controller with many registers and nothing else.
class RegisterHost : public qelplugin::HostBackend
{
public:
    RegisterHost()
        : before(qelplugin::setHostBackend(this))
    {}
    ~RegisterHost() override { qelplugin::setHostBackend(before); }

    QJsonValue registers() override { return answers[reading++ % answers.size()]; }

    /// An odd number of them, so that of two that read by turns each meets all.
    std::array<QJsonArray, 3> answers;

private:
    Q_DISABLE_COPY(RegisterHost)
    std::size_t reading = 0;
    qelplugin::HostBackend* before;
};

using Row = QJsonObject (*)(int index, const QString& type, const QString& access);

QString nameOf(int index)
{
    return QString::fromLatin1("R%1").arg(index);
}

QJsonObject plainRow(int index, const QString& type, const QString& access)
{
    return {{QLatin1String("name"), nameOf(index)},
            {QLatin1String("type"), type},
            {QLatin1String("rw"), access},
            {QLatin1String("value"), index},
            {QLatin1String("comment"), QLatin1String("spare")}};
}

// The last spelling of every key, so that all of them are asked for.
QJsonObject lateRow(int index, const QString& type, const QString& access)
{
    return {{QLatin1String("id"), nameOf(index)},
            {QLatin1String("data_type"), type.toUpper()},
            {QLatin1String("mode"), access.toUpper()},
            {QLatin1String("value"), index}};
}

QJsonArray registerRows(Row row)
{
    const QStringList types{QLatin1String("bool"), QLatin1String("int16"), QLatin1String("dword"),
                            QLatin1String("float")};
    const QStringList accesses{QLatin1String("r"), QLatin1String("w"), QLatin1String("rw")};
    std::mt19937 random(4711);
    QJsonArray rows;
    for (int i = 0; i < Registers; ++i) {
        const auto pick = [&](const QStringList& list) {
            return list.at(static_cast<int>(random() % static_cast<unsigned>(list.size())));
        };
        rows.append(row(i, pick(types), pick(accesses)));
    }
    return rows;
}

// The reading as one would write it first: a key made for every access, a trimmed and lower-cased
// copy of every value.
QString readFact(const QJsonObject& record, std::initializer_list<const char*> keys)
{
    for (const char* key : keys) {
        const QString text = record.value(QString::fromLatin1(key)).toString().trimmed();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

bool fitsAccess(const QString& access, const QString& rw)
{
    const QString filter = rw.trimmed().toLower();
    const QString value = access.trimmed().toLower();
    const auto isOneOf = [](const QString& text, std::initializer_list<const char*> texts) {
        return std::any_of(texts.begin(), texts.end(),
                           [&text](const char* each) { return text == QString::fromLatin1(each); });
    };
    if (isOneOf(filter, {"r", "read", "rd", "ro"}))
        return isOneOf(value, {"rd", "read", "ro", "r", "readonly"});
    if (isOneOf(filter, {"w", "write", "wr", "wo"}))
        return isOneOf(value, {"wr", "write", "w", "wo", "wt", "rdwr", "rw"});
    return true;
}

QStringList filterStraightforwardly(const QStringList& types, const QString& rw)
{
    QSet<QString> accepted;
    for (const QString& type : types)
        accepted.insert(type.trimmed().toLower());
    QStringList names;
    const QJsonArray records = qelplugin::qelPluginInterface().getRegisterValue().toArray();
    for (const QJsonValue& value : records) {
        const QJsonObject record = value.toObject();
        const QString type = readFact(record, {"type", "reg_type", "value_type", "data_type"});
        const QString access = readFact(record, {"rw", "access", "perm", "permission", "mode"});
        const QString name = readFact(record, {"name", "reg_name", "key", "id"});
        if (accepted.contains(type.trimmed().toLower()) && fitsAccess(access, rw) &&
            !name.isEmpty())
            names.append(name);
    }
    names.removeDuplicates();
    return naturallySorted(names);
}

bool reportRows(const char* title, RegisterHost& host, Row row, const QStringList& types)
{
    const QString rw(QLatin1String("w"));
    host.answers.fill(registerRows(row));
    if (JsonCommon::filterRegisters(types, rw) != filterStraightforwardly(types, rw))
        return false;
    const auto report = [&](const char* answer) {
        const auto figures = Ratio::measure(
            Rounds, [&] { benchmark::DoNotOptimize(JsonCommon::filterRegisters(types, rw)); },
            [&] { benchmark::DoNotOptimize(filterStraightforwardly(types, rw)); });
        const std::string name = std::string(title) + ", " + answer + " / straightforward reading";
        return Ratio::report(name, figures, 0.5);
    };
    const bool holds = report("same answer");
    for (QJsonArray& answer : host.answers) // a record that is no register
        answer.prepend(QJsonObject{{QLatin1String("value"), double(&answer - &host.answers[0])}});
    return report("answer that changes") && holds;
}

} // namespace

int main()
{
    const QStringList bits{QLatin1String("bool"), QLatin1String("bit")};
    const QStringList integers{QLatin1String("int16"), QLatin1String("dword"),
                               QLatin1String("int32")};
    RegisterHost host;
    bool holds = reportRows("filterRegisters, bits, first keys", host, plainRow, bits);
    holds &= reportRows("filterRegisters, integers, first keys", host, plainRow, integers);
    holds &= reportRows("filterRegisters, bits, last keys", host, lateRow, bits);
    holds &= reportRows("filterRegisters, integers, last keys", host, lateRow, integers);
    return holds ? 0 : 1;
}
