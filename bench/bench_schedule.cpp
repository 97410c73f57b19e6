// Opening a schedule on the weld data page. The first opening lays the detail view out; a later one
// finds it so, and the record on show. Times are those of the processor.

#include "EventCount.h"
#include "PageBench.h"
#include "Ratio.h"
#include "WeldParameterPage.h"

#include <QApplication>
#include <QJsonObject>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int Rounds = 40; // the least of them counts
constexpr double Limit = 0.25;

class ScheduleHost : public PageBench::CellHost
{
public:
    ScheduleHost()
    {
        for (int number = 1; number <= 30; ++number)
            records.insert(QString::fromLatin1("LsData%1").arg(number),
                           QJsonObject{{QLatin1String("welding_speed"), 10 + number},
                                       {QLatin1String("laser_power_weld"), 100 * number},
                                       {QLatin1String("wire_feed_enable_end"), true},
                                       {QLatin1String("wire_retraction_end"), true},
                                       {QLatin1String("Tips"), QLatin1String("fillet")}});
    }
    QJsonValue serviceData(const QString& key) override
    {
        return key == QLatin1String("weld_param_config") ? records : CellHost::serviceData(key);
    }

private:
    QJsonObject records;
};

void settle()
{
    for (int turn = 0; turn < 5; ++turn)
        QApplication::processEvents();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QFont::insertSubstitution(QLatin1String("Microsoft YaHei UI"),
                              QLatin1String("Noto Sans CJK SC"));
    const ScheduleHost host;
    QWidget window;
    window.resize(820, 560);
    auto* page = new WeldParameterPage(nullptr, &window);
    (new QVBoxLayout(&window))->addWidget(page);
    page->applyPageStyle();
    window.show();
    settle();
    page->findChild<QTableWidget*>(QLatin1String("tableWidget"))->selectRow(6);
    auto* details = page->findChild<QPushButton*>(QLatin1String("pushButton_Config"));
    auto* back = page->findChild<QPushButton*>(QLatin1String("pushButton_back"));
    const auto open = [details] {
        return Ratio::processorMicroseconds([details] {
            details->click();
            settle();
        });
    };
    const double first = open();
    const auto openAgain = [&] {
        back->click();
        settle();
        return open();
    };
    double again = 1e300;
    for (int round = 0; round < Rounds; ++round)
        again = std::min(again, openAgain());
    const EventCount watch(QEvent::StyleChange); // which takes time itself
    openAgain();
    bool holds = Ratio::report("a schedule opened again / opened first", {again, first}, Limit);
    holds &= Ratio::reportNone("style changes while it is opened again", watch.count, "");
    return holds ? 0 : 1;
}
