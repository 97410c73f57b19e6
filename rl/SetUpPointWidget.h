#pragma once

#include <QWidget>

#include <memory>

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

private:
    std::unique_ptr<Ui::SetUpPointWidget> ui;
    int m_index = 1;
    bool m_offsOn = false;
    bool m_relToolOn = false;
};
