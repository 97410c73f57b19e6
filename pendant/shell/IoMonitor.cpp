#include "IoMonitor.h"

#include "Controller.h"
#include "Tables.h"
#include "Theme.h"
#include "WeldIo.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>

namespace pendant {

namespace {

enum Column { Name, Place, Value, ColumnCount };

// For 96 dots per inch.
constexpr int ValueWidth = 144;
constexpr int LeastNameWidth = 80;
constexpr int NarrowWidth = 440;
constexpr int LampSize = 14;
constexpr int Gap = 8;
constexpr int FieldMargin = 2;

constexpr double Largest = 999999;
constexpr int RealDecimals = 3;

QPixmap lamp(bool on)
{
    const int size = Theme::px(LampSize);
    const QColor colour = Theme::colour(on ? Theme::Good : Theme::Line);
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour.darker(130));
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(1, 1, size - 2, size - 2));
    return picture;
}

/// The element of a register is counted from 1, as the plugin's page does.
QString placeText(const SignalState& state)
{
    const Mapping& mapping = state.mapping;
    if (mapping.port.isEmpty())
        return IoMonitor::tr("none");
    QString text = mapping.port;
    if (state.place == RegisterPlace)
        text += QStringLiteral(" [%1]").arg(mapping.bias + 1.0);
    if (!state.trouble.isEmpty())
        return IoMonitor::tr("%1 (unusable)").arg(text);
    return mapping.isOn ? text : IoMonitor::tr("%1 (off)").arg(text);
}

QColor placeColour(const SignalState& state)
{
    if (!state.trouble.isEmpty())
        return Theme::colour(Theme::Bad);
    return Theme::colour(state.isMapped() && state.mapping.isOn ? Theme::Ink : Theme::Off);
}

QString onOff(bool on)
{
    return on ? IoMonitor::tr("On") : IoMonitor::tr("Off");
}

QString valueText(const SignalState& state)
{
    if (!state.isMapped())
        return {};
    return state.content == RegisterContent::Bit ? onOff(state.value != 0)
                                                 : QString::number(state.value, 'g', 9);
}

} // namespace

IoMonitor::IoMonitor(Controller& controller, QWidget* parent)
    : QWidget(parent)
    , machine(controller)
    , halves(new QHBoxLayout(this))
    , choices(new QVBoxLayout)
    , outputs(addTable("table_outputs"))
    , inputs(addTable("table_inputs"))
{
    halves->setContentsMargins(0, 0, 0, 0);
    halves->setSpacing(Theme::px(Gap));
    choices->setSpacing(Theme::px(Gap));
    halves->addLayout(choices);
    halves->addWidget(outputs, 1);
    halves->addWidget(inputs, 1);
    auto* group = new QButtonGroup(this);
    group->addButton(addChoice("button_outputs", tr("Outputs"), outputs));
    group->addButton(addChoice("button_inputs", tr("Inputs"), inputs));
    choices->addStretch(1);
    for (const WeldSignal& signal : weldSignals())
        rows.push_back(addRow(signal));
    inputs->hide();
    group->buttons().constFirst()->setChecked(true);
    connect(&machine, &Controller::ioChanged, this, [this] {
        if (isVisible())
            refresh();
    });
}

QTableWidget* IoMonitor::addTable(const char* name)
{
    auto* table = new QTableWidget(0, ColumnCount, this);
    table->setObjectName(QString::fromLatin1(name));
    table->setHorizontalHeaderLabels({tr("Signal"), tr("Mapped to"), tr("Value")});
    makeReadOnlyTable(table, {});
    auto* head = table->horizontalHeader();
    head->setStretchLastSection(false);
    head->setMinimumSectionSize(Theme::px(LeastNameWidth));
    head->setSectionResizeMode(Name, QHeaderView::Stretch);
    head->setSectionResizeMode(Place, QHeaderView::ResizeToContents);
    table->setColumnWidth(Value, Theme::px(ValueWidth));
    table->setIconSize(QSize(Theme::px(LampSize), Theme::px(LampSize)));
    return table;
}

QAbstractButton* IoMonitor::addChoice(const char* name, const QString& caption, QTableWidget* table)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setCheckable(true);
    choices->addWidget(button);
    connect(button, &QPushButton::toggled, table, &QWidget::setVisible);
    return button;
}

IoMonitor::Row IoMonitor::addRow(const WeldSignal& signal)
{
    QTableWidget* table = signal.isOutput ? outputs : inputs;
    Row row{table, table->rowCount(), nullptr, nullptr};
    table->insertRow(row.index);
    for (int column = 0; column < ColumnCount; ++column)
        table->setItem(row.index, column, new QTableWidgetItem);
    table->item(row.index, Name)->setText(tr(signal.caption));
    table->item(row.index, Name)->setToolTip(QString::fromLatin1(signal.key));
    if (!signal.isOutput)
        addInput(row, signal);
    return row;
}

void IoMonitor::addInput(Row& row, const WeldSignal& signal)
{
    const QString key = QString::fromLatin1(signal.key);
    // What is refused is put back.
    const auto set = [this, key](double value) {
        if (!machine.setInput(key, value))
            refresh();
    };
    QWidget* field = nullptr;
    if (signal.kind == SignalKind::Digital) {
        field = row.toggle = new QPushButton;
        row.toggle->setCheckable(true);
        connect(row.toggle, &QPushButton::clicked, this, [set](bool on) { set(on ? 1 : 0); });
    } else {
        field = row.number = new QDoubleSpinBox;
        row.number->setRange(-Largest, Largest);
        row.number->setButtonSymbols(QAbstractSpinBox::NoButtons);
        row.number->setKeyboardTracking(false);
        connect(row.number, qOverload<double>(&QDoubleSpinBox::valueChanged), this, set);
    }
    field->setObjectName(QStringLiteral("input_") + key);
    auto* cell = new QWidget;
    auto* middle = new QVBoxLayout(cell);
    const int margin = Theme::px(FieldMargin);
    middle->setContentsMargins(margin, margin, margin, margin);
    middle->addWidget(field);
    row.table->setCellWidget(row.index, Value, cell);
}

void IoMonitor::refresh()
{
    const QVector<SignalState> states = machine.ioSignals();
    for (int index = 0; index < states.size(); ++index)
        showState(rows[static_cast<size_t>(index)], states.at(index));
}

void IoMonitor::showState(const Row& row, const SignalState& state)
{
    auto* name = row.table->item(row.index, Name);
    auto* place = row.table->item(row.index, Place);
    const bool isUsed = state.isMapped() && state.mapping.isOn;
    name->setForeground(Theme::colour(isUsed ? Theme::Ink : Theme::Off));
    place->setText(placeText(state));
    place->setForeground(placeColour(state));
    place->setToolTip(state.trouble);
    if (row.toggle || row.number) {
        showInput(row, state);
        return;
    }
    auto* value = row.table->item(row.index, Value);
    const bool hasLamp = state.isMapped() && state.content == RegisterContent::Bit;
    value->setIcon(hasLamp ? QIcon(lamp(state.value != 0)) : QIcon());
    value->setText(valueText(state));
}

void IoMonitor::showInput(const Row& row, const SignalState& state)
{
    if (row.toggle) {
        row.toggle->setEnabled(state.isMapped());
        row.toggle->setChecked(state.value != 0);
        row.toggle->setText(onOff(state.value != 0));
        return;
    }
    const QSignalBlocker quiet(row.number);
    row.number->setEnabled(state.isMapped());
    const int decimals = state.content == RegisterContent::Real ? RealDecimals : 0;
    // Only what is new is set: what is being typed stays.
    if (row.number->decimals() != decimals)
        row.number->setDecimals(decimals);
    if (row.number->value() != state.value)
        row.number->setValue(state.value);
}

void IoMonitor::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void IoMonitor::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (Theme::isChange(*event) && isVisible())
        refresh();
}

void IoMonitor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isNarrow = width() < Theme::px(NarrowWidth);
    halves->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    choices->setDirection(isNarrow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

} // namespace pendant
