// The cell and what can go wrong in it: users, power, connection, faults, inputs.

#include "Actions.h"
#include "Controller.h"
#include "FaultTable.h"
#include "Scene.h"
#include "WeldIo.h"

#include <QAbstractButton>

#include <algorithm>
#include <iterator>

namespace soak {

namespace {

QString faultBox(const pendant::FaultRow& row)
{
    return latin("fault_") + latin(row.name);
}

void openFaults(Scene& scene)
{
    scene.leavePanels();
    scene.click(latin("button_faults"));
}

void setNumber(Scene& scene, const pendant::FaultRow& row, int number)
{
    scene.enter(scene.widget(faultBox(row)), QString::number(number));
    scene.model.faults.*row.number = number;
}

// A delay is short, for the sake of the run.
int anyNumber(Scene& scene, const pendant::FaultRow& row)
{
    constexpr int codes[] = {5, -3, 9, 12, 9999};
    return row.number == &pendant::Faults::replyDelay ? scene.chance.between(1, 4)
                                                      : scene.chance.of(codes);
}

void turn(Scene& scene, const pendant::FaultRow& row)
{
    pendant::Faults& faults = scene.model.faults;
    if (row.number) {
        setNumber(scene, row, faults.*row.number != 0 ? 0 : anyNumber(scene, row));
        return;
    }
    scene.click(faultBox(row));
    faults.*row.flag = !(faults.*row.flag);
}

bool isOn(const pendant::Faults& faults, const pendant::FaultRow& row)
{
    return row.number ? faults.*row.number != 0 : faults.*row.flag;
}

// But for those that drop the connection within a command, and odd values in the place of "return":
// the table of faults goes through these one by one.
bool isTurned(const pendant::FaultRow& row)
{
    return row.flag != &pendant::Faults::lostBefore && row.flag != &pendant::Faults::lostAfter &&
           row.number != &pendant::Faults::returnValue;
}

void turnFault(Scene& scene)
{
    std::vector<pendant::FaultRow> rows;
    std::copy_if(pendant::faultRows().begin(), pendant::faultRows().end(), std::back_inserter(rows),
                 isTurned);
    const pendant::FaultRow& row = scene.chance.of(rows);
    scene.note = latin(row.name);
    openFaults(scene);
    turn(scene, row);
}

void clearFaults(Scene& scene)
{
    if (!pendant::anyFault(scene.model.faults))
        return;
    openFaults(scene);
    for (const pendant::FaultRow& row : pendant::faultRows()) {
        if (isOn(scene.model.faults, row))
            turn(scene, row);
    }
    scene.leavePanels();
}

// The mode is changed at the controller's cabinet: no picture follows.
void turnModeAtCabinet(Scene& scene)
{
    openFaults(scene);
    scene.click(latin("switch_virtual"));
    scene.model.virtualWelding = !scene.model.virtualWelding;
}

void changeUser(Scene& scene)
{
    constexpr int levels[] = {0, 1, 2, 3, 3, 3, 4, 4};
    const int level = scene.chance.of(levels);
    scene.note = QString::number(level);
    scene.logIn(level);
}

void turnPower(Scene& scene)
{
    scene.turnPower();
}

void turnConnection(Scene& scene)
{
    scene.turnConnection();
}

// As a technician who wants to work.
void recover(Scene& scene)
{
    if (!scene.model.connected)
        scene.turnConnection();
    if (scene.model.powered)
        scene.turnPower();
    clearFaults(scene);
    if (!scene.model.mayOperate())
        scene.logIn(3);
}

void setInput(Scene& scene)
{
    std::vector<QString> keys;
    const auto before = scene.stage.controller().ioSignals();
    for (const pendant::SignalState& each : before) {
        if (!each.signal->isOutput && each.content == pendant::RegisterContent::Bit &&
            each.isMapped() && each.signal->kind == pendant::SignalKind::Digital)
            keys.push_back(latin(each.signal->key));
    }
    if (keys.empty())
        return;
    const QString key = scene.chance.of(keys);
    scene.note = key;
    const auto value = [&] {
        const auto states = scene.stage.controller().ioSignals();
        for (const pendant::SignalState& each : states) {
            if (latin(each.signal->key) == key)
                return each.value;
        }
        return -1.0;
    };
    const double was = value();
    scene.leavePanels();
    scene.click(latin("button_io"));
    scene.click(latin("button_inputs"));
    scene.click(latin("input_") + key);
    demand(value() == (was == 0 ? 1 : 0), latin("the input does not follow"));
    demand(scene.widget<QAbstractButton>(latin("input_") + key)->isChecked() == (was == 0),
           latin("the I/O monitor does not show the input"));
}

} // namespace

Actions cellActions()
{
    return {
        {"cell: user", 7, changeUser},           {"cell: power", 3, turnPower},
        {"cell: connection", 4, turnConnection}, {"cell: fault", 8, turnFault},
        {"cell: no faults", 4, clearFaults},     {"cell: recover", 10, recover},
        {"cell: mode", 2, turnModeAtCabinet},    {"cell: input", 2, setInput},
    };
}

} // namespace soak
