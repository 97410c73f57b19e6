// Feeds { "names": [...], "registers": any, "types": [...], "rw": text } to the lists: the natural
// order, the lists of ports and registers of JsonCommon, the models of the port boxes.
//
// The order is a strict weak one on names whose runs of digits fit an int, and of two names it is
// one always. A sorted list is a permutation that depends on its input by equal names alone. Lists
// of registers hold what the host gave, each name once. A box finds what it shows.

#include "BoxModels.h"
#include "Harness.h"
#include "JsonCommon.h"
#include "NameRuns.h"
#include "NaturalSort.h"
#include "ScriptedHost.h"
#include "SortKeys.h"
#include "WeldioRow.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonObject>
#include <QVector>

#include <algorithm>

namespace {

constexpr int MostTriples = 12; // names of which all triples are looked at

QStringList texts(const QJsonValue& value)
{
    QStringList all;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& each : array)
        all << each.toString();
    return all;
}

bool areEqual(const QString& a, const QString& b)
{
    return !naturallyLess(a, b) && !naturallyLess(b, a);
}

bool fitsNumbers(const QString& name)
{
    const QChar* const end = name.constData() + name.size();
    for (auto run = NameRuns::nextRun(name.constData(), end); !run.isEmpty();
         run = NameRuns::nextRun(run.end, end)) {
        if (run.isDigits && !NameRuns::numberOf(run))
            return false;
    }
    return true;
}

// Whether each of the names is less than each.
class Table
{
public:
    explicit Table(const QStringList& names)
        : size(names.size())
    {
        for (const QString& a : names) {
            for (const QString& b : names)
                less.append(naturallyLess(a, b));
        }
    }

    bool isLess(int a, int b) const { return less.at(a * size + b); }
    bool areEqual(int a, int b) const { return !isLess(a, b) && !isLess(b, a); }

    void checkPairs() const
    {
        for (int a = 0; a < size; ++a) {
            Fuzz::demand(!isLess(a, a), "no name is less than itself");
            for (int b = 0; b < a; ++b)
                Fuzz::demand(!(isLess(a, b) && isLess(b, a)), "one of two is less");
        }
    }

    void checkTriple(int a, int b, int c) const
    {
        if (isLess(a, b) && isLess(b, c))
            Fuzz::demand(isLess(a, c), "the order is transitive");
        if (areEqual(a, b) && areEqual(b, c))
            Fuzz::demand(areEqual(a, c), "equality is transitive");
    }

    void checkTriples() const
    {
        for (int each = 0; each < size * size * size; ++each)
            checkTriple(each / size / size, each / size % size, each % size);
    }

private:
    int size;
    QVector<bool> less;
};

void checkOrder(const QStringList& names, bool isWeakOrder)
{
    const Table table(names);
    table.checkPairs();
    if (isWeakOrder)
        table.checkTriples();
}

QStringList plainlySorted(QStringList names)
{
    std::sort(names.begin(), names.end());
    return names;
}

QStringList stablySorted(QStringList names)
{
    std::stable_sort(names.begin(), names.end(), naturallyLess);
    return names;
}

QStringList bySortKeys(const QStringList& names, const SortKeys& keys)
{
    QStringList sorted;
    for (const int index : keys.sortedIndexes())
        sorted << names.at(index);
    return sorted;
}

void feedNames(const QStringList& names)
{
    const bool isWeakOrder = std::all_of(names.begin(), names.end(), fitsNumbers);
    checkOrder(names.mid(0, MostTriples), isWeakOrder);

    const QStringList sorted = naturallySorted(names);
    Fuzz::demand(plainlySorted(sorted) == plainlySorted(names), "sorting is a permutation");
    for (int i = 1; i < sorted.size(); ++i)
        Fuzz::demand(!naturallyLess(sorted.at(i), sorted.at(i - 1)), "neighbours are in order");

    const auto keys = SortKeys::of(names);
    Fuzz::demand(keys.has_value() == isWeakOrder, "names have keys when their numbers fit");
    QStringList reversed = names;
    std::reverse(reversed.begin(), reversed.end());
    const QStringList other = naturallySorted(reversed);
    if (isWeakOrder) {
        Fuzz::demand(sorted == stablySorted(names), "equal names keep their order");
        Fuzz::demand(bySortKeys(names, *keys) == sorted, "the keys order as the names do");
        for (int i = 0; i < sorted.size(); ++i)
            Fuzz::demand(areEqual(sorted.at(i), other.at(i)), "reversed, it sorts alike");
    } else {
        Fuzz::demand(plainlySorted(other) == plainlySorted(names), "reversed, none is lost");
    }
}

void checkRegisterList(const QStringList& list, int given)
{
    for (const QString& name : list) {
        Fuzz::demand(!name.trimmed().isEmpty(), "a register of a list has a name");
        Fuzz::demand(list.count(name) == 1, "each register is listed once");
    }
    Fuzz::demand(list.size() <= given, "the registers come from the host");
    Fuzz::demand(naturallySorted(list) == list, "registers are in order");
}

void feedRegisters(const ScriptedHost& host, const QStringList& types, const QString& rw)
{
    const int given = host.registerValue.toArray().size();
    const QStringList answer = JsonCommon::filterRegisters(types, rw);
    checkRegisterList(answer, given);
    Fuzz::demand(JsonCommon::filterRegisters(types, rw) == answer,
                 "the same question has the same answer");
    using List = QStringList (*)();
    const List lists[] = {
        &JsonCommon::readableBitRegisters,     &JsonCommon::writableBitRegisters,
        &JsonCommon::readableIntRegisters,     &JsonCommon::writableIntRegisters,
        &JsonCommon::readableNumericRegisters, &JsonCommon::writableNumericRegisters};
    for (const List list : lists)
        checkRegisterList(list(), given);
    Fuzz::demand(JsonCommon::matchesAccess(rw, QString()), "every access fits no filter");
    RegisterLengths::read(host.registerValue);
    for (const QString& name : types)
        Fuzz::demand(RegisterLengths::of(name) >= 1, "a register has a place");
}

void feedBox(const QStringList& names, const QString& text)
{
    static auto* box = new QComboBox;
    static PortListModels models;
    models.refill(box, names, false);
    Fuzz::demand(box->count() == names.size() + 1, "a box holds the names and an empty item");
    Fuzz::demand(box->currentIndex() == 0, "the empty item is selected");
    for (int i = 0; i < names.size(); ++i) {
        Fuzz::demand(box->itemText(i + 1) == names.at(i), "a box shows the names in their order");
        const int found = box->findText(names.at(i));
        Fuzz::demand(found >= 0 && box->itemText(found) == names.at(i), "a box finds its names");
        Fuzz::demand(found <= i + 1, "a box finds the first of equal names");
    }
    if (!names.isEmpty())
        box->setCurrentIndex(names.size());
    const QString shown = box->currentText();
    const QStringList fewer = names.mid(names.size() / 2);
    models.refill(box, fewer, true);
    Fuzz::demand(fewer.contains(shown) ? box->currentText() == shown : box->currentIndex() == 0,
                 "a refilled box keeps what is still there");

    static auto* numbers = new NumberListModel(box);
    numbers->setCount(text.toInt());
    const int count = numbers->rowCount();
    Fuzz::demand(count >= 1 && count <= 1000000, "numbers are confined");
    const auto hits = numbers->match(numbers->index(0, 0), Qt::DisplayRole, text, 1,
                                     Qt::MatchExactly | Qt::MatchCaseSensitive);
    for (const QModelIndex& hit : hits)
        Fuzz::demand(hit.data().toString() == text, "a number is found under its own text");
}

} // namespace

QStringList Fuzz::words()
{
    return QStringLiteral("names,registers,types,rw,type,reg_type,value_type,data_type,access,perm,"
                          "permission,mode,name,reg_name,key,id,len,bool,bit,int16,float,double,r,"
                          "w,ro,wo,rw,rdwr,readonly,DI1,DI02,DI10,DI2147483647,DI2147483648,"
                          "di99999999999999999999,a1b2,a01b2, ,1,1000000,1000001,-1")
        .split(QLatin1Char(','));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ScriptedHost host;
    static const bool once = [] {
        Fuzz::allowWarning("[qellaserweld][JsonCommon] ");
        return true;
    }();
    Q_UNUSED(once)
    const QJsonObject input = Fuzz::json(data, size).toObject();
    host.registerValue = input.value(QLatin1String("registers"));
    const QStringList names = texts(input.value(QLatin1String("names")));
    const QString rw = input.value(QLatin1String("rw")).toString();
    feedNames(names);
    host.portNames = {{QStringLiteral("DI"), names}};
    Fuzz::demand(JsonCommon::diList() == naturallySorted(names), "ports are in natural order");
    feedRegisters(host, texts(input.value(QLatin1String("types"))), rw);
    feedBox(names, rw);
    host.forgetCalls();
    return 0;
}
