#pragma once

#include <QWidget>

class QListWidget;
class QPushButton;

namespace pendant {

class Controller;
class QuestionPanel;

/// The robot programs that the controller keeps.
class ProgramList : public QWidget
{
    Q_OBJECT

public:
    /// Both must outlive the list.
    ProgramList(Controller& controller, QuestionPanel& question, QWidget* parent = nullptr);

    /// What the operator reads when the controller does not give a program out.
    static QString unreadable(const QString& name);

    /// The selected program; empty when there is none.
    QString current() const;
    void select(const QString& name);

    /// Stores the file as a program of the name that the file has, byte for byte.
    bool importFile(const QString& file);
    /// Writes the selected program to the file, byte for byte.
    bool exportFile(const QString& file);

Q_SIGNALS:
    void openClicked(const QString& name);
    /// Something did not work; the text says what and why.
    void complained(const QString& text);

private:
    using Action = void (ProgramList::*)();

    QPushButton* addButton(const char* name, const QString& caption, Action action);
    void load();
    void makeNew();
    void openCurrent();
    void renameCurrent();
    void removeCurrent();
    void chooseImport();
    void chooseExport();
    bool settle(bool done, const QString& error, const QString& name);

    Controller& machine;
    QuestionPanel& ask;
    QListWidget* list;
    QList<QPushButton*> needSelection;
};

} // namespace pendant
