#pragma once

#include "MessageModel.h"
#include "PluginLoader.h"
#include "qelplugin.h"

#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace pendant {

class Controller;
class Drawer;
class FaultPanel;
class KeyColumn;
class LoginPanel;
class MessageStrip;
class PluginPage;
class ProgramPage;
class TopBar;

/// The pendant's window: status bar, the plugin's page between the two columns of keys, messages.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    /// The controller must outlive the window.
    explicit MainWindow(Controller& controller, QWidget* parent = nullptr);
    ~MainWindow() override;

    // What plugins hand over; the widgets are taken over.
    void addPage(const QString& plugin, QWidget* page);
    void addIndicator(QWidget* indicator, int position);
    void setKeys(const QString& plugin, const QString& group,
                 const QList<qelplugin::PhysicalButton>& firstList,
                 const QList<qelplugin::PhysicalButton>& secondList);
    void setKeysActive(const QString& plugin, const QString& group, bool active);
    void showMessage(const QString& plugin, int level, const QString& text);

    /// What the operator reads for the plugin's registered name.
    void setPageTitle(const QString& plugin, const QString& title);
    void setReports(const QVector<PluginReport>& reports);
    void showUser(int level);
    /// Leaves the page and comes back to it, so that it reads its record and the user anew.
    void reopenPage();
    /// Lets every key go that is held.
    void releaseKeys();
    /// Deletes all that came from plugins: keys, pages and indicators.
    void dropPlugins();

    const MessageModel& messages() const { return history; }

Q_SIGNALS:
    void connectionClicked();
    void powerClicked();
    void levelChosen(int level);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(Controller& controller);
    void follow(const Controller& controller);
    QWidget* buildBody();
    QWidget* buildPages();
    void addPanel(const QString& name, const QString& caption, QWidget* content);
    QWidget* buildLog(const Controller& controller);
    void selectPage(int index);
    void dropTab(int index);
    void toggleLogin();
    void clearMessages();
    void showProgram(bool on);
    void showTitle();
    void placePanels();

    MessageModel history;
    TopBar* topBar;
    KeyColumn* leftKeys;
    KeyColumn* rightKeys;
    QTabBar* tabs;
    QStackedWidget* pages;
    QStackedWidget* centre; ///< the plugins' pages or the robot programs
    MessageStrip* strip;
    Drawer* drawer;
    LoginPanel* login;
    PluginPage* pluginPage;
    ProgramPage* programPage;
};

} // namespace pendant
