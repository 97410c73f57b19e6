#pragma once

#include "MessageModel.h"
#include "PluginLoader.h"
#include "qelplugin.h"

#include <QWidget>

#include <functional>

class QPlainTextEdit;
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
struct ProgramWork;

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
    /// The theme sheet of the plugins.
    void setPluginSheet(const QString& sheet);
    void setReports(const QVector<PluginReport>& newReports);
    void showUser(int level);
    /// Leaves the page and comes back to it, so that it reads its record and the user anew.
    void reopenPage();
    /// Lets every key go that is held.
    void releaseKeys();
    /// Builds everything in the window anew, in the language that is installed. What came from
    /// plugins has been dropped; `makePlugins` brings it back. What the operator had open, wrote
    /// and was told stays.
    void renew(const std::function<void()>& makePlugins);
    /// Deletes all that came from plugins: keys, pages and indicators.
    void dropPlugins();

    const MessageModel& messages() const { return history; }

Q_SIGNALS:
    void connectionClicked();
    void powerClicked();
    void levelChosen(int level);
    void languageClicked();
    void themeClicked();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(const ProgramWork& work);
    void fill();
    void join();
    void follow();
    QWidget* buildBody();
    QWidget* buildPages();
    void addPanel(const QString& name, const QString& caption, QWidget* content);
    QWidget* buildLog();
    void selectPage(int index);
    void dropTab(int index);
    void toggleLogin();
    void clearMessages();
    void showProgram(bool on);
    void showTitle();
    void placePanels();
    void confine();
    void placeKeys();

    Controller& machine;
    MessageModel history;
    int userLevel = 0;
    QVector<PluginReport> reports;
    TopBar* topBar = nullptr;
    KeyColumn* leftKeys = nullptr;
    KeyColumn* rightKeys = nullptr;
    QTabBar* tabs = nullptr;
    QStackedWidget* pages = nullptr;
    QStackedWidget* centre = nullptr; ///< the plugins' pages or the robot programs
    MessageStrip* strip = nullptr;
    Drawer* drawer = nullptr;
    LoginPanel* login = nullptr;
    QPlainTextEdit* log = nullptr;
    PluginPage* pluginPage = nullptr;
    ProgramPage* programPage = nullptr;
};

} // namespace pendant
