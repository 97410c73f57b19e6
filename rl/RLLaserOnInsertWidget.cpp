#include "RLLaserOnInsertWidget.h"

#include "CallText.h"
#include "Guard.h"
#include "Quotes.h"
#include "RecordNames.h"
#include "ui_RLLaserOnInsertWidget.h"

namespace qelplugin {

namespace {

/// How the weld starts; the item data of the start modes.
enum StartMode {
    NormalStart = 0,
    SpotWeldStart = 1,
};

} // namespace

RLLaserOnInsertWidget::RLLaserOnInsertWidget(const QString& key, QWidget* parent)
    : RLContentBase(parent)
    , ui(new Ui::RLLaserOnInsertWidget)
{
    insName = key;
    ui->setupUi(this);
    ui->cbxLaserDataID->addItems(RecordNames::scheduleNames());
    ui->cbxStartMode->addItem(tr("Normal"), NormalStart);
    ui->cbxStartMode->addItem(tr("Spot weld"), SpotWeldStart);
    updateWaitVisibility();
    connect(ui->cbxStartMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &RLLaserOnInsertWidget::updateWaitVisibility);
}

RLLaserOnInsertWidget::~RLLaserOnInsertWidget() = default;

void RLLaserOnInsertWidget::FillWith(const QString& text)
{
    Guard::run({LogTag::Short, "qelplugin::RLLaserOnInsertWidget::FillWith", __LINE__},
               " unknown exception", [&] { load(text); });
}

void RLLaserOnInsertWidget::load(const QString& text)
{
    QString name;
    QStringList arguments;
    if (!qellaser::util::extractFunctionAndParameters(text, name, arguments))
        return;
    if (!arguments.isEmpty())
        ui->cbxLaserDataID->setCurrentText(Quotes::strip(arguments.first()));
    const bool hasWait = arguments.size() > 1;
    ui->cbxStartMode->setCurrentIndex(hasWait ? 1 : 0);
    if (hasWait)
        loadWait(arguments.at(1));
    updateWaitVisibility();
}

// The box takes the nearest of its range.
void RLLaserOnInsertWidget::loadWait(const QString& wait)
{
    bool isNumber = false;
    const int milliseconds = wait.toInt(&isNumber);
    if (isNumber)
        ui->spinInPlaceWait->setValue(milliseconds);
}

QString RLLaserOnInsertWidget::BuildText()
{
    const QString schedule = Quotes::add(ui->cbxLaserDataID->currentText());
    if (!isSpotWeld())
        return QString(QLatin1String("LaserOn(%1);")).arg(schedule);
    const QString wait = QString::number(ui->spinInPlaceWait->value());
    return QString(QLatin1String("LaserOn(%1, %2);")).arg(schedule, wait);
}

bool RLLaserOnInsertWidget::CheckInsert()
{
    return CheckReplace();
}

bool RLLaserOnInsertWidget::CheckReplace()
{
    return !ui->cbxLaserDataID->currentText().isEmpty();
}

bool RLLaserOnInsertWidget::isSpotWeld() const
{
    return ui->cbxStartMode->currentData().toInt() == SpotWeldStart;
}

void RLLaserOnInsertWidget::updateWaitVisibility()
{
    const bool isVisible = isSpotWeld();
    ui->labelInPlaceWait->setVisible(isVisible);
    ui->spinInPlaceWait->setVisible(isVisible);
}

} // namespace qelplugin
