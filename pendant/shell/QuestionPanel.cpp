#include "QuestionPanel.h"

#include "Theme.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pendant {

namespace {

constexpr int CardWidth = 380; // for 96 dots per inch

} // namespace

QuestionPanel::QuestionPanel(QWidget* parent)
    : QFrame(parent)
    , card(new QFrame(this))
    , question(new QLabel(card))
    , name(new QLineEdit(card))
    , row(new QHBoxLayout)
{
    setObjectName(QStringLiteral("questionPanel"));
    card->setObjectName(QStringLiteral("questionCard"));
    question->setObjectName(QStringLiteral("label_question"));
    question->setWordWrap(true);
    name->setObjectName(QStringLiteral("edit_name"));
    auto* column = new QVBoxLayout(card);
    const int gap = Theme::px(14);
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(gap);
    column->addWidget(question);
    column->addWidget(name);
    column->addLayout(row);
    row->setSpacing(Theme::px(8));
    Theme::dress(this);
    parent->installEventFilter(this);
    hide();
}

void QuestionPanel::ask(const QString& text, const std::vector<Answer>& answers)
{
    name->hide();
    open(text);
    for (const Answer& answer : answers)
        addAnswer(answer);
    place();
}

void QuestionPanel::askName(const QString& text, const QString& preset,
                            const std::function<bool(const QString&)>& accept)
{
    name->show();
    name->setText(preset);
    open(text);
    addAnswer({"ok", tr("OK"), [this, text, accept] {
                   const QString entered = name->text();
                   if (!accept(entered))
                       askName(text, entered, accept);
               }});
    place();
    name->setFocus();
    name->selectAll();
}

void QuestionPanel::open(const QString& text)
{
    question->setText(text);
    while (QLayoutItem* item = row->takeAt(0)) {
        // It may be the one that was just pressed.
        if (QWidget* button = item->widget()) {
            button->hide();
            button->setObjectName(QString());
            button->deleteLater();
        }
        delete item;
    }
    row->addStretch(1);
    addAnswer({"cancel", tr("Cancel"), {}});
}

void QuestionPanel::addAnswer(const Answer& answer)
{
    auto* button = new QPushButton(answer.caption, card);
    button->setObjectName(QStringLiteral("answer_") + QString::fromLatin1(answer.name));
    row->addWidget(button);
    const auto action = answer.action;
    connect(button, &QPushButton::clicked, this, [this, action] {
        hide();
        if (action)
            action();
    });
}

void QuestionPanel::place()
{
    setGeometry(parentWidget()->rect());
    const int wide = qMin(Theme::px(CardWidth), width());
    const QSize size(wide, qMax(card->sizeHint().height(), card->heightForWidth(wide)));
    card->setGeometry(QRect(QPoint((width() - wide) / 2, height() / 5), size));
    raise();
    show();
}

bool QuestionPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        place();
    return QFrame::eventFilter(watched, event);
}

} // namespace pendant
