#include "RLParaSetInsertWidget.h"

#include "CallText.h"
#include "Guard.h"
#include "Quotes.h"
#include "RecordNames.h"
#include "ui_RLParaSetInsertWidget.h"

namespace qelplugin {

namespace {

constexpr char FillWithName[] = "qelplugin::RLParaSetInsertWidget::FillWith";

// The kinds of ramp as they stand in the call; they are not translated. An empty kind is no ramp.
const QLatin1String TimeRamp("Time");
const QLatin1String PositionRamp("Pos");

bool isSame(const QString& kind, QLatin1String ramp)
{
    return kind.compare(ramp, Qt::CaseInsensitive) == 0;
}

} // namespace

RLParaSetInsertWidget::RLParaSetInsertWidget(const QString& key, QWidget* parent)
    : RLContentBase(parent)
    , ui(new Ui::RLParaSetInsertWidget)
{
    insName = key;
    ui->setupUi(this);
    ui->cbxLaserDataID->addItems(RecordNames::scheduleNames());
    ui->cbxRampType->addItems({QString(), TimeRamp, PositionRamp});
    showRampTime(ui->cbxRampType->currentText());
    connect(ui->cbxRampType, &QComboBox::currentTextChanged, this,
            &RLParaSetInsertWidget::showRampTime);
}

RLParaSetInsertWidget::~RLParaSetInsertWidget() = default;

void RLParaSetInsertWidget::FillWith(const QString& text)
{
    Guard::run({LogTag::Plugin, FillWithName, __LINE__}, "Caught an unknown exception!",
               [&] { load(text); });
}

void RLParaSetInsertWidget::load(const QString& text)
{
    LOGD(LogTag::Plugin) << "LASER::" << FillWithName << __LINE__ << text;
    QString name;
    QStringList arguments;
    if (!qellaser::util::extractFunctionAndParameters(text, name, arguments))
        return;
    if (arguments.isEmpty()) {
        Guard::warn({LogTag::Plugin, FillWithName, __LINE__},
                    " Missing required parameters! funcName:", name,
                    ", params:", qellaser::util::printedList(arguments));
        return;
    }
    ui->cbxLaserDataID->setCurrentText(Quotes::strip(arguments.first()));
    if (arguments.size() > 1)
        loadRamp(Quotes::strip(arguments.at(1)), arguments.value(2));
}

// What is no number of milliseconds, or is missing, is 0; the box takes the nearest of its range.
void RLParaSetInsertWidget::loadRamp(const QString& kind, const QString& milliseconds)
{
    if (isSame(kind, TimeRamp)) {
        ui->cbxRampType->setCurrentText(TimeRamp);
        ui->spinBox_ramp_time->setValue(milliseconds.toInt());
    } else {
        ui->cbxRampType->setCurrentText(isSame(kind, PositionRamp) ? QString(PositionRamp)
                                                                   : QString());
    }
}

QString RLParaSetInsertWidget::BuildText()
{
    const QString kind = ui->cbxRampType->currentText();
    QStringList arguments{Quotes::add(ui->cbxLaserDataID->currentText())};
    if (!kind.isEmpty())
        arguments << Quotes::add(kind);
    if (isSame(kind, TimeRamp))
        arguments << QString::number(ui->spinBox_ramp_time->value());
    return QString(QLatin1String("LsParaSet(%1);")).arg(arguments.join(QLatin1Char(',')));
}

bool RLParaSetInsertWidget::CheckInsert()
{
    return true;
}

bool RLParaSetInsertWidget::CheckReplace()
{
    return true;
}

void RLParaSetInsertWidget::showRampTime(const QString& kind)
{
    const bool isVisible = isSame(kind, TimeRamp);
    ui->spinBox_ramp_time->setVisible(isVisible);
    ui->label->setVisible(isVisible);
}

} // namespace qelplugin
