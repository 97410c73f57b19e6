#pragma once

#include "ProgramEditor.h"

#include <QWidget>

#include <functional>

class QStackedWidget;

namespace pendant {

class Controller;
class ProgramList;
class QuestionPanel;

/// Where the operator is among the robot programs.
struct ProgramWork
{
    OpenProgram program;
    bool isOpen = false; ///< the editor is in view, and not the list
    QString selected;    ///< in the list
};

/// The robot programs: the list of those on the controller, and the editor of one.
class ProgramPage : public QWidget
{
    Q_OBJECT

public:
    /// The controller must outlive the page.
    explicit ProgramPage(Controller& controller, const ProgramWork& work = {},
                         QWidget* parent = nullptr);

    /// Opens a program of the controller. What is open must have been saved or given up.
    bool open(const QString& name);
    bool save();
    bool hasUnsaved() const;
    /// For the page that comes after this one.
    ProgramWork handOver() const;
    /// Goes on at once when nothing would be lost, else when the operator has decided so.
    void leave(const std::function<void()>& goOn);

    /// Lets everything go that came from plugins.
    void dropPlugins();
    void setPluginSheet(const QString& sheet);

Q_SIGNALS:
    void complained(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void giveUp();

    Controller& machine;
    QuestionPanel* question;
    QStackedWidget* stack;
    ProgramList* list;
    ProgramEditor* editor;
};

} // namespace pendant
