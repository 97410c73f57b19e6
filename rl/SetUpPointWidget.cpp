#include "SetUpPointWidget.h"

#include "CallText.h"
#include "Log.h"
#include "UiScale.h"

#include "ui_SetUpPointWidget.h"

#include <QDebug>
#include <QRegularExpression>

#include <set>

namespace {

const char IdleSheet[] = "\n\n        QPushButton{\n          background:rgb(211, 220, 230); "
                         "color:black;\n        }\n\n\n\n    ";
const char ActiveSheet[] =
    "\n\n        QPushButton{background:rgb(194, 37, 43);color:white;}\n\n    ";

const char Offs[] = "Offs";
const char RelTool[] = "RelTool";
constexpr size_t OffsValues = 3;
constexpr size_t RelToolValues = 6;

void setActive(QPushButton* button, bool active)
{
    UiScale::setStyleSheet(button, QLatin1String(active ? ActiveSheet : IdleSheet), button);
}

// Numbers in use behind the prefix. One that is too large for an int counts as 0.
std::set<int> takenNumbers(const QStringList& names, const QString& prefix)
{
    const QString pattern = QLatin1Char('^') + prefix + QLatin1String("(\\d+)$");
    const QRegularExpression expression(pattern); // clazy:exclude=use-static-qregularexpression
    std::set<int> taken;
    for (const QString& name : names) {
        const QRegularExpressionMatch match =
            expression.match(name); // clazy:exclude=use-static-qregularexpression
        if (match.hasMatch())
            taken.insert(match.captured(1).toInt());
    }
    return taken;
}

// The free name in place `index`, from 1; null below that.
QString nextFreeName(const QStringList& names, const QString& prefix, int index)
{
    if (index < 1)
        return {};
    // Every taken number up to the result moves it on by one.
    qint64 number = index;
    for (const int taken : takenNumbers(names, prefix)) {
        if (taken >= 1 && taken <= number)
            ++number;
    }
    return prefix + QString::number(number);
}

void warn(int line, const char* text)
{
    LOGW(LogTag::Plugin) << "SetUpPointWidget::setPointText"
                         << "(" << line << text;
}

bool isCallOf(const QString& function, const char* call)
{
    return function.compare(QLatin1String(call), Qt::CaseInsensitive) == 0;
}

// The entries are the name and the values.
bool hasValues(const QStringList& entries, size_t values)
{
    return size_t(entries.size()) == values + 1;
}

} // namespace

SetUpPointWidget::SetUpPointWidget(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::SetUpPointWidget)
{
    ui->setupUi(this);
    connect(ui->btnOffs, &QPushButton::clicked, this, &SetUpPointWidget::onBtnOffsClicked);
    connect(ui->btnReltool, &QPushButton::clicked, this, &SetUpPointWidget::onBtnRelToolClicked);
    setActive(ui->btnReltool, false);
    setActive(ui->btnOffs, false);
    setIndex(1);
}

SetUpPointWidget::~SetUpPointWidget() = default;

void SetUpPointWidget::setIndex(int index)
{
    m_index = index;
    refreshPointList();
    ui->wgtPointParam->hide();
}

void SetUpPointWidget::setLabelText(const QString& text)
{
    ui->lblPoint->setText(text);
}

QString SetUpPointWidget::pointText() const
{
    if (m_offsOn)
        return expression(Offs, OffsValues);
    if (m_relToolOn)
        return expression(RelTool, RelToolValues);
    return ui->cbxPoint->currentText();
}

void SetUpPointWidget::setPointText(const QString& text)
{
    if (!text.contains(QLatin1Char('(')) && !text.contains(QLatin1Char(')'))) {
        ui->cbxPoint->setCurrentText(text);
        return;
    }
    QString function;
    QStringList entries;
    if (!qellaser::util::extractFunctionAndParameters(text, function, entries)) {
        warn(__LINE__, "):ExtractFunctionAndParameters failed");
        return;
    }
    if (isCallOf(function, Offs)) {
        if (!hasValues(entries, OffsValues))
            return warn(__LINE__, "):Offs paramter number invalid");
        setActive(ui->btnOffs, true);
        load(entries);
        setMode(true, false);
        showParameters(false);
    } else if (isCallOf(function, RelTool)) {
        if (!hasValues(entries, RelToolValues))
            return warn(__LINE__, "):RelTool paramter number invalid");
        setActive(ui->btnReltool, true);
        load(entries);
        setMode(false, true);
        showParameters(true);
    }
}

void SetUpPointWidget::addPointIfMissing(const QString& tool, const QString& wobj)
{
    const QString name = ui->cbxPoint->currentText();
    if (ui->cbxPoint->findText(name) >= 0)
        return;
    // The box may be older than a point that another editor has added.
    if (qelplugin::qelPluginInterface().getPointNameList().contains(name)) {
        qDebug() << "Point" << name << "already exists, skip adding.";
        return;
    }
    qelplugin::qelPluginInterface().addCurrentPoint(name, false, tool, wobj);
}

void SetUpPointWidget::refreshPointList()
{
    qelplugin::InterfaceManager& host = qelplugin::qelPluginInterface();
    const QString proposal =
        nextFreeName(host.getPointNameList(), QString(QLatin1Char('p')), m_index);
    const QStringList names = host.getPointNameList();
    ui->cbxPoint->clear();
    ui->cbxPoint->addItems(names);
    if (!proposal.isNull())
        ui->cbxPoint->setCurrentText(proposal);
}

void SetUpPointWidget::onBtnOffsClicked()
{
    if (qobject_cast<QPushButton*>(sender()) != ui->btnOffs)
        return;
    setActive(ui->btnReltool, false);
    switchMode(ui->btnOffs, !m_offsOn, false);
    setMode(!m_offsOn, false);
}

void SetUpPointWidget::onBtnRelToolClicked()
{
    if (qobject_cast<QPushButton*>(sender()) != ui->btnReltool)
        return;
    setActive(ui->btnOffs, false);
    qDebug() << m_relToolOn;
    switchMode(ui->btnReltool, !m_relToolOn, true);
    setMode(false, !m_relToolOn);
}

std::array<QDoubleSpinBox*, 6> SetUpPointWidget::boxes() const
{
    return {ui->sbxX, ui->sbxY, ui->sbxZ, ui->sbxA, ui->sbxB, ui->sbxC};
}

QString SetUpPointWidget::expression(const char* call, size_t values) const
{
    QStringList arguments{ui->cbxPoint->currentText()};
    for (size_t each = 0; each < values; ++each)
        arguments << QString::number(boxes()[each]->value(), 'g', 6);
    return QLatin1String(call) + QLatin1Char('(') + arguments.join(QLatin1Char(',')) +
           QLatin1Char(')');
}

void SetUpPointWidget::load(const QStringList& entries)
{
    ui->cbxPoint->setCurrentText(entries.first());
    int entry = 0;
    for (QDoubleSpinBox* box : boxes())
        box->setValue(entries.value(++entry).toDouble());
}

void SetUpPointWidget::setMode(bool offs, bool relTool)
{
    m_offsOn = offs;
    m_relToolOn = relTool;
}

void SetUpPointWidget::showParameters(bool withAngles)
{
    ui->wgtPointParam->show();
    const std::initializer_list<QWidget*> angles{ui->lblAngle, ui->lblA, ui->sbxA, ui->lblB,
                                                 ui->sbxB,     ui->lblC, ui->sbxC};
    for (QWidget* each : angles)
        each->setVisible(withAngles);
}

void SetUpPointWidget::switchMode(QPushButton* button, bool on, bool withAngles)
{
    setActive(button, on);
    if (!on) {
        ui->wgtPointParam->hide();
        return;
    }
    for (QDoubleSpinBox* box : boxes())
        box->setValue(0);
    showParameters(withAngles);
}
