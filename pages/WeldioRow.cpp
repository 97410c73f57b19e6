#include "WeldioRow.h"

#include "BoxModels.h"
#include "EnableButton.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int RegisterType = 2;
constexpr int KindsOfAnalogue = 3;

/// The lengths of the host's registers. They are read from the first question for one on.
struct LengthTable
{
    /// Of registers of one name the last counts.
    void readSource()
    {
        isRead = true;
        for (const QJsonValue& each : qAsConst(source)) {
            const QJsonObject record = each.toObject();
            const int length = record.value(QLatin1String("len")).toInt(1);
            if (length > 1)
                registerLengths.insert(record.value(QLatin1String("name")).toString(), length);
            else if (!registerLengths.isEmpty())
                registerLengths.remove(record.value(QLatin1String("name")).toString());
        }
        registerLengths.remove(QString());
    }

    QJsonArray source;
    bool isRead = true;
    QHash<QString, int> registerLengths; ///< by name; those of more than one place
};

LengthTable& lengthTable()
{
    static LengthTable table;
    return table;
}

/// The popup of a long register has a scroll bar, which leaves no room for a number within the
/// width of the box.
int popupWidth(const QComboBox* box)
{
    if (box->count() <= box->maxVisibleItems())
        return 0;
    const QAbstractItemView* view = box->view();
    view->ensurePolished();
    const QModelIndex widest = box->model()->index(box->count() - 1, 0);
    return view->sizeHintForIndex(widest).width() + view->verticalScrollBar()->sizeHint().width() +
           2 * view->frameWidth();
}

void fillBias(QComboBox* box, int length, int number, bool shown)
{
    const QSignalBlocker blocker(box);
    const int before = box->count();
    auto* numbers = dynamic_cast<NumberListModel*>(box->model());
    if (numbers)
        numbers->setCount(length);
    if (box->count() != before)
        box->view()->setMinimumWidth(popupWidth(box));
    box->setCurrentIndex(std::clamp(number, 1, box->count()) - 1);
    box->setVisible(shown);
}

} // namespace

namespace RegisterLengths {

void read(const QJsonValue& registers)
{
    LengthTable& table = lengthTable();
    const QJsonArray now = registers.toArray();
    if (now != table.source) {
        table.isRead = false;
        table.registerLengths.clear();
    }
    table.source = now; // shared with the host: the next comparison costs nothing
}

int of(const QString& name)
{
    LengthTable& table = lengthTable();
    if (!table.isRead)
        table.readSource();
    return table.registerLengths.value(name, 1);
}

} // namespace RegisterLengths

QStringList WeldioRow::offeredPorts() const
{
    return typeBox && portSource ? portSource(typeBox->currentIndex()) : QStringList();
}

QString WeldioRow::portText() const
{
    return portBox ? portBox->currentText() : QString();
}

bool WeldioRow::isRegister() const
{
    if (!typeBox)
        return false;
    const int registerIndex = typeBox->count() == KindsOfAnalogue ? RegisterType : 1;
    return typeBox->currentIndex() == registerIndex;
}

int WeldioRow::recordType() const
{
    if (!typeBox)
        return 0;
    if (typeBox->count() == KindsOfAnalogue || !digital)
        return typeBox->currentIndex();
    return isRegister() ? RegisterType : 0;
}

void WeldioRow::selectRecordType(int type) const
{
    if (!typeBox)
        return;
    if (typeBox->count() != KindsOfAnalogue && digital)
        type = type == RegisterType ? 1 : 0;
    typeBox->setCurrentIndex(type);
}

int WeldioRow::recordBias() const
{
    if (!biasBox || !isRegister())
        return 0;
    return std::max(0, biasBox->currentText().toInt() - 1);
}

bool WeldioRow::isSwitchedOn() const
{
    return hasSwitch && enableSwitch && enableSwitch->isChecked();
}

bool WeldioRow::needsPort() const
{
    return portBox && (portRequired || isSwitchedOn());
}

bool WeldioRow::usesPort() const
{
    return portBox && (portCounted || isSwitchedOn());
}

void WeldioRow::updateBias(int preferred) const
{
    if (!typeBox || !portBox || !biasBox)
        return;
    const QString port = portText().trimmed();
    if (!isRegister() || port.isEmpty()) {
        fillBias(biasBox, 1, 1, false);
        return;
    }
    const int number = preferred > 0 ? preferred : std::max(1, biasBox->currentText().toInt());
    fillBias(biasBox, RegisterLengths::of(port), number, true);
    reselectBias();
}

void WeldioRow::reselect(QComboBox* box)
{
    if (!box)
        return;
    const QSignalBlocker blocker(box);
    const int index = box->currentIndex();
    box->setCurrentIndex(-1);
    box->setCurrentIndex(index);
    box->update();
}

void WeldioRow::applyEditable(bool editable) const
{
    const bool isOn = !hasSwitch || !enableSwitch || enableSwitch->isChecked();
    if (enableSwitch)
        enableSwitch->setEnabled(editable);
    setBoxesEnabled(editable && isOn);
    if (nameLabel)
        nameLabel->setEnabled(!editable || isOn);
}

void WeldioRow::setBoxesEnabled(bool enabled) const
{
    for (QComboBox* box : {typeBox, portBox, biasBox}) {
        if (box)
            box->setEnabled(enabled);
    }
}
