// "Char. Curve": nodes, compute, save and cancel.

#include "Actions.h"
#include "Forms.h"
#include "PageActions.h"
#include "RecordKeys.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTableWidget>

namespace soak {

namespace keys = pendant::keys;

namespace {

constexpr const char* Context = "CharacteristicsCurvePage";

// The tab of one of the curves, in view.
int anyCurve(Scene& scene)
{
    scene.goTo(Page::Curves);
    int index = scene.chance.below(Forms::CurveCount);
    if (!scene.openTab(latin("CharacteristicsCurvePage/tabWidget"),
                       shown(Context, Forms::curve(index).tab)))
        index = Forms::within<QTabWidget>(scene.pageWidget(), latin("tabWidget"))->currentIndex();
    scene.note = latin(Forms::curve(index).tab);
    return index;
}

QWidget* part(Scene& scene, const char* name)
{
    return Forms::within(scene.pageWidget(), latin(name));
}

QTableWidget* table(Scene& scene, int index)
{
    return Forms::within<QTableWidget>(scene.pageWidget(), latin(Forms::curve(index).table));
}

void enterNode(Scene& scene)
{
    QTableWidget* nodes = table(scene, anyCurve(scene));
    if (nodes->rowCount() > 0)
        enterNumber(scene, nodes->cellWidget(scene.chance.below(nodes->rowCount()),
                                             scene.chance.between(1, 2)));
}

// Of few nodes, for each takes its time.
void enterRising(Scene& scene)
{
    constexpr int fewNodes = 5;
    const int index = anyCurve(scene);
    const QTableWidget* nodes = table(scene, index);
    if (nodes->rowCount() > fewNodes || !isFree(part(scene, Forms::curve(index).save)))
        return;
    for (int row = 0; row < nodes->rowCount(); ++row) {
        for (const int column : {1, 2})
            scene.enter(nodes->cellWidget(row, column),
                        QString::number(10 * row + scene.chance.between(1, 9)));
    }
}

void chooseNumber(Scene& scene)
{
    constexpr int leastNodes = 2;
    const int index = anyCurve(scene);
    auto* numbers =
        Forms::within<QComboBox>(scene.pageWidget(), latin(Forms::curve(index).nodeBox));
    const int before = numbers->currentIndex();
    chooseAny(scene, numbers);
    if (numbers->currentIndex() != before)
        demand(table(scene, index)->rowCount() == numbers->currentIndex() + leastNodes,
               latin("the table has another number of nodes"));
}

// False when nothing is to be sent, after what is told then.
bool nodesRise(Scene& scene, int index)
{
    const QJsonArray nodes = Forms::curveRecord(scene.pageWidget(), index)
                                 .value(latin(Forms::curve(index).dataKey))
                                 .toArray();
    const QString complaint = Forms::complaint(nodes);
    if (!complaint.isEmpty())
        scene.model.tell(Model::Warning, complaint);
    return complaint.isEmpty();
}

void compute(Scene& scene)
{
    const int index = anyCurve(scene);
    QWidget* button = part(scene, Forms::curve(index).compute);
    const bool canCompute = isFree(button);
    scene.click(button);
    if (canCompute && nodesRise(scene, index))
        scene.computed[static_cast<std::size_t>(index)] = true;
}

void save(Scene& scene)
{
    const int index = anyCurve(scene);
    QWidget* button = part(scene, Forms::curve(index).save);
    const bool canSave = isFree(button);
    const QJsonObject form = Forms::curveRecord(scene.pageWidget(), index);
    scene.click(button);
    if (!canSave || !nodesRise(scene, index))
        return;
    scene.computed[static_cast<std::size_t>(index)] = true;
    finishSave(scene, latin(Forms::curve(index).command), keys::weldCurves,
               merged(scene.model.records[keys::weldCurves].toObject(), form), Context);
}

void cancel(Scene& scene)
{
    const int index = anyCurve(scene);
    QWidget* button = part(scene, Forms::curve(index).cancel);
    const bool canCancel = isFree(button);
    scene.click(button);
    if (!canCancel)
        return;
    // Only the chart of this tab is computed anew.
    const auto all = scene.computed;
    for (std::size_t each = 0; each < all.size(); ++each)
        scene.computed[each] = all[each] && static_cast<int>(each) == index;
    scene.pageRead();
    scene.computed = all;
    scene.model.tell(Model::Information, shown(Context, "Cancel successful"));
}

} // namespace

Actions curveActions()
{
    return {
        {"curve: node", 4, enterNode},      {"curve: rising nodes", 4, enterRising},
        {"curve: number", 3, chooseNumber}, {"curve: compute", 4, compute},
        {"curve: save", 6, save},           {"curve: cancel", 3, cancel},
    };
}

} // namespace soak
