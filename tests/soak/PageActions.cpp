#include "PageActions.h"

#include "RecordKeys.h"

#include <QWidget>

#include <QComboBox>

namespace soak {

bool isFree(const QWidget* widget)
{
    return widget->isEnabled();
}

QList<QWidget*> visibleOf(QWidget* page, const QStringList& names)
{
    QList<QWidget*> all;
    for (const QString& name : names) {
        auto* each = page->findChild<QWidget*>(name);
        if (each && each->isVisible())
            all << each;
    }
    return all;
}

void enterNumber(Scene& scene, QWidget* field)
{
    const int least = field->property("minimum").toInt();
    const int most = field->property("maximum").toInt();
    const QVariant before = field->property("value");
    const int number =
        scene.chance.oneIn(8) ? scene.chance.between(0, 99999) : scene.chance.between(least, most);
    scene.note = QStringLiteral("%1 %2").arg(field->objectName()).arg(number);
    scene.enter(field, QString::number(number));
    const QVariant after = field->property("value");
    if (!isFree(field))
        demand(after == before, QStringLiteral("a locked field takes %1").arg(number));
    else if (number >= least && number <= most)
        demand(after.toInt() == number,
               QStringLiteral("the field shows %1, not %2").arg(after.toString()).arg(number));
    demand(after.toDouble() >= least && after.toDouble() <= field->property("maximum").toDouble(),
           QStringLiteral("the field shows %1, beyond its range").arg(after.toString()));
}

void chooseAny(Scene& scene, QComboBox* box)
{
    if (box->count() == 0)
        return;
    const int index = scene.chance.below(box->count());
    scene.note = QStringLiteral("%1 \"%2\"").arg(box->objectName(), box->itemText(index));
    scene.choose(box, index);
}

QJsonObject merged(QJsonObject record, const QJsonObject& added)
{
    for (auto each = added.begin(); each != added.end(); ++each)
        record.insert(each.key(), each.value());
    return record;
}

void finishSave(Scene& scene, const QString& command, const QString& record,
                const QJsonObject& ifDone, const char* context)
{
    Model& model = scene.model;
    const std::optional<int> code = scene.codeOf(command);
    demand(code.has_value() == model.arrives(),
           QStringLiteral("the controller has %1 \"%2\"")
               .arg(latin(code ? "carried out" : "not seen"), command));
    if (code)
        demand(model.faults.returnCode == 0 || *code == model.faults.returnCode,
               QStringLiteral("the controller answers with %1").arg(*code));
    const bool isDone = code == 0;
    demand(scene.witness.recordsChanged.contains(record) == isDone,
           QStringLiteral("\"%1\" %2 with the code %3")
               .arg(record, latin(isDone ? "has not changed" : "has changed"))
               .arg(code.value_or(-1)));
    if (isDone)
        model.records[record] = ifDone;
    scene.note += QStringLiteral(" -> %1").arg(code ? QString::number(*code) : latin("no answer"));
    if (record == pendant::keys::weldIo)
        model.savedMapping(code.value_or(0));
    else
        model.saved(command, code.value_or(0),
                    {context, "Saved successfully",
                     "Save failed. Please check the parameter configuration."});
}

void tellCancelled(Scene& scene, const char* context)
{
    scene.pageRead();
    scene.model.tell(Model::Information, shown(context, "Cancel successful"));
}

} // namespace soak
