#include "SkeletonForm.h"

#include "Theme.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>
#include <QStyledItemDelegate>

namespace pendant {

namespace {

constexpr int InputWidth = 190; // for 96 dots per inch

} // namespace

SkeletonForm::SkeletonForm(const Skeleton& skeleton, QWidget* parent)
    : qelplugin::RLContentBase(parent)
    , form(skeleton)
{
    setObjectName(QStringLiteral("skeletonForm"));
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(Theme::px(12));
    grid->setVerticalSpacing(Theme::px(6));
    Theme::dress(this);
    int number = 0;
    for (const SkeletonField& field : form.fields()) {
        auto* label = new QLabel(field.label, this);
        label->setWordWrap(true);
        QWidget* input = addInput(field);
        input->setObjectName(QStringLiteral("input_%1").arg(++number));
        label->setBuddy(input);
        grid->addWidget(label, number, 0);
        grid->addWidget(input, number, 1);
    }
    if (number == 0)
        grid->addWidget(new QLabel(tr("Nothing to fill in."), this), 0, 0);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(number + 1, 1);
}

QWidget* SkeletonForm::addInput(const SkeletonField& field)
{
    return field.kind == SkeletonField::Kind::Number ? addNumber(field) : addChoice(field);
}

QWidget* SkeletonForm::addChoice(const SkeletonField& field)
{
    auto* box = new QComboBox(this);
    box->setItemDelegate(new QStyledItemDelegate(box)); // the one that the style sheet reaches
    box->setMinimumWidth(Theme::px(InputWidth));
    box->addItems(field.entries);
    inputs.push_back({[box] { return box->currentText(); },
                      [box](const QString& value) {
                          if (box->findText(value) < 0)
                              box->addItem(value);
                          box->setCurrentIndex(box->findText(value));
                      }});
    return box;
}

QWidget* SkeletonForm::addNumber(const SkeletonField& field)
{
    auto* box = new QSpinBox(this);
    box->setProperty("steps", true);
    box->setAlignment(Qt::AlignCenter);
    box->setMinimumWidth(Theme::px(InputWidth));
    box->setRange(field.minimum, field.maximum);
    inputs.push_back({[box] { return QString::number(box->value()); },
                      [box](const QString& value) {
                          // Beyond what an int holds it is beyond the range as well.
                          const double number = value.toDouble();
                          box->setValue(static_cast<int>(
                              qBound<double>(box->minimum(), number, box->maximum())));
                      }});
    return box;
}

void SkeletonForm::FillWith(const QString& text)
{
    const auto values = form.read(text);
    if (!values)
        return;
    for (std::size_t i = 0; i < inputs.size(); ++i)
        inputs[i].show(values->value(static_cast<int>(i)));
}

QString SkeletonForm::BuildText()
{
    QStringList values;
    for (const Input& input : inputs)
        values << input.read();
    return form.write(values);
}

} // namespace pendant
