#include "ProgramPage.h"

#include "Controller.h"
#include "ProgramList.h"
#include "QuestionPanel.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace pendant {

ProgramPage::ProgramPage(Controller& controller, const ProgramWork& work, QWidget* parent)
    : QWidget(parent)
    , machine(controller)
    , question(new QuestionPanel(this))
    , stack(new QStackedWidget(this))
    , list(new ProgramList(controller, *question))
    , editor(new ProgramEditor(work.program))
{
    setObjectName(QStringLiteral("programPage"));
    stack->addWidget(list);
    stack->addWidget(editor);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(stack);
    connect(list, &ProgramList::openClicked, this, &ProgramPage::open);
    connect(editor, &ProgramEditor::saveClicked, this, &ProgramPage::save);
    connect(editor, &ProgramEditor::leaveClicked, this,
            [this] { leave([this] { stack->setCurrentWidget(list); }); });
    connect(list, &ProgramList::complained, this, &ProgramPage::complained);
    connect(editor, &ProgramEditor::complained, this, &ProgramPage::complained);
    list->select(work.selected);
    if (work.isOpen)
        stack->setCurrentWidget(editor);
}

ProgramWork ProgramPage::handOver() const
{
    return {editor->handOver(), stack->currentWidget() == editor, list->current()};
}

bool ProgramPage::open(const QString& name)
{
    QByteArray text;
    if (!machine.readProgram(name, &text)) {
        Q_EMIT complained(ProgramList::unreadable(name));
        return false;
    }
    editor->load(name, text);
    list->select(name);
    stack->setCurrentWidget(editor);
    return true;
}

bool ProgramPage::save()
{
    QString error;
    const bool done = machine.saveProgram(editor->name(), editor->program().text(), &error);
    if (done)
        editor->program().history().setClean();
    else
        Q_EMIT complained(error);
    return done;
}

bool ProgramPage::hasUnsaved() const
{
    return editor->program().isModified();
}

void ProgramPage::giveUp()
{
    editor->load(editor->name(), {});
}

void ProgramPage::leave(const std::function<void()>& goOn)
{
    if (!hasUnsaved()) {
        goOn();
        return;
    }
    question->ask(tr("\"%1\" has changes that are not saved.").arg(editor->name()),
                  {{"discard", tr("Discard"),
                    [this, goOn] {
                        giveUp();
                        stack->setCurrentWidget(list);
                        goOn();
                    }},
                   {"save", tr("Save"), [this, goOn] {
                        if (save())
                            goOn();
                    }}});
}

void ProgramPage::dropPlugins()
{
    editor->dropInstructions();
}

void ProgramPage::setPluginSheet(const QString& sheet)
{
    editor->setPluginSheet(sheet);
}

void ProgramPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    editor->takeInstructions();
}

} // namespace pendant
