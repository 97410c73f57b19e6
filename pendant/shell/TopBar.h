#pragma once

#include <QFrame>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace pendant {

class LampButton;

/// The status bar at the top: connection, robot power, the page's name, the plugins' indicators and
/// the user.
class TopBar : public QFrame
{
    Q_OBJECT

public:
    explicit TopBar(QWidget* parent = nullptr);

    void showConnection(bool up);
    void showPower(bool on);
    void showUser(int level);
    void showTitle(const QString& text);
    /// Takes the indicator over. Those with the lower position stand further left.
    void addIndicator(QWidget* indicator, int position);
    void clearIndicators();
    /// Shows the robot programs, or the page of a plugin.
    void setProgram(bool on);

Q_SIGNALS:
    void connectionClicked();
    void powerClicked();
    void userClicked();
    void programToggled(bool on);
    void languageClicked();
    void themeClicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    LampButton* addButton(const char* name, const QString& caption);
    QPushButton* addSwitch(const char* name, const QString& caption, const QString& hint);
    void paintLamps();

    bool isConnected = false;
    bool isPowered = false;

    QHBoxLayout* row;
    QHBoxLayout* indicators;
    LampButton* connection;
    LampButton* power;
    QLabel* title;
    QPushButton* program;
    LampButton* user;
};

} // namespace pendant
