#include "Controller.h"

#include "Cell.h"
#include "Commands.h"
#include "DefaultCell.h"
#include "Envelope.h"
#include "JsonText.h"
#include "Points.h"
#include "ProgramStore.h"
#include "RecordKeys.h"
#include "WeldDevice.h"
#include "WeldIo.h"

#include <QThread>

#include <algorithm>
#include <iterator>

namespace pendant {
namespace {

/// The one plugin that the controller serves.
const QLatin1String servedPlugin("qelLaserWelding");

/// A command of one call with its outcome.
struct Order
{
    QString name;
    const Command* command; ///< null: unknown
    Result result;
};

using Orders = QVector<Order>;

QJsonObject answer(const Order& order)
{
    const ReplyForm form = order.command ? order.command->reply : ReplyForm::Code;
    if (form == ReplyForm::Values && order.result.isDone())
        return order.result.values;
    const bool isFlag = form == ReplyForm::Flag;
    return {{QStringLiteral("return"),
             isFlag ? QJsonValue(order.result.isDone()) : QJsonValue(order.result.code)}};
}

QJsonObject answers(const Orders& orders)
{
    QJsonObject answers;
    for (const Order& order : orders)
        answers.insert(order.name, answer(order));
    return answers;
}

QString logLine(const Order& order)
{
    const QString name = shortText(order.name);
    if (order.result.isDone())
        return QStringLiteral("%1 done").arg(name);
    return QStringLiteral("%1 refused with %2: %3")
        .arg(name, QString::number(order.result.code), order.result.reason);
}

/// Lists are told by calls of their own.
bool isService(const QString& key)
{
    const QLatin1String lists[] = {keys::ports,  keys::registers, keys::tools,  keys::workObjects,
                                   keys::speeds, keys::zones,     keys::points, keys::selection};
    return std::none_of(std::begin(lists), std::end(lists),
                        [&](QLatin1String list) { return list == key; });
}

} // namespace

struct Controller::Private
{
    explicit Private(std::unique_ptr<Cell> opened)
        : cell(std::move(opened))
        , programs(*cell)
        , device(cell->record(keys::weldData).toObject())
    {}

    QJsonValue serviceItem(const QString& key) const;
    Result carryOut(const QString& plugin, const Command* command, const QJsonValue& payload,
                    Transaction& transaction) const;
    Orders carryOut(const QString& plugin, const QJsonObject& data, Transaction& transaction) const;
    bool commit(const Transaction& transaction, Orders& orders);
    IoPoints points() const { return {*cell, faults}; }
    WeldIo::Source ioSource(const IoPoints& points) const;
    bool conclude(Controller& owner, const Transaction& transaction, Orders& orders);

    QStringList names(const QString& list) const;
    QString selected(const QString& field) const;
    void select(Controller& owner, const QString& list, const QString& field, const QString& name);
    template<typename Change>
    bool change(Controller& owner, const QString& what, QString* error, const Change& carryOut);

    std::unique_ptr<Cell> cell;
    ProgramStore programs;
    WeldDevice device;
    WeldIo io;
    Faults faults;
    bool isPowered = false;
    bool isConnected = true;
};

QJsonValue Controller::Private::serviceItem(const QString& key) const
{
    if (key == keys::weldData)
        return device.data(); // more than what is stored of it
    return isService(key) ? cell->record(key) : QJsonValue(QJsonValue::Undefined);
}

Result Controller::Private::carryOut(const QString& plugin, const Command* command,
                                     const QJsonValue& payload, Transaction& transaction) const
{
    if (faults.returnCode != 0)
        return {faults.returnCode, QStringLiteral("a tester wants it so")};
    if (plugin != servedPlugin)
        return refused(ResultCode::UnknownPlugin,
                       QStringLiteral("the plugin \"%1\" is unknown").arg(shortText(plugin)));
    if (!command)
        return refused(ResultCode::UnknownCommand, QStringLiteral("there is no such command"));
    return command->carryOut(payload, transaction);
}

Orders Controller::Private::carryOut(const QString& plugin, const QJsonObject& data,
                                     Transaction& transaction) const
{
    Orders orders;
    for (auto each = data.begin(); each != data.end(); ++each) {
        const Command* command = findCommand(each.key());
        orders.append({each.key(), command, carryOut(plugin, command, each.value(), transaction)});
    }
    return orders;
}

/// Stores what the orders have changed, and only then lets the device follow. When that fails, all
/// of them have failed.
bool Controller::Private::commit(const Transaction& transaction, Orders& orders)
{
    QString error;
    if (transaction.changes.isEmpty() || cell->store(transaction.changes, &error)) {
        device.setState(transaction.device);
        return true;
    }
    for (Order& order : orders) {
        if (order.result.isDone())
            order.result = refused(ResultCode::NotStored, error);
    }
    return false;
}

std::unique_ptr<Controller> Controller::open(const QString& file, const CellSize& size,
                                             QString* error)
{
    QString reason;
    auto cell = Cell::open(file, defaultRecords(size), defaultPrograms(), &reason);
    if (!cell) {
        if (error)
            *error = reason;
        return nullptr;
    }
    auto state = std::make_unique<Private>(std::move(cell));
    return std::unique_ptr<Controller>(new Controller(std::move(state)));
}

Controller::Controller(std::unique_ptr<Private> state)
    : d(std::move(state))
{
    connect(&d->device, &WeldDevice::dataChanged, this,
            [this] { Q_EMIT recordChanged(keys::weldData); });
    connect(this, &Controller::recordChanged, this, &Controller::ioChanged);
}

Controller::~Controller() = default;

QString Controller::fileName() const
{
    return d->cell->fileName();
}

QJsonValue Controller::serviceData(const QString& key) const
{
    if (!d->isConnected)
        return QJsonValue::Undefined;
    const QStringList path = key.split(QLatin1Char('.'));
    QJsonValue value = d->serviceItem(path.first());
    for (int depth = 1; depth < path.size(); ++depth)
        value = value.toObject().value(path.at(depth)); // undefined below what is no object
    return d->faults.wrongTypes ? withWrongTypes(value) : value;
}

QJsonArray Controller::command(const QString& plugin, const QJsonObject& data)
{
    if (!d->isConnected)
        return {};
    // The plugin's call blocks its thread until the reply is in, so this delay does so too.
    if (d->faults.replyDelay > 0)
        QThread::msleep(static_cast<unsigned long>(d->faults.replyDelay));
    const Faults faults = d->faults;
    if (faults.noReply || faults.lostBefore)
        return lose(data, faults.lostBefore);
    Transaction transaction{*d->cell, d->faults, d->isPowered, d->device.state(), {}};
    Orders orders = d->carryOut(plugin, data, transaction);
    d->conclude(*this, transaction, orders);
    if (faults.lostAfter)
        setConnected(false);
    return envelope(plugin, answers(orders), faults);
}

/// What a tester wants to get lost on its way.
QJsonArray Controller::lose(const QJsonObject& data, bool dropsConnection)
{
    for (auto each = data.begin(); each != data.end(); ++each)
        Q_EMIT logged(QStringLiteral("%1 lost: a tester wants it so").arg(shortText(each.key())));
    if (dropsConnection)
        setConnected(false);
    return {};
}

/// Commits, and tells everybody what came of it.
bool Controller::Private::conclude(Controller& owner, const Transaction& transaction,
                                   Orders& orders)
{
    const bool isStored = commit(transaction, orders);
    for (const Order& order : std::as_const(orders))
        Q_EMIT owner.logged(logLine(order));
    for (auto each = transaction.changes.cbegin(); isStored && each != transaction.changes.cend();
         ++each) {
        if (each.key() != keys::weldData) // the device tells by itself
            Q_EMIT owner.recordChanged(each.key());
    }
    return isStored;
}

QJsonArray Controller::textCommand(const QString& plugin, const QString& command,
                                   const QString& value)
{
    return this->command(plugin, {{command, value}});
}

QStringList Controller::ports(const QString& kind) const
{
    return d->isConnected ? d->points().ports(kind) : QStringList();
}

QJsonValue Controller::registers() const
{
    if (!d->isConnected)
        return QJsonValue::Undefined;
    return shownRegisters(d->cell->record(keys::registers), d->faults);
}

QHash<QString, QStringList> Controller::registerGroups() const
{
    QHash<QString, QStringList> groups;
    if (!d->isConnected)
        return groups;
    const QJsonArray list = d->cell->record(keys::registers).toArray();
    for (const QJsonValue& each : list) {
        const QJsonObject entry = each.toObject();
        groups[entry.value(QLatin1String("type")).toString()].append(
            entry.value(QLatin1String("name")).toString());
    }
    return groups;
}

WeldIo::Source Controller::Private::ioSource(const IoPoints& points) const
{
    return {cell->record(keys::weldIo).toObject(), cell->record(keys::weldSetting).toObject(),
            device.state(), points};
}

QVector<SignalState> Controller::ioSignals() const
{
    const IoPoints points = d->points();
    return d->io.states(d->ioSource(points));
}

bool Controller::setInput(const QString& signal, double value)
{
    const IoPoints points = d->points();
    const QString reason = d->io.setInput(signal, value, d->ioSource(points));
    const QString what = QStringLiteral("input %1 to %2").arg(jsonText(signal)).arg(value);
    Q_EMIT logged(reason.isEmpty() ? QStringLiteral("%1 done").arg(what)
                                   : QStringLiteral("%1 refused: %2").arg(what, reason));
    if (reason.isEmpty())
        Q_EMIT ioChanged();
    return reason.isEmpty();
}

QStringList Controller::Private::names(const QString& list) const
{
    return isConnected ? namesOf(*cell, list) : QStringList();
}

QString Controller::Private::selected(const QString& field) const
{
    return isConnected ? cell->record(keys::selection).toObject().value(field).toString()
                       : QString();
}

/// Carries out a change of the cell, unless the connection is down, and tells what came of it. The
/// change returns an empty text when it is done.
template<typename Change>
bool Controller::Private::change(Controller& owner, const QString& what, QString* error,
                                 const Change& carryOut)
{
    const QString reason = isConnected
                               ? carryOut()
                               : QStringLiteral("The connection to the controller is down. Bring "
                                                "it up, then try again.");
    const bool isDone = reason.isEmpty();
    if (error && !isDone)
        *error = reason;
    Q_EMIT owner.logged(isDone ? QStringLiteral("%1 done").arg(what)
                               : QStringLiteral("%1 refused: %2").arg(what, reason));
    return isDone;
}

void Controller::Private::select(Controller& owner, const QString& list, const QString& field,
                                 const QString& name)
{
    const QString what = QStringLiteral("select %1 %2").arg(field, jsonText(name));
    const bool isDone = change(owner, what, nullptr, [&] {
        QString reason = checkListed(*cell, list, name);
        QJsonObject selection = cell->record(keys::selection).toObject();
        selection.insert(field, name);
        if (reason.isEmpty())
            cell->store({{keys::selection, selection}}, &reason);
        return reason;
    });
    if (isDone)
        Q_EMIT owner.recordChanged(keys::selection);
}

QStringList Controller::tools() const
{
    return d->names(keys::tools);
}

QStringList Controller::workObjects() const
{
    return d->names(keys::workObjects);
}

QStringList Controller::speeds() const
{
    return d->names(keys::speeds);
}

QStringList Controller::zones() const
{
    return d->names(keys::zones);
}

QString Controller::currentTool() const
{
    return d->selected(keys::tool);
}

QString Controller::currentWorkObject() const
{
    return d->selected(keys::workObject);
}

void Controller::setCurrentTool(const QString& name)
{
    d->select(*this, keys::tools, keys::tool, name);
}

void Controller::setCurrentWorkObject(const QString& name)
{
    d->select(*this, keys::workObjects, keys::workObject, name);
}

QStringList Controller::pointNames() const
{
    return d->isConnected ? pendant::pointNames(d->cell->record(keys::points).toArray())
                          : QStringList();
}

bool Controller::addCurrentPoint(const QString& name, const QString& tool,
                                 const QString& workObject, QString* error)
{
    const Point point{name, tool, workObject};
    const QString what = QStringLiteral("add point %1").arg(jsonText(name));
    const bool isDone = d->change(*this, what, error, [&] {
        QString reason = checkPoint(*d->cell, point);
        const QJsonArray points = d->cell->record(keys::points).toArray();
        if (reason.isEmpty())
            d->cell->store({{keys::points, withPoint(points, point)}}, &reason);
        return reason;
    });
    if (isDone)
        Q_EMIT pointsChanged();
    return isDone;
}

QStringList Controller::programs() const
{
    return d->isConnected ? d->cell->programs() : QStringList();
}

bool Controller::readProgram(const QString& name, QByteArray* text) const
{
    return d->isConnected && d->cell->readProgram(name, text);
}

template<typename Change>
bool Controller::changeProgram(const QString& verb, const QString& name, QString* error,
                               const Change& carryOut)
{
    const QString what = QStringLiteral("%1 program %2").arg(verb, jsonText(name));
    const bool isDone = d->change(*this, what, error, carryOut);
    if (isDone)
        Q_EMIT programsChanged();
    return isDone;
}

bool Controller::saveProgram(const QString& name, const QByteArray& text, QString* error)
{
    return changeProgram(QStringLiteral("save"), name, error,
                         [&] { return d->programs.save(name, text); });
}

bool Controller::createProgram(const QString& name, QString* error)
{
    return changeProgram(QStringLiteral("create"), name, error,
                         [&] { return d->programs.create(name); });
}

bool Controller::renameProgram(const QString& from, const QString& to, QString* error)
{
    return changeProgram(QStringLiteral("rename"), from, error,
                         [&] { return d->programs.rename(from, to); });
}

bool Controller::removeProgram(const QString& name, QString* error)
{
    return changeProgram(QStringLiteral("remove"), name, error,
                         [&] { return d->programs.remove(name); });
}

bool Controller::isPowered() const
{
    return d->isPowered;
}

void Controller::setPowered(bool on)
{
    if (d->isPowered == on)
        return;
    d->isPowered = on;
    Q_EMIT powerChanged(on);
}

bool Controller::isConnected() const
{
    return d->isConnected;
}

void Controller::setConnected(bool on)
{
    if (d->isConnected == on)
        return;
    d->isConnected = on;
    if (!on)
        d->device.stopWire();
    Q_EMIT connectionChanged(on);
}

bool Controller::isVirtualWelding() const
{
    return d->device.state().virtualWelding;
}

bool Controller::setVirtualWelding(bool on)
{
    const QString name = QStringLiteral("set_virtual_welding");
    const Command* command = findCommand(name);
    Transaction transaction{*d->cell, d->faults, d->isPowered, d->device.state(), {}};
    Orders orders{{name, command, command->carryOut(on, transaction)}};
    return d->conclude(*this, transaction, orders);
}

const Faults& Controller::faults() const
{
    return d->faults;
}

void Controller::setFaults(const Faults& faults)
{
    d->faults = faults;
    Q_EMIT ioChanged();
}

} // namespace pendant
