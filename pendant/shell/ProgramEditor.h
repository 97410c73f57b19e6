#pragma once

#include "InstructionCatalogue.h"
#include "ProgramDocument.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QScrollArea;

namespace pendant {

class ProgramView;

/// What the operator has open and in hand. It outlives the editor when the window is built anew.
struct OpenProgram
{
    std::shared_ptr<ProgramDocument> document = std::make_shared<ProgramDocument>();
    QString title;
    QByteArray clipboard;
    int first = -1; ///< selected row; -1: none
    int count = 0;  ///< of the selected rows
};

/// One robot program under the operator's hands: its lines, the instructions of the plugins, and
/// the editor of the instruction that was chosen or of the line that is selected.
class ProgramEditor : public QWidget
{
    Q_OBJECT

public:
    explicit ProgramEditor(const OpenProgram& open = {}, QWidget* parent = nullptr);
    ~ProgramEditor() override;

    ProgramDocument& program() { return *document; }
    void load(const QString& name, const QByteArray& text);
    QString name() const { return title; }
    /// For the editor that comes after this one, with all that is not saved.
    OpenProgram handOver() const;

    /// Takes over what the plugins have registered since the last time, and the comment, which
    /// stands behind it.
    void takeInstructions();
    /// Lets everything go that came from plugins.
    void dropInstructions();
    /// The theme sheet in which the editors of plugins stand.
    void setPluginSheet(const QString& text);

Q_SIGNALS:
    void saveClicked();
    void leaveClicked();
    /// Something was refused; the text says what.
    void complained(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Action = void (ProgramEditor::*)();
    enum class Use { Insert, Replace };

    QWidget* buildHead();
    QWidget* buildProgram();
    QWidget* buildInstructions();
    QWidget* buildButtons();
    QWidget* buildLine();
    QWidget* buildOffer();
    QWidget* buildDescription();
    QAbstractButton* addButton(QWidget* parent, const char* name, const QString& caption,
                               Action action);

    void showGroup(int group);
    void chooseInstruction();
    void followSelection();
    void openEditor(int instruction, const QString* line);
    void fillWith(const QString& line);
    QWidget* ofPlugin(QWidget* content);
    void closeEditor(const QString& hint);
    void describe(int instruction);
    void showTitle();
    void enableButtons();

    bool permits(Use use) const;
    std::optional<QStringList> offeredLines(Use use);
    void insertAt(int row);

    void insertBefore();
    void insertAfter();
    void replace();
    void remove();
    void moveUp();
    void moveDown();
    void cut();
    void copy();
    void paste();
    void toggleComment();
    void undo();
    void redo();
    void findNext();

    const std::shared_ptr<ProgramDocument> document;
    InstructionCatalogue catalogue;
    QString title;
    QByteArray clipboard;
    QString sheet; ///< of the plugins, for their editors
    int edited = -1;        ///< the instruction that the editor is for
    bool isNew = false;     ///< the editor is for a new instruction, not for the selected line
    bool inserting = false; ///< the editor stays as it is while its line goes in
    QPointer<qelplugin::RLContentBase> editor;

    QLabel* nameLabel = nullptr;
    QLineEdit* searchField = nullptr;
    ProgramView* view = nullptr;
    QComboBox* groupBox = nullptr;
    QListWidget* instructionList = nullptr;
    QAbstractButton* describeButton = nullptr;
    QLabel* description = nullptr;
    QLabel* editorTitle = nullptr;
    QScrollArea* editorPlace = nullptr;
};

} // namespace pendant
