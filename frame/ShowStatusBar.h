#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class ShowStatusBar;
}

/// The indicator in the host's status bar: real or virtual welding. Shows what it was last told.
class ShowStatusBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShowStatusBar(QWidget* parent = nullptr);
    ~ShowStatusBar() override;

    void showRealWelding();
    void showVirtualWelding();
    /// One or the other.
    void showWorkMode(bool isVirtual);

private:
    void showPicture(const QString& path);

    std::unique_ptr<Ui::ShowStatusBar> ui;
};
