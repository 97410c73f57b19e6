#pragma once

#include "Chance.h"
#include "Failure.h"
#include "Model.h"
#include "TourStage.h"
#include "Witness.h"

#include <QImage>
#include <QVector>

#include <array>
#include <vector>

class QAbstractItemView;
class QComboBox;

namespace soak {

using pendant::latin;
using pendant::shown;

/// Entries of the plugin's navigation.
enum class Page { Setting, Io, Curves, Data, Tracking };
constexpr int PageCount = 5;

/// The pendant, the hand at it, what is expected of it, and what is drawn: all that an action
/// works on. What cannot be done as an operator would throws a Failure.
class Scene
{
public:
    Scene(const pendant::Options& options, quint32 seed);

    pendant::TourStage stage;
    Witness witness;
    Model model;
    Chance chance;
    QString note; ///< what the action has drawn, for the report

    // The state of the screen, as far as the model needs it.
    Page page = Page::Setting;
    std::array<bool, 4> computed{}; ///< charts
    /// Lines of the open program at each step of its history.
    std::vector<QStringList> history;
    int historyIndex = 0;
    QImage realWelding; ///< the picture of the work mode
    int timesOpened = 0;
    bool mainIsOn = false; ///< the main switch on "Weld Setup"
    bool ioIsTrue = true;  ///< "Weld I/O" was read without a fault

    /// A new pendant on the same cell; the one before is closed and its libraries are gone.
    void reopen();
    /// The plugin was made: its pages are as after a start.
    void pagesAreNew();

    // Touches.
    void click(const QString& name);
    void click(QWidget* widget);
    void clickRow(const QString& view, int row, int column = 0);
    void choose(QComboBox* box, int index);
    void enter(QWidget* field, const QString& text);
    /// False when the tabs are locked: another one may be open then.
    bool openTab(const QString& tabs, const QString& title);
    QWidget* widget(const QString& name);
    template<typename Widget>
    Widget* widget(const QString& name)
    {
        auto* found = qobject_cast<Widget*>(widget(name));
        demand(found, QStringLiteral("\"%1\" is another widget").arg(name));
        return found;
    }
    bool isVisible(const QString& name);

    // Ways. Each leaves what is in the way and tells the model what that does.
    void leavePanels();
    void showPages();
    void showPrograms();
    void goTo(Page entry);
    QWidget* pageWidget();
    void logIn(int level);
    void turnConnection();
    void turnPower();
    /// A page was shown, or read its record anew: what it tells then, and that it shows what is
    /// stored where it can.
    void pageRead();

    /// As the controller has it, whatever is to be read and whether the connection is up.
    QJsonValue stored(const QString& record);
    /// Outcome of a command in the controller's log of this step, when it was sent: its code.
    std::optional<int> codeOf(const QString& command) const;

private:
    void compareCurves();
    void compareLists();
};

} // namespace soak
