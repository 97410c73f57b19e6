#include "SkeletonForm.h"

#include "Theme.h"

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace pendant {

SkeletonForm::SkeletonForm(const Skeleton& skeleton, QWidget* parent)
    : qelplugin::RLContentBase(parent)
    , form(skeleton)
{
    setObjectName(QStringLiteral("skeletonForm"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(Theme::px(4));
    Theme::dress(this);
    int number = 0;
    for (const SkeletonField& field : form.fields()) {
        auto* label = new QLabel(field.label, this);
        label->setWordWrap(true);
        QWidget* input = addInput(field);
        input->setObjectName(QStringLiteral("input_%1").arg(++number));
        label->setBuddy(input);
        column->addWidget(label);
        column->addWidget(input);
    }
    if (number == 0)
        column->addWidget(new QLabel(tr("Nothing to fill in."), this));
    column->addStretch(1);
}

QWidget* SkeletonForm::addInput(const SkeletonField& field)
{
    return field.kind == SkeletonField::Kind::Number ? addNumber(field) : addChoice(field);
}

QWidget* SkeletonForm::addChoice(const SkeletonField& field)
{
    auto* box = new QComboBox(this);
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
