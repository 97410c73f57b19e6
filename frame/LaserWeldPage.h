#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class LaserWeldPage;
}

/// The central page: the navigation column and the stack of the five configuration pages.
class LaserWeldPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserWeldPage(QWidget* parent = nullptr);
    ~LaserWeldPage() override;

    /// Styles the pages; called when the host renders the plugin.
    void renderPages();

private:
    std::unique_ptr<Ui::LaserWeldPage> ui;
};
