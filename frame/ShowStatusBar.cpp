#include "ShowStatusBar.h"

#include "ui_ShowStatusBar.h"

#include <QPixmap>

namespace {

// Pixels; fixed, so the indicator does not follow the screen.
constexpr int PictureHeight = 25;

} // namespace

ShowStatusBar::ShowStatusBar(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::ShowStatusBar)
{
    ui->setupUi(this);
}

ShowStatusBar::~ShowStatusBar() = default;

void ShowStatusBar::showRealWelding()
{
    showPicture(QLatin1String(":/png/LaserSwitchReal.png"));
}

void ShowStatusBar::showVirtualWelding()
{
    showPicture(QLatin1String(":/png/LaserSwitchSimu.png"));
}

void ShowStatusBar::showWorkMode(bool isVirtual)
{
    if (isVirtual)
        showVirtualWelding();
    else
        showRealWelding();
}

void ShowStatusBar::showPicture(const QString& path)
{
    const QPixmap picture(path);
    // Scaling a null picture would warn; the label empties all the same.
    ui->label->setPixmap(picture.isNull()
                             ? picture
                             : picture.scaledToHeight(PictureHeight, Qt::SmoothTransformation));
}
