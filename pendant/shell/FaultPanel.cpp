#include "FaultPanel.h"

#include "Controller.h"
#include "FaultTable.h"
#include "Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

#include <utility>

namespace pendant {

namespace {

constexpr int Columns = 2;

} // namespace

FaultPanel::FaultPanel(Controller& controller, QWidget* parent)
    : QWidget(parent)
    , machine(controller)
    , grid(new QGridLayout(this))
{
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Theme::px(24));
    grid->setVerticalSpacing(Theme::px(2));
    addSwitch(
        "connection", tr("Connection dropped"), [this] { return !machine.isConnected(); },
        [this](bool on) { machine.setConnected(!on); });
    addSwitch(
        "power", tr("Robot powered"), [this] { return machine.isPowered(); },
        [this](bool on) { machine.setPowered(on); });
    addSwitch(
        "virtual", tr("Cell in virtual welding"), [this] { return machine.isVirtualWelding(); },
        [this](bool on) { machine.setVirtualWelding(on); });
    for (const FaultRow& row : faultRows())
        addFault(row);
    grid->setRowStretch(grid->rowCount(), 1);
    for (int column = 0; column < Columns; ++column)
        grid->setColumnStretch(column, 1);
    connect(&machine, &Controller::connectionChanged, this, &FaultPanel::load);
    connect(&machine, &Controller::powerChanged, this, &FaultPanel::load);
    connect(&machine, &Controller::recordChanged, this, &FaultPanel::load);
}

QCheckBox* FaultPanel::addSwitch(const char* name, const QString& caption,
                                 std::function<bool()> read, const std::function<void(bool)>& turn)
{
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(QStringLiteral("switch_") + QString::fromLatin1(name));
    connect(box, &QCheckBox::clicked, this, turn);
    switches.push_back({box, std::move(read)});
    place(box);
    return box;
}

void FaultPanel::addFault(const FaultRow& row)
{
    if (row.flag)
        addFlag(row);
    else if (row.choices)
        addChoice(row);
    else
        addNumber(row);
}

void FaultPanel::addFlag(const FaultRow& row)
{
    auto* box = new QCheckBox(tr(row.caption), this);
    box->setObjectName(QStringLiteral("fault_") + QString::fromLatin1(row.name));
    box->setToolTip(tr(row.hint));
    const auto flag = row.flag;
    connect(box, &QCheckBox::clicked, this,
            [this, flag](bool on) { turn([&](Faults& faults) { faults.*flag = on; }); });
    loaders.emplace_back([box, flag](const Faults& faults) { box->setChecked(faults.*flag); });
    place(box);
}

void FaultPanel::addNumber(const FaultRow& row)
{
    auto* box = new QSpinBox(this);
    box->setRange(row.minimum, row.maximum);
    box->setSuffix(QString::fromLatin1(row.unit));
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    const auto number = row.number;
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this,
            [this, number](int value) { turn([&](Faults& faults) { faults.*number = value; }); });
    loaders.emplace_back([box, number](const Faults& faults) {
        const QSignalBlocker quiet(box);
        box->setValue(faults.*number);
    });
    place(captionOf(row, box), box);
}

void FaultPanel::addChoice(const FaultRow& row)
{
    auto* box = new QComboBox(this);
    box->addItem(tr("none"));
    box->addItems(row.choices());
    const auto number = row.number;
    connect(box, qOverload<int>(&QComboBox::activated), this,
            [this, number](int value) { turn([&](Faults& faults) { faults.*number = value; }); });
    loaders.emplace_back(
        [box, number](const Faults& faults) { box->setCurrentIndex(faults.*number); });
    place(captionOf(row, box), box);
}

QLabel* FaultPanel::captionOf(const FaultRow& row, QWidget* field)
{
    auto* caption = new QLabel(tr(row.caption), this);
    caption->setToolTip(tr(row.hint));
    caption->setBuddy(field);
    field->setObjectName(QStringLiteral("fault_") + QString::fromLatin1(row.name));
    field->setFixedWidth(Theme::px(110));
    return caption;
}

void FaultPanel::place(QWidget* widget, QWidget* field)
{
    auto* cell = new QHBoxLayout;
    cell->addWidget(widget, 1);
    if (field)
        cell->addWidget(field);
    grid->addLayout(cell, placed / Columns, placed % Columns);
    ++placed;
}

void FaultPanel::turn(const std::function<void(Faults&)>& change)
{
    Faults faults = machine.faults();
    change(faults);
    machine.setFaults(faults);
    Q_EMIT faultsChanged();
}

void FaultPanel::load()
{
    for (const Switch& each : switches)
        each.box->setChecked(each.read());
    for (const auto& loadFault : loaders)
        loadFault(machine.faults());
}

void FaultPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    load();
}

} // namespace pendant
