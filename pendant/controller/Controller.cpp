#include "Controller.h"

namespace pendant {

struct Controller::Private
{
    QString file;
    QJsonObject records;
    Faults faults;
    bool powered = false;
    bool connected = true;
};

Controller::Controller(std::unique_ptr<Private> state)
    : d(std::move(state))
{}

Controller::~Controller() = default;

std::unique_ptr<Controller> Controller::open(const QString& file, const CellSize&, QString*)
{
    auto state = std::make_unique<Private>();
    state->file = file;
    return std::unique_ptr<Controller>(new Controller(std::move(state)));
}

QString Controller::fileName() const
{
    return d->file;
}

QJsonValue Controller::serviceData(const QString& key) const
{
    return d->connected ? d->records.value(key) : QJsonValue(QJsonValue::Undefined);
}

QJsonArray Controller::command(const QString& plugin, const QJsonObject& data)
{
    QJsonObject answers;
    for (const QString& name : data.keys())
        answers.insert(name, QJsonObject{{QLatin1String("return"), 0}});
    return {QJsonObject{{plugin, answers}}};
}

QJsonArray Controller::textCommand(const QString& plugin, const QString& command,
                                   const QString& value)
{
    const QJsonObject answer{{QLatin1String("return"), !value.isEmpty()}};
    return {QJsonObject{{plugin, QJsonObject{{command, answer}}}}};
}

QStringList Controller::ports(const QString& kind) const
{
    return {kind + QLatin1Char('1')};
}

QJsonValue Controller::registers() const
{
    return QJsonArray();
}

QHash<QString, QStringList> Controller::registerGroups() const
{
    return {};
}

bool Controller::isPowered() const
{
    return d->powered;
}

void Controller::setPowered(bool on)
{
    if (d->powered == on)
        return;
    d->powered = on;
    Q_EMIT powerChanged(on);
}

bool Controller::isConnected() const
{
    return d->connected;
}

void Controller::setConnected(bool on)
{
    if (d->connected == on)
        return;
    d->connected = on;
    Q_EMIT connectionChanged(on);
}

const Faults& Controller::faults() const
{
    return d->faults;
}

void Controller::setFaults(const Faults& faults)
{
    d->faults = faults;
}

} // namespace pendant
