#pragma once

#include <qelplugin.h>

#include <QLatin1String>
#include <QVector>

#include <memory>

class QComboBox;
class QDoubleSpinBox;
class SetUpPointWidget;

namespace Guard {
struct Origin;
} // namespace Guard

namespace Ui {
class WMoveLInsertWidget;
class WMoveLPropertyWidget;
class WMoveCInsertWidget;
class WMoveCPropertyWidget;
class WMoveCFInsertWidget;
class WMoveCFPropertyWidget;
} // namespace Ui

/// The boxes of one form, which owns them.
struct MotionBoxes
{
    struct Point
    {
        SetUpPointWidget* box = nullptr;
        QString label;
    };

    QVector<Point> points;
    QComboBox* speed = nullptr;
    QComboBox* zone = nullptr;
    QComboBox* tool = nullptr;
    QComboBox* wobj = nullptr;
    // A full circle alone has these two.
    QDoubleSpinBox* runDeg = nullptr;
    QComboBox* rotType = nullptr;
};

/// What the editors of a welding motion share: the boxes of the form and the call that they show.
///
/// The arguments of a call stand in this order: the points; of a full circle the run angle in
/// degrees and the rotation type in quotation marks; speed, zone, tool and work object. The lists
/// are read from the host when the editor is made.
class MotionEditor : public qelplugin::RLContentBase
{
protected:
    /// The key is the instruction's, such as "LsMoveL".
    MotionEditor(QLatin1String key, QWidget* parent);

    /// Fills the boxes with what the host has. To be called once, with the form set up.
    void initForm(const MotionBoxes& formBoxes);

    QStringList pointTexts() const;
    /// The call with these texts as its points and what the other boxes show.
    QString callText(QStringList arguments) const;
    /// How many arguments a call has at least: all but the work object.
    int fewestArguments() const;
    /// Shows the arguments of a call, of which there are enough.
    void showArguments(const QStringList& arguments);
    const QVector<MotionBoxes::Point>& points() const { return boxes.points; }

private:
    void fillLists();
    bool isCircle() const { return boxes.runDeg != nullptr; }

    QLatin1String key;
    MotionBoxes boxes;
};

/// Makes a new instruction. New points are stored on the controller when the text is built.
class MotionInsertEditor : public MotionEditor
{
public:
    /// Nothing: a new instruction has no line.
    void FillWith(const QString& line) override;
    /// Stores the robot's present position under each name that is new, with the controller's
    /// current tool and work object, and proposes the next free names: a second call stores further
    /// points.
    QString BuildText() override;
    bool CheckInsert() override;

protected:
    using MotionEditor::MotionEditor;
};

/// Edits an existing line. Stores no points: a new name is just text.
class MotionPropertyEditor : public MotionEditor
{
public:
    /// Throws nothing; a line that is no call, or has too few arguments, changes nothing.
    void FillWith(const QString& line) override;
    QString BuildText() override;
    bool CheckReplace() override;

protected:
    using MotionEditor::MotionEditor;

private:
    void loadCall(const Guard::Origin& origin, const QString& line);
};

// The six editors differ in their forms, and each has its labels in its own translation context.

class WMoveLInsertWidget : public MotionInsertEditor
{
    Q_OBJECT

public:
    explicit WMoveLInsertWidget(QWidget* parent);
    ~WMoveLInsertWidget() override;

private:
    std::unique_ptr<Ui::WMoveLInsertWidget> ui;
};

class WMoveLPropertyWidget : public MotionPropertyEditor
{
    Q_OBJECT

public:
    explicit WMoveLPropertyWidget(QWidget* parent);
    ~WMoveLPropertyWidget() override;

private:
    std::unique_ptr<Ui::WMoveLPropertyWidget> ui;
};

class WMoveCInsertWidget : public MotionInsertEditor
{
    Q_OBJECT

public:
    explicit WMoveCInsertWidget(QWidget* parent);
    ~WMoveCInsertWidget() override;

private:
    std::unique_ptr<Ui::WMoveCInsertWidget> ui;
};

class WMoveCPropertyWidget : public MotionPropertyEditor
{
    Q_OBJECT

public:
    explicit WMoveCPropertyWidget(QWidget* parent);
    ~WMoveCPropertyWidget() override;

private:
    std::unique_ptr<Ui::WMoveCPropertyWidget> ui;
};

class WMoveCFInsertWidget : public MotionInsertEditor
{
    Q_OBJECT

public:
    explicit WMoveCFInsertWidget(QWidget* parent);
    ~WMoveCFInsertWidget() override;

private:
    std::unique_ptr<Ui::WMoveCFInsertWidget> ui;
};

class WMoveCFPropertyWidget : public MotionPropertyEditor
{
    Q_OBJECT

public:
    explicit WMoveCFPropertyWidget(QWidget* parent);
    ~WMoveCFPropertyWidget() override;

private:
    std::unique_ptr<Ui::WMoveCFPropertyWidget> ui;
};
