// Saves records or programs with rising numbers until it is killed, and tells each number that was
// answered with success. Arguments: the cell, the first number, the command of the record or the
// program's name.

#include "Controller.h"
#include "RunRecord.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

bool saveRecord(pendant::Controller& controller, const QString& name, const QJsonObject& record)
{
    const QString plugin = QStringLiteral("qelLaserWelding");
    const QJsonArray reply = controller.command(plugin, {{name, record}});
    const QJsonObject answers = reply.at(0).toObject().value(plugin).toObject();
    return answers.value(name).toObject().value(QLatin1String("return")) == QJsonValue(0);
}

struct RunCommand
{
    const char* name;
    QJsonObject (*payload)(int run);
};

constexpr RunCommand commands[] = {
    {"set_weld_setting_config", runRecord},      {"set_weld_io_config", runMapping},
    {"set_weld_param_list_config", runSchedule}, {"set_weld_param_match_config", runMatching},
    {"set_weld_curve_power_config", runCurve},
};

bool save(pendant::Controller& controller, const QString& what, int run)
{
    for (const RunCommand& command : commands) {
        if (what == QLatin1String(command.name))
            return saveRecord(controller, what, command.payload(run));
    }
    return controller.saveProgram(what, runProgram(run));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    QString error;
    const auto controller = pendant::Controller::open(arguments.at(1), {}, &error);
    if (!controller) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    for (int run = arguments.at(2).toInt(); save(*controller, arguments.at(3), run); ++run) {
        std::printf("%d\n", run);
        std::fflush(stdout);
    }
    return 1;
}
