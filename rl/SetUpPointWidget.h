#pragma once

#include <QWidget>

#include <array>
#include <memory>

class QDoubleSpinBox;
class QPushButton;

namespace Ui {
class SetUpPointWidget;
}

/// Edits one position argument: the name of a point, or an Offs or RelTool expression around it.
class SetUpPointWidget : public QWidget
{
    Q_OBJECT

public:
    explicit SetUpPointWidget(QWidget* parent);
    ~SetUpPointWidget() override;

    /// Which free name is proposed, 1 for the first and 2 for the second; hides the offsets.
    void setIndex(int index);
    void setLabelText(const QString& text);
    /// The argument as text.
    QString pointText() const;
    /// Loads the widget from the argument's text.
    void setPointText(const QString& text);
    /// Has the robot's present position stored under the name when it is new.
    void addPointIfMissing(const QString& tool, const QString& wobj);
    /// Reloads the points and proposes a name.
    void refreshPointList();

private Q_SLOTS:
    void onBtnOffsClicked();
    void onBtnRelToolClicked();

private:
    /// Offsets in mm, then angles in degrees.
    std::array<QDoubleSpinBox*, 6> boxes() const;
    /// Name and the values of the first boxes: "Offs(p1,0,0,10)".
    QString expression(const char* call, size_t values) const;
    /// Takes name and values over; the boxes without a value become 0.
    void load(const QStringList& entries);
    void setMode(bool offs, bool relTool);
    void showParameters(bool withAngles);
    void switchMode(QPushButton* button, bool on, bool withAngles);

    std::unique_ptr<Ui::SetUpPointWidget> ui;
    int m_index = 1;
    bool m_offsOn = false;    ///< an Offs expression; at most one of the two
    bool m_relToolOn = false; ///< a RelTool expression
};
