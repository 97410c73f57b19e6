// Saves records with rising numbers until it is killed, and tells each number that was answered
// with success. Arguments: the cell, the first number.

#include "Controller.h"
#include "RunRecord.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

bool save(pendant::Controller& controller, int run)
{
    const QString plugin = QStringLiteral("qelLaserWelding");
    const QString name = QStringLiteral("set_weld_setting_config");
    const QJsonArray reply = controller.command(plugin, {{name, runRecord(run)}});
    const QJsonObject answers = reply.at(0).toObject().value(plugin).toObject();
    return answers.value(name).toObject().value(QLatin1String("return")) == QJsonValue(0);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    QString error;
    const auto controller = pendant::Controller::open(arguments.at(1), {}, &error);
    if (!controller) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    for (int run = arguments.at(2).toInt(); save(*controller, run); ++run) {
        std::printf("%d\n", run);
        std::fflush(stdout);
    }
    return 1;
}
