// The weld I/O page on a large cell: 4,096 ports of each kind and 10,000 registers. Times are those
// of the processor: the page waits for a frame before it lays its tables out.
//
// Two peers stand beside it. "Own models": 24 port boxes that are filled once, each with a model of
// its own. "Straightforward": lists sorted by a comparator that splits both names with a regular
// expression at each comparison, and two fillings of each box at a show.

#include "JsonCommon.h"
#include "LiveHeap.h"
#include "PageBench.h"
#include "Ratio.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

constexpr int Ports = 4096;
constexpr int FewPorts = 100;
constexpr int Registers = 10000;
constexpr int Boxes = 24;
constexpr int Rounds = 40;     // the least of them counts
constexpr int SettleTime = 30; // milliseconds, beyond the page's wait for a frame
constexpr QSize PageSize(820, 560);

class LargeCell : public PageBench::CellHost
{
public:
    explicit LargeCell(int portsOfEachKind)
    {
        for (const char* kind : {"AI", "AO", "DI", "DO", "GI", "GO"})
            lists[QLatin1String(kind)] = shuffledNames(QLatin1String(kind), portsOfEachKind);
    }

    QStringList ports(const QString& kind) override { return lists.value(kind); }
    QJsonValue registers() override { return allRegisters(); }
    QJsonValue serviceData(const QString& key) override
    {
        return key == QLatin1String("weld_io_config") ? record() : CellHost::serviceData(key);
    }

private:
    static QJsonArray allRegisters()
    {
        static const QJsonArray registers = madeRegisters();
        return registers;
    }
    static QJsonArray madeRegisters()
    {
        const char* types[] = {"bool", "int16", "float"};
        QJsonArray registers;
        for (int index = 0; index < Registers; ++index) {
            registers << QJsonObject{
                {QLatin1String("name"), QString::fromLatin1("Reg_%1").arg(index)},
                {QLatin1String("type"), QLatin1String(types[index % 3])},
                {QLatin1String("rw"), QLatin1String(index % 2 ? "rw" : "ro")},
                {QLatin1String("len"), index % 10 ? 1 : 4}};
        }
        return registers;
    }
    static QStringList shuffledNames(const QString& kind, int count)
    {
        QStringList names;
        for (int index = 0; index < count; ++index)
            names << kind + QString::number(index * 37 % count);
        return names;
    }
    static QJsonObject record()
    {
        return {{QLatin1String("laser_enable_port"), QLatin1String("DO90")},
                {QLatin1String("gas_protect_port"), QLatin1String("DO91")},
                {QLatin1String("power_type"), 2},
                {QLatin1String("power_port"), QLatin1String("Reg_9991")},
                {QLatin1String("power_bias"), 2},
                {QLatin1String("power_enabled"), true},
                {QLatin1String("light_feedback_port"), QLatin1String("DI95")},
                {QLatin1String("light_feedback_enabled"), true}};
    }

    QHash<QString, QStringList> lists;
};

double leastOf(int rounds, const std::function<double()>& round)
{
    double least = 1e300;
    for (int index = 0; index < rounds; ++index)
        least = std::min(least, round());
    return least;
}

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(SettleTime, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A page in an open window, styled and not shown yet.
struct Stage
{
    Stage()
        : setting(new WeldSettingPage(&window))
        , page(new WeldioPage(setting, &window))
    {
        window.resize(PageSize);
        setting->hide();
        page->hide();
        page->applyPageStyle();
        (new QVBoxLayout(&window))->addWidget(page);
        window.show();
        settle();
    }
    void show() const
    {
        page->show();
        settle();
    }
    double showAgain() const
    {
        page->hide();
        settle();
        return Ratio::processorMicroseconds([this] { show(); });
    }

    QWidget window;
    WeldSettingPage* setting;
    WeldioPage* page;
};

/// 24 boxes with models of their own; index 0 to 5 of the kinds in turn.
class PlainBoxes
{
public:
    PlainBoxes()
    {
        for (int index = 0; index < Boxes; ++index)
            boxes.push_back(std::make_unique<QComboBox>());
    }
    void fill()
    {
        int index = 0;
        for (const auto& box : boxes) {
            box->clear();
            box->addItem(QString());
            box->addItems(listOf(index++));
        }
    }
    static QStringList listOf(int index)
    {
        static const QStringList lists[] = {JsonCommon::doList(), JsonCommon::aoList(),
                                            JsonCommon::goList(), JsonCommon::diList(),
                                            JsonCommon::aiList(), JsonCommon::giList()};
        return lists[index % 6];
    }
    std::vector<std::unique_ptr<QComboBox>> boxes;
};

bool splitLess(const QString& left, const QString& right)
{
    const QRegularExpression runs(QLatin1String(R"(([A-Za-z]+|\d+))"));
    const auto split = [&runs](const QString& name) {
        QStringList tokens;
        auto matches = runs.globalMatch(name);
        while (matches.hasNext())
            tokens << matches.next().captured(1);
        return tokens;
    };
    const QStringList a = split(left);
    const QStringList b = split(right);
    for (int index = 0; index < std::min(a.size(), b.size()); ++index) {
        bool isNumberA = false;
        bool isNumberB = false;
        const int numberA = a.at(index).toInt(&isNumberA);
        const int numberB = b.at(index).toInt(&isNumberB);
        if (isNumberA && isNumberB) {
            if (numberA != numberB)
                return numberA < numberB;
        } else if (a.at(index) != b.at(index)) {
            return a.at(index) < b.at(index);
        }
    }
    return a.size() < b.size();
}

/// Fetching, sorting and filling one box twice.
double straightforwardBox(QComboBox& box)
{
    return Ratio::processorMicroseconds([&box] {
        for (int time = 0; time < 2; ++time) {
            QStringList names = qelplugin::hostBackend().ports(QLatin1String("DO"));
            std::sort(names.begin(), names.end(), splitLess);
            box.clear();
            box.addItem(QString());
            box.addItems(names);
        }
    });
}

/// The first show of boxes that ask each of their items how wide it is.
double straightforwardFirstShow()
{
    PlainBoxes plain;
    plain.fill();
    QWidget window;
    auto* table = new QTableWidget(Boxes, 1, &window);
    for (int row = 0; row < Boxes; ++row)
        table->setCellWidget(row, 0, plain.boxes.at(static_cast<std::size_t>(row)).release());
    table->resize(PageSize);
    return Ratio::processorMicroseconds([&window] {
        window.show();
        settle();
    });
}

double openList(QComboBox* box)
{
    const double taken = Ratio::processorMicroseconds([box] {
        box->showPopup();
        QApplication::processEvents();
    });
    box->hidePopup();
    QApplication::processEvents();
    return taken;
}

bool report(const char* name, double ours, double peer, double limit)
{
    return Ratio::report(name, {ours, peer}, limit);
}

bool measureShows()
{
    const double few = [] {
        const LargeCell cell(FewPorts);
        const Stage stage;
        stage.show();
        return leastOf(Rounds, [&stage] { return stage.showAgain(); });
    }();
    const LargeCell cell(Ports);
    const Stage stage;
    const double first = Ratio::processorMicroseconds([&stage] { stage.show(); });
    const double again = leastOf(Rounds, [&stage] { return stage.showAgain(); });
    PlainBoxes plain;
    const double own = leastOf(
        Rounds, [&plain] { return Ratio::processorMicroseconds([&plain] { plain.fill(); }); });
    const double straightforward = Boxes * straightforwardBox(*plain.boxes.front());
    bool holds = report("Weld I/O, later show / 24 own models filled once", again, own, 0.3);
    holds &= report("Weld I/O, later show / straightforward (one box taken 24 times)", again,
                    straightforward, 0.01);
    holds &= report("Weld I/O, later show / the same with 100 ports of each kind", again, few, 3.0);
    holds &= report("Weld I/O, first show / straightforward", first,
                    straightforward + straightforwardFirstShow(), 0.15);
    return holds;
}

/// The passes of a tab change, each with all that follows from it.
bool measureLayout()
{
    const LargeCell cell(Ports);
    QWidget window;
    window.resize(PageSize);
    auto* page = new WeldioPage(nullptr, &window);
    (new QVBoxLayout(&window))->addWidget(page);
    auto* tabs = page->findChild<QTabWidget*>();
    const auto pass = [tabs] {
        return Ratio::processorMicroseconds([tabs] {
            Q_EMIT tabs->currentChanged(tabs->currentIndex());
            settle();
        });
    };
    page->applyPageStyle();
    window.show(); // asks for the first pass
    const double first = pass();
    const double again = leastOf(Rounds, pass);
    return report("Weld I/O, full layout, nothing changed / the first one", again, first, 0.1);
}

bool measurePopup()
{
    const LargeCell cell(Ports);
    const Stage stage;
    stage.show();
    auto* box = stage.page->findChild<QComboBox*>(QLatin1String("comboBox_laser_enable_port"));
    QComboBox peer;
    peer.addItem(QString());
    peer.addItems(JsonCommon::doList());
    peer.setCurrentText(box->currentText());
    peer.show();
    settle();
    const double ours = openList(box);
    const double plain = openList(&peer);
    bool holds = report("a port box's list, opened first / plain box", ours, plain, 0.2);
    const double oursAgain = leastOf(Rounds, [box] { return openList(box); });
    const double plainAgain = leastOf(Rounds, [&peer] { return openList(&peer); });
    return report("a port box's list, opened again / plain box", oursAgain, plainAgain, 0.2) &&
           holds;
}

bool measureMemory()
{
    // What fonts and styles keep for the process is not the page's.
    {
        const LargeCell few(FewPorts);
        Stage().show();
    }
    const LargeCell cell(Ports);
    const LiveHeap::Count before = LiveHeap::now();
    auto plain = std::make_unique<PlainBoxes>();
    plain->fill();
    const long long own = (LiveHeap::now() - before).bytes;
    plain.reset();
    const Stage stage;
    const LiveHeap::Count unshown = LiveHeap::now();
    stage.show();
    const long long ours = (LiveHeap::now() - unshown).bytes;
    return Ratio::report("Weld I/O, memory of the first show / 24 own models",
                         {static_cast<double>(ours) / 1024, static_cast<double>(own) / 1024}, 0.2,
                         "kB");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QFont::insertSubstitution(QLatin1String("Microsoft YaHei UI"),
                              QLatin1String("Noto Sans CJK SC"));
    bool holds = measureMemory();
    holds &= measureShows();
    holds &= measureLayout();
    holds &= measurePopup();
    return holds ? 0 : 1;
}
