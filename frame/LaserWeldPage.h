#pragma once

#include <QWidget>

#include <memory>

class CharacteristicsCurvePage;
class LaserTrackingPage;
class QToolButton;
class WeldParameterPage;
class WeldSettingPage;
class WeldioPage;

namespace Ui {
class LaserWeldPage;
}

/// The central page: the navigation column and the stack of the five configuration pages.
///
/// Each show selects the page that was open last, the first one at the first show.
class LaserWeldPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserWeldPage(QWidget* parent = nullptr);
    ~LaserWeldPage() override;

    /// Styles the pages; called when the host renders the plugin.
    void renderPages();

public Q_SLOTS:
    /// True locks the configuration, false frees it. For the host, through the meta-object.
    void setPageStatus(bool enable);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void arrangeForm();
    void createPages();
    void addPages();
    void styleForm();
    /// One entry of the navigation, and its page in the stack; a null page is left out.
    void addPage(const QString& buttonText, const QString& title, QWidget* page,
                 const QString& iconPath);
    QToolButton* addButton(const QString& text, const QString& iconPath, int index);
    void openPage(QToolButton* button, const QString& title, int index);
    QList<QToolButton*> navigationButtons() const;

    std::unique_ptr<Ui::LaserWeldPage> ui;
    QToolButton* currentButton = nullptr; ///< the one clicked last
    WeldSettingPage* weldSettingPage = nullptr;
    WeldioPage* weldioPage = nullptr;
    CharacteristicsCurvePage* curvePage = nullptr;
    WeldParameterPage* weldParameterPage = nullptr;
    LaserTrackingPage* trackingPage = nullptr;
    int trackingPageIndex = -1;
};
