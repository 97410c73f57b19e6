#include "ProgramEditor.h"

#include "CommentForm.h"
#include "ProgramLine.h"
#include "ProgramView.h"
#include "SkeletonForm.h"
#include "Theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyledItemDelegate>

namespace pendant {

namespace {

// For 96 dots per inch.
constexpr int Gap = 6;
constexpr int HandleHeight = 10;
constexpr int PanelWidth = 190;
constexpr int EditorHeight = 80;
constexpr int WideEnough = 770; // for the editors' 550 and the description

/// A plain box with a layout, dressed as the shell is.
template<typename Layout>
Layout* dressedBox(QWidget* parent)
{
    auto* layout = new Layout(new QWidget(parent));
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::px(Gap));
    Theme::dress(layout->parentWidget());
    return layout;
}

} // namespace

// The editors come from plugins, which bring their own style: only what stands around is dressed.
ProgramEditor::ProgramEditor(const OpenProgram& open, QWidget* parent)
    : QWidget(parent)
    , document(open.document)
    , title(open.title)
    , clipboard(open.clipboard)
{
    auto* column = new QVBoxLayout(this);
    column->setSpacing(Theme::px(Gap));
    column->setContentsMargins(Theme::px(Gap), Theme::px(Gap), Theme::px(Gap), Theme::px(Gap));
    column->addWidget(buildHead());
    auto* halves = new QSplitter(Qt::Vertical, this);
    halves->setHandleWidth(Theme::px(HandleHeight));
    halves->setChildrenCollapsible(false);
    halves->addWidget(buildProgram());
    halves->addWidget(buildLine());
    halves->setSizes({4700, 5300});
    column->addWidget(halves, 1);
    connect(document.get(), &ProgramDocument::changed, view, &ProgramView::select);
    connect(&document->history(), &QUndoStack::cleanChanged, this, &ProgramEditor::showTitle);
    connect(&document->history(), &QUndoStack::indexChanged, this, &ProgramEditor::enableButtons);
    connect(view, &ProgramView::selectionMoved, this, &ProgramEditor::followSelection);
    connect(groupBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ProgramEditor::showGroup);
    connect(instructionList, &QListWidget::itemClicked, this, &ProgramEditor::chooseInstruction);
    connect(instructionList, &QListWidget::itemActivated, this, &ProgramEditor::chooseInstruction);
    connect(searchField, &QLineEdit::returnPressed, this, &ProgramEditor::findNext);
    view->select(open.first, open.count);
    showTitle();
    followSelection();
}

OpenProgram ProgramEditor::handOver() const
{
    return {document, title, clipboard, view->selectedFirst(), view->selectedCount()};
}

// The history empties itself at its end, when what would hear of it is gone already.
ProgramEditor::~ProgramEditor()
{
    document->history().disconnect(this);
}

QAbstractButton* ProgramEditor::addButton(QWidget* parent, const char* name, const QString& caption,
                                          Action action)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QStringLiteral("button_") + QString::fromLatin1(name));
    button->setProperty("narrow", true);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

QWidget* ProgramEditor::buildHead()
{
    auto* row = dressedBox<QHBoxLayout>(this);
    QWidget* box = row->parentWidget();
    nameLabel = new QLabel(box);
    nameLabel->setObjectName(QStringLiteral("label_program"));
    nameLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    nameLabel->installEventFilter(this);
    searchField = new QLineEdit(box);
    searchField->setObjectName(QStringLiteral("edit_find"));
    searchField->setPlaceholderText(tr("Text to find"));
    Theme::mark(searchField, "empty", true);
    connect(searchField, &QLineEdit::textChanged, searchField, [this](const QString& text) {
        Theme::mark(searchField, "empty", text.isEmpty());
    });
    row->addWidget(addButton(box, "programs", tr("Programs"), &ProgramEditor::leaveClicked));
    row->addSpacing(Theme::px(Gap));
    row->addWidget(nameLabel, 1);
    row->addWidget(searchField, 1);
    row->addWidget(addButton(box, "find", tr("Find"), &ProgramEditor::findNext));
    row->addWidget(addButton(box, "undo", tr("Undo"), &ProgramEditor::undo));
    row->addWidget(addButton(box, "redo", tr("Redo"), &ProgramEditor::redo));
    row->addWidget(addButton(box, "save", tr("Save"), &ProgramEditor::saveClicked));
    return box;
}

// The upper half: the lines and what is done with them, beside them the instructions.
QWidget* ProgramEditor::buildProgram()
{
    auto* column = dressedBox<QVBoxLayout>(this);
    QWidget* box = column->parentWidget();
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::px(Gap));
    view = new ProgramView(*document, catalogue, box);
    view->setMinimumHeight(Theme::px(80));
    row->addWidget(view, 1);
    row->addWidget(buildInstructions());
    column->addLayout(row, 1);
    column->addWidget(buildButtons());
    return box;
}

QWidget* ProgramEditor::buildInstructions()
{
    auto* column = dressedBox<QVBoxLayout>(this);
    QWidget* box = column->parentWidget();
    box->setFixedWidth(Theme::px(PanelWidth));
    groupBox = new QComboBox(box);
    groupBox->setObjectName(QStringLiteral("box_group"));
    groupBox->setItemDelegate(new QStyledItemDelegate(groupBox)); // that the style sheet reaches
    groupBox->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    instructionList = new QListWidget(box);
    instructionList->setObjectName(QStringLiteral("list_instructions"));
    instructionList->setMinimumHeight(Theme::px(40));
    instructionList->setVerticalScrollMode(QListWidget::ScrollPerPixel);
    column->addWidget(groupBox);
    column->addWidget(instructionList, 1);
    return box;
}

QWidget* ProgramEditor::buildButtons()
{
    struct Row
    {
        const char* name;
        QString caption;
        Action action;
    };
    const Row rows[] = {
        {"comment", tr("Comment"), &ProgramEditor::toggleComment},
        {"delete", tr("Delete"), &ProgramEditor::remove},
        {"moveUp", tr("Move up"), &ProgramEditor::moveUp},
        {"moveDown", tr("Move down"), &ProgramEditor::moveDown},
        {"cut", tr("Cut"), &ProgramEditor::cut},
        {"copy", tr("Copy"), &ProgramEditor::copy},
        {"paste", tr("Paste"), &ProgramEditor::paste},
    };
    auto* line = dressedBox<QHBoxLayout>(this);
    for (const Row& row : rows)
        line->addWidget(addButton(line->parentWidget(), row.name, row.caption, row.action), 1);
    return line->parentWidget();
}

// The lower half: the editor, what it is for and where its line goes; beside it the description.
QWidget* ProgramEditor::buildLine()
{
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::px(Gap));
    column->addWidget(buildOffer());
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::px(Gap));
    column->addLayout(row, 1);
    editorPlace = new QScrollArea(box);
    editorPlace->setObjectName(QStringLiteral("scroll_editor"));
    editorPlace->setWidgetResizable(true);
    editorPlace->setMinimumHeight(Theme::px(EditorHeight));
    Theme::dress(editorPlace->verticalScrollBar());
    Theme::dress(editorPlace->horizontalScrollBar());
    row->addWidget(editorPlace, 1);
    row->addWidget(buildDescription());
    return box;
}

QWidget* ProgramEditor::buildOffer()
{
    auto* row = dressedBox<QHBoxLayout>(this);
    QWidget* box = row->parentWidget();
    editorTitle = new QLabel(box);
    editorTitle->setObjectName(QStringLiteral("label_editor"));
    editorTitle->setWordWrap(true);
    editorTitle->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    describeButton = new QPushButton(tr("?"), box);
    describeButton->setObjectName(QStringLiteral("button_describe"));
    describeButton->setToolTip(tr("Description of the instruction"));
    describeButton->setCheckable(true);
    row->addWidget(editorTitle, 1);
    row->addWidget(describeButton);
    row->addWidget(
        addButton(box, "insertBefore", tr("Insert before"), &ProgramEditor::insertBefore));
    row->addWidget(addButton(box, "insertAfter", tr("Insert after"), &ProgramEditor::insertAfter));
    row->addWidget(addButton(box, "replace", tr("Replace"), &ProgramEditor::replace));
    return box;
}

QWidget* ProgramEditor::buildDescription()
{
    description = new QLabel(this);
    description->setObjectName(QStringLiteral("label_description"));
    description->setWordWrap(true);
    description->setTextFormat(Qt::PlainText);
    description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    description->setProperty("hint", true);
    description->setFixedWidth(Theme::px(PanelWidth));
    description->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    Theme::dress(description);
    description->hide();
    connect(describeButton, &QPushButton::toggled, description, &QWidget::setVisible);
    return description;
}

// Where the editors have room beside it, the description is there unasked.
void ProgramEditor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isWide = event->size().width() >= Theme::px(WideEnough);
    if (isWide != (event->oldSize().width() >= Theme::px(WideEnough)))
        describeButton->setChecked(isWide);
}

// The name is shortened to the room that it has.
bool ProgramEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == nameLabel && event->type() == QEvent::Resize)
        showTitle();
    return QWidget::eventFilter(watched, event);
}

void ProgramEditor::load(const QString& name, const QByteArray& text)
{
    title = name;
    document->load(text);
    showTitle();
    followSelection();
    view->setFocus();
}

void ProgramEditor::takeInstructions()
{
    auto registry = qelplugin::RlRegistry::instance();
    registry.instructions << CommentForm::instruction();
    if (registry.instructions.size() == catalogue.size())
        return;
    catalogue.load(registry);
    const QSignalBlocker quiet(groupBox);
    groupBox->clear();
    for (const auto& group : catalogue.groups())
        groupBox->addItem(group.title);
    showGroup(groupBox->currentIndex());
    followSelection();
}

void ProgramEditor::dropInstructions()
{
    closeEditor({});
    const QSignalBlocker quiet(groupBox);
    groupBox->clear();
    instructionList->clear();
    catalogue.clear();
}

void ProgramEditor::showGroup(int group)
{
    instructionList->clear();
    if (group < 0)
        return;
    for (const int member : catalogue.groups().at(group).members) {
        auto* item = new QListWidgetItem(catalogue.at(member).key, instructionList);
        item->setData(Qt::UserRole, member);
    }
}

void ProgramEditor::chooseInstruction()
{
    if (const QListWidgetItem* item = instructionList->currentItem())
        openEditor(item->data(Qt::UserRole).toInt(), nullptr);
}

void ProgramEditor::followSelection()
{
    enableButtons();
    if (inserting)
        return;
    instructionList->setCurrentItem(nullptr);
    if (view->selectedCount() != 1) {
        closeEditor(document->rowCount() == 0 ? tr("The program is empty. Choose an instruction.")
                                             : tr("Select a line, or choose an instruction."));
        return;
    }
    const QString line = document->line(view->selectedFirst());
    const int instruction = catalogue.find(line);
    if (instruction < 0)
        closeEditor(tr("This line is no instruction of a plugin. It is kept as it stands."));
    else
        openEditor(instruction, &line);
}

// A null line stands for a new instruction.
void ProgramEditor::openEditor(int instruction, const QString* line)
{
    QString error;
    closeEditor({});
    edited = instruction;
    isNew = !line;
    describe(instruction);
    const QString& key = catalogue.at(instruction).key;
    Theme::mark(editorTitle, "hint", false);
    editorTitle->setText(isNew ? tr("New: %1").arg(key)
                               : tr("Line %1: %2").arg(view->selectedFirst() + 1).arg(key));
    editor = isNew ? catalogue.makeInsertEditor(instruction, &error)
                   : catalogue.makePropertyEditor(instruction, &error);
    if (!editor) {
        auto* hint = new QLabel(error.isEmpty() ? tr("Nothing to fill in.")
                                                : tr("Its form cannot be built: %1").arg(error));
        hint->setObjectName(QStringLiteral("label_noEditor"));
        hint->setMargin(Theme::px(8));
        editorPlace->setWidget(hint);
    } else {
        if (line)
            fillWith(*line);
        editorPlace->setWidget(qobject_cast<SkeletonForm*>(editor) ? editor : ofPlugin(editor));
    }
    enableButtons();
}

// A plugin's editor stands on a light ground, which its sheets count on, and in the plugin's theme
// sheet: only a part of what it is made of has a style of its own.
QWidget* ProgramEditor::ofPlugin(QWidget* content)
{
    auto* ground = new QWidget;
    ground->setObjectName(QStringLiteral("pluginGround"));
    ground->setPalette(Theme::pluginPalette());
    ground->setStyleSheet(sheet);
    auto* column = new QVBoxLayout(ground);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(content);
    return ground;
}

void ProgramEditor::setPluginSheet(const QString& text)
{
    sheet = text;
    if (auto* ground = findChild<QWidget*>(QStringLiteral("pluginGround")))
        ground->setStyleSheet(sheet);
}

// An editor gets the whole line first. It may take nothing behind the call: then it gets that
// alone.
void ProgramEditor::fillWith(const QString& line)
{
    const QString code = withoutTrailingComment(line);
    editor->FillWith(line);
    if (code != line && !code.isEmpty())
        editor->FillWith(code);
}

void ProgramEditor::closeEditor(const QString& hint)
{
    delete editorPlace->takeWidget();
    editorPlace->setWidget(new QWidget);
    edited = -1;
    isNew = false;
    editorTitle->setText(hint);
    Theme::mark(editorTitle, "hint", true);
    description->clear();
    enableButtons();
}

void ProgramEditor::describe(int instruction)
{
    description->setText(catalogue.at(instruction).description);
}

void ProgramEditor::showTitle()
{
    const bool isModified = document->isModified();
    const QString star = isModified ? QStringLiteral(" *") : QString();
    Theme::mark(nameLabel, "modified", isModified);
    Theme::mark(findChild<QPushButton*>(QStringLiteral("button_save")), "primary", isModified);
    const QFontMetrics metrics = nameLabel->fontMetrics();
    const int room = nameLabel->width() - metrics.horizontalAdvance(star);
    nameLabel->setText(metrics.elidedText(title, Qt::ElideMiddle, room) + star);
    nameLabel->setToolTip(isModified ? tr("%1: not saved yet").arg(title) : title);
}

void ProgramEditor::enableButtons()
{
    const int count = view->selectedCount();
    const bool any = count > 0;
    const std::pair<const char*, bool> states[] = {
        {"insertBefore", edited >= 0},
        {"insertAfter", edited >= 0},
        {"replace", edited >= 0 && count == 1},
        {"comment", any},
        {"delete", any},
        {"moveUp", any && view->selectedFirst() > 0},
        {"moveDown", any && view->selectedFirst() + count < document->rowCount()},
        {"cut", any},
        {"copy", any},
        {"paste", !clipboard.isEmpty()},
        {"undo", document->history().canUndo()},
        {"redo", document->history().canRedo()},
    };
    for (const auto& [name, on] : states)
        findChild<QAbstractButton*>(QStringLiteral("button_") + QString::fromLatin1(name))
            ->setEnabled(on);
}

// An editor that is not for that use is asked for both.
bool ProgramEditor::permits(Use use) const
{
    const bool askInsert = use == Use::Insert || isNew;
    const bool askReplace = use == Use::Replace || !isNew;
    return (!askInsert || editor->CheckInsert()) && (!askReplace || editor->CheckReplace());
}

// The text is asked for once, and only when it will go in: an editor may store a point with it.
std::optional<QStringList> ProgramEditor::offeredLines(Use use)
{
    const qelplugin::RlInstruction& instruction = catalogue.at(edited);
    if (editor && !permits(use)) {
        Q_EMIT complained(
            (use == Use::Insert
                 ? tr("Inserting \"%1\" was refused. Check what is filled in and who is logged in.")
                 : tr("Replacing by \"%1\" was refused. Check what is filled in and who is logged "
                      "in."))
                .arg(instruction.key));
        return std::nullopt;
    }
    const QString plain =
        instruction.defaultText.isEmpty() ? instruction.skeleton : instruction.defaultText;
    const QString text = editor ? editor->BuildText() : plain;
    if (text.isEmpty()) {
        Q_EMIT complained(
            tr("The editor of \"%1\" gives no text. Fill in its fields.").arg(instruction.key));
        return std::nullopt;
    }
    return text.split(QLatin1Char('\n'));
}

void ProgramEditor::insertAt(int row)
{
    if (edited < 0)
        return;
    const auto lines = offeredLines(Use::Insert);
    if (!lines)
        return;
    const QScopedValueRollback<bool> stay(inserting, isNew);
    document->insert(row, *lines);
}

void ProgramEditor::insertBefore()
{
    insertAt(qMax(0, view->selectedFirst()));
}

// With nothing selected: at the end.
void ProgramEditor::insertAfter()
{
    const int first = view->selectedFirst();
    insertAt(first < 0 ? document->rowCount() : first + view->selectedCount());
}

void ProgramEditor::replace()
{
    if (edited < 0 || view->selectedCount() != 1)
        return;
    const int row = view->selectedFirst();
    const auto lines = offeredLines(Use::Replace);
    if (!lines)
        return;
    document->replaceCode(row, *lines);
    followSelection();
}

void ProgramEditor::remove()
{
    const int first = view->selectedFirst();
    document->remove(first, view->selectedCount());
    view->select(qMin(first, document->rowCount() - 1));
    followSelection();
}

void ProgramEditor::moveUp()
{
    document->moveUp(view->selectedFirst(), view->selectedCount());
}

void ProgramEditor::moveDown()
{
    document->moveDown(view->selectedFirst(), view->selectedCount());
}

void ProgramEditor::cut()
{
    copy();
    remove();
}

void ProgramEditor::copy()
{
    clipboard = document->copy(view->selectedFirst(), view->selectedCount());
    enableButtons();
}

void ProgramEditor::paste()
{
    const int first = view->selectedFirst();
    document->paste(first < 0 ? document->rowCount() : first + view->selectedCount(), clipboard);
}

void ProgramEditor::toggleComment()
{
    document->toggleComment(view->selectedFirst(), view->selectedCount());
    followSelection();
}

void ProgramEditor::undo()
{
    document->history().undo();
    followSelection();
}

void ProgramEditor::redo()
{
    document->history().redo();
    followSelection();
}

void ProgramEditor::findNext()
{
    const QString text = searchField->text();
    const int row = document->find(text, view->selectedFirst() + 1);
    if (row >= 0)
        view->select(row);
    else
        Q_EMIT complained(text.isEmpty() ? tr("Type the text to find first.")
                                         : tr("\"%1\" is not in the program.").arg(text));
}

} // namespace pendant
