#include "SeamTrackingPage.h"

#include "SeamCamera.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QPointF SeamOffset(0.42, -0.18); // millimetres

// Whoever takes the page in may have a style sheet of its own.
const char Sheet[] = R"(#seamTracking{background:#e9edf1;})"
                     R"(QLabel{color:#1d2733;font-size:15px;border:none;background:transparent;})"
                     R"(QLabel#label_title{font-size:18px;font-weight:bold;})"
                     R"(QPushButton{background:#ffffff;color:#1d2733;border:1px solid #9aa7b3;)"
                     R"(border-radius:6px;min-height:36px;padding:0px 18px;font-size:15px;})"
                     R"(QPushButton:checked{background:#2e8b57;color:#ffffff;})";

QLabel* newLabel(const char* name, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

} // namespace

SeamTrackingPage::SeamTrackingPage(QWidget* parent)
    : QWidget(parent)
    , camera(new SeamCamera(this))
    , state(newLabel("label_state", QString(), this))
    , sensor(new QPushButton(tr("Sensor"), this))
{
    setObjectName(QLatin1String("seamTracking"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QLatin1String(Sheet));
    sensor->setObjectName(QLatin1String("button_sensor"));
    sensor->setCheckable(true);
    connect(sensor, &QPushButton::toggled, this, &SeamTrackingPage::setSearching);
    auto* column = new QVBoxLayout(this);
    column->addWidget(newLabel("label_title", tr("Seam camera"), this));
    column->addWidget(camera, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(state, 1);
    row->addWidget(sensor);
    column->addLayout(row);
    camera->setOffset(SeamOffset);
    setSearching(false);
}

void SeamTrackingPage::setSearching(bool on)
{
    camera->setSearching(on);
    state->setText(on ? tr("Seam: %1 mm across, %2 mm up")
                            .arg(SeamOffset.x(), 0, 'f', 2)
                            .arg(SeamOffset.y(), 0, 'f', 2)
                      : tr("Ready. The sensor is off."));
}
