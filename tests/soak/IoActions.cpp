// "Weld I/O": rows, save and cancel.

#include "Actions.h"
#include "Forms.h"
#include "PageActions.h"
#include "RecordKeys.h"
#include "WeldSignals.h"

#include <QComboBox>
#include <QSet>

namespace soak {

namespace keys = pendant::keys;
using pendant::WeldSignal;

namespace {

constexpr const char* Context = "WeldioPage";

QComboBox* box(Scene& scene, const WeldSignal& signal, const char* kind)
{
    return Forms::within<QComboBox>(
        scene.pageWidget(), QStringLiteral("comboBox_%1_%2").arg(latin(signal.key), latin(kind)));
}

const WeldSignal& anyRow(Scene& scene)
{
    const WeldSignal* signal = &scene.chance.of(pendant::weldSignals());
    const bool isOpen = scene.openTab(
        latin("tabWidget_io"), shown(Context, signal->isOutput ? "I/O output" : "I/O Input"));
    while (!isOpen && !box(scene, *signal, "type")->isVisible())
        signal = &scene.chance.of(pendant::weldSignals());
    return *signal;
}

void chooseType(Scene& scene)
{
    scene.goTo(Page::Io);
    chooseAny(scene, box(scene, anyRow(scene), "type"));
}

void choosePort(Scene& scene)
{
    scene.goTo(Page::Io);
    const WeldSignal& signal = anyRow(scene);
    chooseAny(scene, box(scene, signal, "port"));
    QComboBox* bias = box(scene, signal, "bias");
    if (bias->isVisible())
        chooseAny(scene, bias);
}

void turnRow(Scene& scene)
{
    scene.goTo(Page::Io);
    const WeldSignal& signal = anyRow(scene);
    if (!signal.switchKey)
        return;
    QWidget* toggle =
        Forms::within(scene.pageWidget(), latin("pushButton_") + latin(signal.switchKey));
    const bool before = Forms::isOn(toggle);
    scene.click(toggle);
    scene.note = latin(signal.key);
    const bool isOn = Forms::isOn(toggle);
    demand(isOn == (before != isFree(toggle)), latin("the switch of the row does not follow"));
    if (isFree(toggle))
        demand(isFree(box(scene, signal, "port")) == isOn,
               latin("the boxes of the row do not follow its switch"));
}

/// Where a signal of the form is, when its port is taken by it.
QString useOf(const WeldSignal& signal, const QJsonObject& form)
{
    const pendant::Mapping mapping = mappingOf(signal, form);
    if (!mapping.isOn || mapping.port.isEmpty())
        return {};
    return QStringLiteral("%1 %2 %3").arg(mapping.port).arg(mapping.type).arg(mapping.bias);
}

// Of one table; empty when no place is used twice.
QString doubleUse(const QJsonObject& form, bool ofOutputs)
{
    QSet<QString> used;
    for (const WeldSignal& signal : pendant::weldSignals()) {
        const QString use = signal.isOutput == ofOutputs ? useOf(signal, form) : QString();
        if (used.contains(use))
            return mappingOf(signal, form).port;
        if (!use.isEmpty())
            used.insert(use);
    }
    return {};
}

bool hasGap(const QJsonObject& form)
{
    const auto& all = pendant::weldSignals();
    return std::any_of(all.begin(), all.end(), [&](const WeldSignal& signal) {
        const pendant::Mapping mapping = mappingOf(signal, form);
        return mapping.isOn && mapping.port.isEmpty();
    });
}

// What the page itself refuses; empty when it sends the form.
QString complaint(const QJsonObject& form)
{
    for (const bool ofOutputs : {true, false}) {
        const QString port = doubleUse(form, ofOutputs);
        if (!port.isEmpty())
            return shown(Context, "Port %1 is already in use, save failed!").arg(port);
    }
    return hasGap(form) ? shown(Context, "There is an empty port. Please check and reconfigure!")
                        : QString();
}

// A register may have gone since the lists were read; which one is told is the page's matter.
bool isLostRegister(Scene& scene)
{
    if (scene.ioIsTrue && scene.model.readsTruly())
        return false;
    const QString start =
        shown(Context, "Signal %1: register \"%2\" is invalid or has wrong read/write permission, "
                       "expected %3.")
            .section(QLatin1Char('%'), 0, 0);
    const auto& told = scene.witness.messages;
    return !told.isEmpty() && told.last().text.startsWith(start);
}

void save(Scene& scene)
{
    scene.goTo(Page::Io);
    const QJsonObject form = Forms::mapping(scene.pageWidget());
    QWidget* button = Forms::within(scene.pageWidget(), latin("pushButton_Save"));
    const bool canSave = isFree(button);
    demand(canSave == (scene.model.mayOperate() && !scene.mainIsOn) || !canSave,
           latin("\"Save\" is free in spite of user or main switch"));
    scene.click(button);
    if (!canSave)
        return;
    const QString refusal = complaint(form);
    if (isLostRegister(scene)) {
        scene.model.messages.append(scene.witness.messages.last());
        demand(!scene.codeOf(latin("set_weld_io_config")), latin("a bad mapping was sent"));
    } else if (!refusal.isEmpty()) {
        scene.model.tell(Model::Error, refusal);
    } else {
        finishSave(scene, latin("set_weld_io_config"), keys::weldIo, form, Context);
        if (scene.model.records[keys::weldIo] == form && !scene.model.messages.isEmpty() &&
            scene.model.messages.last().level == Model::Information)
            scene.pageRead();
    }
}

void cancel(Scene& scene)
{
    scene.goTo(Page::Io);
    QWidget* button = Forms::within(scene.pageWidget(), latin("pushButton_Cancel"));
    const bool canCancel = isFree(button);
    scene.click(button);
    if (canCancel)
        tellCancelled(scene, Context);
}

} // namespace

Actions ioActions()
{
    return {
        {"io: type", 4, chooseType}, {"io: port", 5, choosePort}, {"io: row", 3, turnRow},
        {"io: save", 6, save},       {"io: cancel", 3, cancel},
    };
}

} // namespace soak
