#include "FaultBench.h"

#include "PluginOnHost.h"
#include "TestCase.h"

#include <QLabel>
#include <QStackedWidget>
#include <QThread>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int TechnicianLevel = 3;

unsigned long slept = 0;

} // namespace

// In the place of Qt's own, for all that is linked into this program: a reply that takes a minute
// costs nothing.
void QThread::msleep(unsigned long milliseconds)
{
    slept += milliseconds;
}

unsigned long sleptMilliseconds()
{
    return slept;
}

FaultyBackend::FaultyBackend(pendant::Controller& controller)
    : ShellBackend(controller)
    , cell(controller)
{
    setUserLevel(TechnicianLevel);
}

void FaultyBackend::arm(const QString& command, const pendant::Faults& faults)
{
    armedCommand = command;
    armedFaults = faults;
}

QJsonValue FaultyBackend::serviceData(const QString& key)
{
    read << key;
    return ShellBackend::serviceData(key);
}

QJsonArray FaultyBackend::command(QObject* sender, const QString& plugin, const QJsonObject& data)
{
    return faulty(data.keys().join(QLatin1Char(' ')),
                  [&] { return ShellBackend::command(sender, plugin, data); });
}

QJsonArray FaultyBackend::textCommand(QObject* sender, const QString& plugin,
                                      const QString& command, const QString& value)
{
    return faulty(command,
                  [&] { return ShellBackend::textCommand(sender, plugin, command, value); });
}

QJsonArray FaultyBackend::faulty(const QString& command, const std::function<QJsonArray()>& send)
{
    sent << command;
    if (command == armedCommand)
        cell.setFaults(armedFaults);
    const QJsonArray reply = send();
    cell.setFaults({});
    return reply;
}

FaultBench::FaultBench()
    : backend(*cell)
{
    using pendant::ShellBackend;
    // Or the page that waits for it goes on logging.
    backend.createCenterWidget(QStringLiteral("qelLaserSeamTracking"), new QWidget);
    QObject::connect(&backend, &ShellBackend::pageCreated, &backend,
                     [this](const QString&, QWidget* page) { centre = page; });
    QObject::connect(&backend, &ShellBackend::indicatorCreated, &backend,
                     [this](const QString&, QWidget* widget) { indicator = widget; });
    QObject::connect(&backend, &ShellBackend::keysCreated, &backend,
                     [this](const QString&, const QString&,
                            const QList<qelplugin::PhysicalButton>& firstList,
                            const QList<qelplugin::PhysicalButton>& secondList) {
                         keys = firstList + secondList;
                     });
    QObject::connect(&backend, &ShellBackend::messageThrown, &backend,
                     [this](const QString&, int level, const QString& text) {
                         told << QStringLiteral("%1: %2").arg(QLatin1Char("IWE"[level])).arg(text);
                     });
    qelplugin::PluginBase& asHostSees = plugin;
    asHostSees.init();
    asHostSees.render();
    centre->resize(1000, 700);
    centre->show();
}

FaultBench::~FaultBench()
{
    delete centre;
    delete indicator;
}

QWidget* FaultBench::reopen(int entry)
{
    if (freshEntry == entry)
        return currentPage();
    freshEntry = entry;
    const auto entries = child<QWidget>(centre, "wgtNav")->findChildren<QToolButton*>();
    entries.last()->click(); // the page that costs least
    entries.at(entry)->click();
    QCoreApplication::processEvents();
    return currentPage();
}

QWidget* FaultBench::currentPage() const
{
    return child<QStackedWidget>(centre, "stackedWidget")->currentWidget();
}

void FaultBench::turnKey(const QString& label, bool pressed)
{
    const auto key = std::find_if(keys.cbegin(), keys.cend(),
                                  [&](const auto& each) { return each.label == label; });
    if (key == keys.cend())
        qFatal("no key %s", qPrintable(label));
    key->callback(pressed);
}

bool FaultBench::indicatesVirtual() const
{
    const auto* label = child<QLabel>(indicator, "label");
    return label->pixmap(Qt::ReturnByValue).toImage() == PluginOnHost::pictureOf(true);
}

void FaultBench::command(const char* name, const QJsonValue& payload)
{
    touch();
    const QString pluginName = QStringLiteral("qelLaserWelding");
    cell->command(pluginName, {{QLatin1String(name), payload}});
}

QJsonValue FaultBench::record(const char* key) const
{
    return cell->serviceData(QLatin1String(key));
}

void FaultBench::forget()
{
    told.clear();
    backend.sent.clear();
    backend.read.clear();
    linesBefore = LogFolder::lines().size();
    console.take();
}

QStringList FaultBench::logLines() const
{
    QStringList shown;
    const QStringList lines = LogFolder::lines().mid(linesBefore);
    for (const QString& line : lines) // "[E|time] text"
        shown << QStringLiteral("%1: %2").arg(
            line.at(1), line.mid(line.indexOf(QLatin1String("] ")) + 2).simplified());
    return shown;
}
