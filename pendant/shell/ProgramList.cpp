#include "ProgramList.h"

#include "Controller.h"
#include "QuestionPanel.h"
#include "Theme.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSaveFile>

namespace pendant {

ProgramList::ProgramList(Controller& controller, QuestionPanel& question, QWidget* parent)
    : QWidget(parent)
    , machine(controller)
    , ask(question)
    , list(new QListWidget(this))
{
    list->setObjectName(QStringLiteral("list_programs"));
    auto* row = new QHBoxLayout(this);
    auto* column = new QVBoxLayout;
    row->addWidget(list, 1);
    row->addLayout(column);
    needSelection << addButton("openProgram", tr("Open"), &ProgramList::openCurrent);
    addButton("newProgram", tr("New"), &ProgramList::makeNew);
    needSelection << addButton("renameProgram", tr("Rename"), &ProgramList::renameCurrent)
                  << addButton("removeProgram", tr("Delete"), &ProgramList::removeCurrent);
    addButton("importProgram", tr("Import"), &ProgramList::chooseImport);
    needSelection << addButton("exportProgram", tr("Export"), &ProgramList::chooseExport);
    const auto buttons = findChildren<QPushButton*>();
    for (QPushButton* button : buttons)
        column->addWidget(button);
    column->addStretch(1);
    Theme::dress(this);
    connect(list, &QListWidget::currentRowChanged, this, [this](int current) {
        for (QPushButton* button : qAsConst(needSelection))
            button->setEnabled(current >= 0);
    });
    connect(list, &QListWidget::itemActivated, this, &ProgramList::openCurrent);
    connect(&machine, &Controller::programsChanged, this, &ProgramList::load);
    connect(&machine, &Controller::connectionChanged, this, &ProgramList::load);
    load();
}

QPushButton* ProgramList::addButton(const char* name, const QString& caption, Action action)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QStringLiteral("button_") + QString::fromLatin1(name));
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

QString ProgramList::unreadable(const QString& name)
{
    return tr("The program \"%1\" cannot be read. Check the connection to the controller.")
        .arg(name);
}

QString ProgramList::current() const
{
    return list->currentItem() ? list->currentItem()->text() : QString();
}

void ProgramList::load()
{
    const QString before = current();
    list->clear();
    list->addItems(machine.programs());
    for (QPushButton* button : qAsConst(needSelection))
        button->setEnabled(false);
    select(before);
    if (list->currentRow() < 0)
        list->setCurrentRow(0);
}

void ProgramList::select(const QString& name)
{
    const auto found = list->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty())
        list->setCurrentItem(found.first());
}

bool ProgramList::settle(bool done, const QString& error, const QString& name)
{
    if (done)
        select(name);
    else
        Q_EMIT complained(error);
    return done;
}

void ProgramList::makeNew()
{
    ask.askName(tr("Name of the new program:"), {}, [this](const QString& name) {
        QString error;
        return settle(machine.createProgram(name, &error), error, name);
    });
}

void ProgramList::openCurrent()
{
    if (!current().isEmpty())
        Q_EMIT openClicked(current());
}

void ProgramList::renameCurrent()
{
    const QString from = current();
    ask.askName(tr("New name of \"%1\":").arg(from), from, [this, from](const QString& name) {
        QString error;
        return name == from || settle(machine.renameProgram(from, name, &error), error, name);
    });
}

void ProgramList::removeCurrent()
{
    const QString name = current();
    ask.ask(tr("Delete the program \"%1\"? It cannot be brought back.").arg(name),
            {{"delete", tr("Delete"), [this, name] {
                  QString error;
                  settle(machine.removeProgram(name, &error), error, {});
              }}});
}

void ProgramList::chooseImport()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Import a program"));
    if (!file.isEmpty())
        importFile(file);
}

void ProgramList::chooseExport()
{
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Export the program"), current() + QStringLiteral(".txt"));
    if (!file.isEmpty())
        exportFile(file);
}

// A program that is there already is never overwritten: its name is refused.
bool ProgramList::importFile(const QString& file)
{
    QFile source(file);
    QString error;
    const QString name = QFileInfo(file).completeBaseName();
    if (!source.open(QIODevice::ReadOnly))
        return settle(false,
                      tr("The file %1 cannot be read: %2. Choose another one.")
                          .arg(file, source.errorString()),
                      name);
    const QByteArray text = source.readAll();
    if (!machine.createProgram(name, &error))
        return settle(false, error, name);
    const bool done = machine.saveProgram(name, text, &error);
    if (!done)
        machine.removeProgram(name);
    return settle(done, error, name);
}

bool ProgramList::exportFile(const QString& file)
{
    QByteArray text;
    if (!machine.readProgram(current(), &text))
        return settle(false, unreadable(current()), {});
    QSaveFile target(file);
    const bool done =
        target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.commit();
    return settle(done,
                  tr("The file %1 cannot be written: %2. Choose another place.")
                      .arg(file, target.errorString()),
                  current());
}

} // namespace pendant
