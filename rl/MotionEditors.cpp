#include "MotionEditors.h"

#include "CallText.h"
#include "Guard.h"
#include "Host.h"
#include "Log.h"
#include "Quotes.h"
#include "SetUpPointWidget.h"

#include "ui_WMoveCFInsertWidget.h"
#include "ui_WMoveCFPropertyWidget.h"
#include "ui_WMoveCInsertWidget.h"
#include "ui_WMoveCPropertyWidget.h"
#include "ui_WMoveLInsertWidget.h"
#include "ui_WMoveLPropertyWidget.h"

namespace {

// Speed of a new instruction, whatever the controller offers.
const QLatin1String NoSpeed("NULL");
const QLatin1String DefaultWobj("wobj0");
const QLatin1String RotTypes[] = {QLatin1String("RotAxis"), QLatin1String("ConstPose"),
                                  QLatin1String("FixedAxis")};

qelplugin::InterfaceManager& host()
{
    return qelplugin::qelPluginInterface();
}

// The entry with the text, or the first one.
void selectOrFirst(QComboBox* box, const QString& text)
{
    box->setCurrentIndex(qMax(0, box->findText(text)));
}

template<typename Form>
MotionBoxes straightBoxes(const Form& form, const QVector<MotionBoxes::Point>& points)
{
    return {points, form.cbxSpeed, form.cbxZone, form.cbxTool, form.cbxWobj, nullptr, nullptr};
}

template<typename Form>
MotionBoxes circleBoxes(const Form& form, const QVector<MotionBoxes::Point>& points)
{
    MotionBoxes boxes = straightBoxes(form, points);
    boxes.runDeg = form.sbxRunDeg;
    boxes.rotType = form.cbxRotType;
    return boxes;
}

} // namespace

MotionEditor::MotionEditor(QLatin1String instruction, QWidget* parent)
    : RLContentBase(parent)
    , key(instruction)
{}

void MotionEditor::initForm(const MotionBoxes& formBoxes)
{
    boxes = formBoxes;
    int index = 1; // so that two points of one editor propose different names
    for (const MotionBoxes::Point& point : points()) {
        point.box->setIndex(index++);
        point.box->setLabelText(point.label);
    }
    if (isCircle()) {
        boxes.rotType->clear();
        for (const QLatin1String type : RotTypes)
            boxes.rotType->addItem(type);
    }
    fillLists();
}

void MotionEditor::fillLists()
{
    boxes.speed->addItems(host().getSpeedList());
    boxes.speed->insertItem(0, NoSpeed);
    boxes.speed->setCurrentIndex(0);
    boxes.zone->addItems(host().getZoneList());
    boxes.zone->setCurrentIndex(0);
    boxes.tool->addItems(host().getToolList());
    selectOrFirst(boxes.tool, host().getCurTool());
    boxes.wobj->addItems(host().getWobjList());
    selectOrFirst(boxes.wobj, host().getCurWobj());
}

QStringList MotionEditor::pointTexts() const
{
    QStringList texts;
    for (const MotionBoxes::Point& point : points())
        texts << point.box->pointText();
    return texts;
}

QString MotionEditor::callText(QStringList arguments) const
{
    if (isCircle()) {
        arguments << QString::number(boxes.runDeg->value())
                  << Quotes::add(boxes.rotType->currentText());
    }
    for (const QComboBox* box : {boxes.speed, boxes.zone, boxes.tool, boxes.wobj})
        arguments << box->currentText();
    return QString(QLatin1String("%1(%2);")).arg(key, arguments.join(QLatin1String(", ")));
}

int MotionEditor::fewestArguments() const
{
    const int circle = isCircle() ? 2 : 0; // run angle and rotation type
    const int lists = 3;                   // speed, zone and tool
    return points().size() + circle + lists;
}

void MotionEditor::showArguments(const QStringList& arguments)
{
    auto next = arguments.cbegin();
    for (const MotionBoxes::Point& point : points())
        point.box->setPointText(*next++);
    if (isCircle()) {
        boxes.runDeg->setValue((next++)->toDouble());
        boxes.rotType->setCurrentText(Quotes::strip(*next++));
    }
    for (QComboBox* box : {boxes.speed, boxes.zone, boxes.tool})
        box->setCurrentText(*next++);
    // A line without a work object has the default one, not the controller's current one.
    selectOrFirst(boxes.wobj, DefaultWobj);
    if (next != arguments.cend())
        boxes.wobj->setCurrentText(next->trimmed());
}

void MotionInsertEditor::FillWith(const QString&) {}

QString MotionInsertEditor::BuildText()
{
    const QStringList texts = pointTexts(); // as the operator saw them, before the new proposals
    for (const MotionBoxes::Point& point : points()) {
        const QString wobj = host().getCurWobj();
        const QString tool = host().getCurTool();
        point.box->addPointIfMissing(tool, wobj);
    }
    for (const MotionBoxes::Point& point : points())
        point.box->refreshPointList();
    return callText(texts);
}

bool MotionInsertEditor::CheckInsert()
{
    return Host::mayOperate();
}

void MotionPropertyEditor::FillWith(const QString& line)
{
    const QByteArray function = QByteArray(metaObject()->className()) + "::FillWith";
    const Guard::Origin origin{LogTag::Short, function.constData()};
    Guard::run(origin, " Caught an unknown exception!", [&] { loadCall(origin, line); });
}

void MotionPropertyEditor::loadCall(const Guard::Origin& origin, const QString& line)
{
    using namespace qellaser::util;
    QString name;
    QStringList arguments;
    if (!extractFunctionAndParameters(line, name, arguments))
        return;
    if (arguments.size() < fewestArguments()) {
        Guard::warn(origin, " Missing required parameters! params:", printedList(arguments));
        return;
    }
    showArguments(arguments);
}

QString MotionPropertyEditor::BuildText()
{
    return callText(pointTexts());
}

bool MotionPropertyEditor::CheckReplace()
{
    return Host::mayOperate();
}

WMoveLInsertWidget::WMoveLInsertWidget(QWidget* parent)
    : MotionInsertEditor(QLatin1String("LsMoveL"), parent)
    , ui(new Ui::WMoveLInsertWidget)
{
    ui->setupUi(this);
    initForm(straightBoxes(*ui, {{ui->wgtTargetPoint, tr("TargetPoint(robtarget): ")}}));
}

WMoveLPropertyWidget::WMoveLPropertyWidget(QWidget* parent)
    : MotionPropertyEditor(QLatin1String("LsMoveL"), parent)
    , ui(new Ui::WMoveLPropertyWidget)
{
    ui->setupUi(this);
    initForm(straightBoxes(*ui, {{ui->wgtTargetPoint, tr("TargetPoint(robtarget): ")}}));
}

WMoveCInsertWidget::WMoveCInsertWidget(QWidget* parent)
    : MotionInsertEditor(QLatin1String("LsMoveC"), parent)
    , ui(new Ui::WMoveCInsertWidget)
{
    ui->setupUi(this);
    initForm(straightBoxes(*ui, {{ui->wgtAuxPoint, tr("AuxPoint(robtarget): ")},
                                 {ui->wgtTargetPoint, tr("TargetPoint(robtarget): ")}}));
}

WMoveCPropertyWidget::WMoveCPropertyWidget(QWidget* parent)
    : MotionPropertyEditor(QLatin1String("LsMoveC"), parent)
    , ui(new Ui::WMoveCPropertyWidget)
{
    ui->setupUi(this);
    initForm(straightBoxes(*ui, {{ui->wgtAuxPoint, tr("AuxPoint(robtarget): ")},
                                 {ui->wgtTargetPoint, tr("TargetPoint(robtarget): ")}}));
}

WMoveCFInsertWidget::WMoveCFInsertWidget(QWidget* parent)
    : MotionInsertEditor(QLatin1String("LsMoveCF"), parent)
    , ui(new Ui::WMoveCFInsertWidget)
{
    ui->setupUi(this);
    initForm(circleBoxes(*ui, {{ui->wgtAuxPoint1, tr("AuxPoint1(robtarget): ")},
                               {ui->wgtAuxPoint2, tr("AuxPoint2(robtarget): ")}}));
}

WMoveCFPropertyWidget::WMoveCFPropertyWidget(QWidget* parent)
    : MotionPropertyEditor(QLatin1String("LsMoveCF"), parent)
    , ui(new Ui::WMoveCFPropertyWidget)
{
    ui->setupUi(this);
    initForm(circleBoxes(*ui, {{ui->wgtAuxPoint1, tr("AuxPoint1(robtarget): ")},
                               {ui->wgtAuxPoint2, tr("AuxPoint2(robtarget): ")}}));
}

WMoveLInsertWidget::~WMoveLInsertWidget() = default;
WMoveLPropertyWidget::~WMoveLPropertyWidget() = default;
WMoveCInsertWidget::~WMoveCInsertWidget() = default;
WMoveCPropertyWidget::~WMoveCPropertyWidget() = default;
WMoveCFInsertWidget::~WMoveCFInsertWidget() = default;
WMoveCFPropertyWidget::~WMoveCFPropertyWidget() = default;
