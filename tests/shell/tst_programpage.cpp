#include "ProgramEditor.h"
#include "ProgramList.h"
#include "ProgramPage.h"
#include "ProgramView.h"
#include "TestCase.h"
#include "TestCell.h"
#include "rlregistry.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace pendant;
using qelplugin::RLManager;

namespace {

const QString Main = QStringLiteral("Main");

/// What the editors were asked, and what they answer.
struct Asked
{
    QStringList calls;
    bool insert = true;
    bool replace = true;
    QString text = QStringLiteral("LaserOn(\"LsData7\");");
};

class NotingEditor : public qelplugin::RLContentBase
{
public:
    explicit NotingEditor(Asked& notes)
        : qelplugin::RLContentBase(nullptr)
        , asked(notes)
    {}
    void FillWith(const QString& text) override { asked.calls << QStringLiteral("fill ") + text; }
    QString BuildText() override
    {
        asked.calls << QStringLiteral("build");
        return asked.text;
    }
    bool CheckInsert() override
    {
        asked.calls << QStringLiteral("insert?");
        return asked.insert;
    }
    bool CheckReplace() override
    {
        asked.calls << QStringLiteral("replace?");
        return asked.replace;
    }

private:
    Asked& asked;
};

void registerInstructions(Asked& asked)
{
    RLManager manager(nullptr);
    const auto group = QStringLiteral("weld");
    const auto on = QStringLiteral("LaserOn");
    const auto wire = QStringLiteral("LsWireFwd");
    const auto off = QStringLiteral("LaserOff");
    const auto make = [&asked] { return new NotingEditor(asked); };
    manager.createInsDescribe(on, QStringLiteral("Welding start instruction"));
    manager.createInsertWidget(on, make);
    manager.createPropertyWidget(on, make);
    manager.createTypeToGroup(group, on);
    manager.createSkeleton(wire, QStringLiteral("LsWireFwd($Speed:#spn#1,100#true$, "
                                                "$Time:#spn#1,10000#true$);"));
    manager.createTypeToGroup(group, wire);
    manager.createInsDefault(off, QStringLiteral("LaserOff();"));
    manager.createSkeleton(off, QStringLiteral("LaserOff();"));
    manager.createPattern(off, QStringLiteral("^\\s*LaserOff\\s*(?://.*)?$"));
    manager.createTypeToGroup(group, off);
    manager.createGroups(QStringLiteral("Laser Weld Ins"), group);
}

/// The page with one program open.
struct Bench
{
    Asked asked;
    TestCell cell;
    ProgramPage page{*cell};
    QSignalSpy complaints{&page, &ProgramPage::complained};

    explicit Bench(const QByteArray& text = "MoveJ(home);\nLaserOff();\n")
    {
        registerInstructions(asked);
        cell->saveProgram(Main, text);
        page.resize(820, 620);
        page.show();
        page.open(Main);
    }
    ~Bench() { qelplugin::RlRegistry::instance().clear(); }

    ProgramEditor* editor() const { return page.findChild<ProgramEditor*>(); }
    ProgramView* view() const { return child<ProgramView>(&page, "programView"); }
    QByteArray text() const { return editor()->program().text(); }
    void click(const char* name) const
    {
        QTest::mouseClick(child<QPushButton>(&page, name), Qt::LeftButton);
    }
    bool isEnabled(const char* name) const { return child<QPushButton>(&page, name)->isEnabled(); }
    QString label(const char* name) const { return child<QLabel>(&page, name)->text(); }
    void choose(const char* key) const
    {
        auto* list = child<QListWidget>(&page, "list_instructions");
        auto* item = list->findItems(QLatin1String(key), Qt::MatchExactly).value(0);
        list->setCurrentItem(item);
        list->scrollToItem(item);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(item).center());
    }
    void name(const char* entered) const
    {
        child<QLineEdit>(&page, "edit_name")->setText(QLatin1String(entered));
        click("answer_ok");
    }
    void leaveToList() const { click("button_programs"); }
    QByteArray stored(const QString& program = Main) const
    {
        QByteArray text;
        cell->readProgram(program, &text);
        return text;
    }
};

} // namespace

class TestProgramPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void insertsByForm();
    void insertsTheDefault();
    void insertsIntoNothing();
    void asksBeforeInsert();
    void insertRefused();
    void lineOpensItsEditor();
    void asksBeforeReplace();
    void replaceKeepsWhatStandsAround();
    void replaceRefused();
    void replaceByANewOneAsksBoth();
    void unknownLineStays();
    void emptyProgramSaysSo();
    void commentsAreWritten();
    void descriptionNeedsRoom();
    void longNameIsShortened();
    void everythingHasItsRoom();
    void buttons_data();
    void buttons();
    void cutAndPaste();
    void undoAndRedo();
    void undoFillsTheEditorAgain();
    void finds();
    void savesAndMarks();
    void saveFails();
    void leavingAsks_data();
    void leavingAsks();
    void programsAreMade();
    void programsAreRenamed();
    void programsAreRemoved();
    void filesComeAndGo();
    void fileThatIsTooLong();
    void programThatCannotBeRead();
    void pluginsGo();
    void pluginsComeBack();
};

void TestProgramPage::insertsByForm()
{
    Bench bench;
    bench.view()->select(0);
    bench.choose("LsWireFwd");
    child<QSpinBox>(&bench.page, "input_1")->setValue(50);
    child<QSpinBox>(&bench.page, "input_2")->setValue(1000);
    bench.click("button_insertAfter");
    QCOMPARE(bench.text(), QByteArray("MoveJ(home);\nLsWireFwd(50, 1000);\nLaserOff();\n"));
    QCOMPARE(bench.label("label_editor"), QStringLiteral("New: LsWireFwd"));
    bench.click("button_insertBefore");
    QCOMPARE(bench.editor()->program().rowCount(), 4);
    bench.view()->select(3);
    bench.view()->select(1);
    QCOMPARE(bench.label("label_editor"), QStringLiteral("Line 2: LsWireFwd"));
    QCOMPARE(child<QSpinBox>(&bench.page, "input_2")->value(), 1000);
}

void TestProgramPage::insertsTheDefault()
{
    Bench bench;
    bench.choose("LaserOff");
    bench.click("button_insertAfter");
    QCOMPARE(bench.text(), QByteArray("MoveJ(home);\nLaserOff();\nLaserOff();\n"));
}

void TestProgramPage::insertsIntoNothing()
{
    Bench bench("");
    bench.choose("LaserOff");
    bench.click("button_insertBefore");
    QCOMPARE(bench.text(), QByteArray("LaserOff();\n"));
}

void TestProgramPage::asksBeforeInsert()
{
    Bench bench;
    bench.choose("LaserOn");
    QCOMPARE(bench.label("label_description"), QStringLiteral("Welding start instruction"));
    bench.click("button_insertAfter");
    QCOMPARE(bench.asked.calls, QStringList({QStringLiteral("insert?"), QStringLiteral("build")}));
    QVERIFY(bench.text().endsWith("LaserOn(\"LsData7\");\n"));
}

void TestProgramPage::insertRefused()
{
    Bench bench;
    const QByteArray before = bench.text();
    bench.asked.insert = false;
    bench.choose("LaserOn");
    bench.click("button_insertAfter");
    QCOMPARE(bench.text(), before);
    QCOMPARE(bench.asked.calls, QStringList({QStringLiteral("insert?")}));
    QCOMPARE(bench.complaints.size(), 1);
    QCOMPARE(
        bench.complaints.first().first().toString(),
        QStringLiteral(
            "Inserting \"LaserOn\" was refused. Check what is filled in and who is logged in."));
}

void TestProgramPage::lineOpensItsEditor()
{
    Bench bench("  LaserOn(\"a\", 5); // x\nLaserOff();\n");
    bench.view()->select(0);
    QCOMPARE(bench.asked.calls, QStringList({QStringLiteral("fill   LaserOn(\"a\", 5); // x"),
                                             QStringLiteral("fill   LaserOn(\"a\", 5);")}));
    QCOMPARE(bench.label("label_editor"), QStringLiteral("Line 1: LaserOn"));
    bench.view()->select(1);
    QCOMPARE(bench.label("label_editor"), QStringLiteral("Line 2: LaserOff"));
    bench.view()->select(0, 2);
    QVERIFY(!bench.isEnabled("button_replace"));
}

void TestProgramPage::asksBeforeReplace()
{
    Bench bench("  LaserOn(\"a\");\n");
    bench.view()->select(0);
    bench.click("button_replace");
    QCOMPARE(bench.asked.calls.mid(1, 2),
             QStringList({QStringLiteral("replace?"), QStringLiteral("build")}));
    QCOMPARE(bench.text(), QByteArray("  LaserOn(\"LsData7\");\n"));
    QCOMPARE(bench.asked.calls.last(), QStringLiteral("fill   LaserOn(\"LsData7\");"));
}

void TestProgramPage::replaceKeepsWhatStandsAround()
{
    Bench bench("\tLaserOn(\"a\");  // \xff here\r\nLaserOff();\n");
    bench.view()->select(0);
    bench.click("button_replace");
    QCOMPARE(bench.text(), QByteArray("\tLaserOn(\"LsData7\");  // \xff here\r\nLaserOff();\n"));
    bench.asked.text = QStringLiteral("LaserOn(\"b\"); // new");
    bench.click("button_replace");
    QCOMPARE(bench.text(), QByteArray("\tLaserOn(\"b\"); // new\r\nLaserOff();\n"));
}

void TestProgramPage::replaceRefused()
{
    Bench bench("LaserOn(\"a\");\n");
    bench.asked.replace = false;
    bench.view()->select(0);
    bench.click("button_replace");
    bench.click("button_insertAfter");
    QCOMPARE(bench.text(), QByteArray("LaserOn(\"a\");\n"));
    QVERIFY(!bench.asked.calls.contains(QStringLiteral("build")));
    QCOMPARE(bench.complaints.size(), 2);
    QCOMPARE(
        bench.complaints.first().first().toString(),
        QStringLiteral(
            "Replacing by \"LaserOn\" was refused. Check what is filled in and who is logged in."));
}

void TestProgramPage::replaceByANewOneAsksBoth()
{
    Bench bench;
    bench.view()->select(0);
    bench.choose("LaserOn");
    bench.click("button_replace");
    QCOMPARE(bench.asked.calls.mid(0, 3),
             QStringList(
                 {QStringLiteral("insert?"), QStringLiteral("replace?"), QStringLiteral("build")}));
    QCOMPARE(bench.text(), QByteArray("LaserOn(\"LsData7\");\nLaserOff();\n"));
}

void TestProgramPage::unknownLineStays()
{
    Bench bench;
    bench.view()->select(0);
    QCOMPARE(bench.label("label_editor"),
             QStringLiteral("This line is no instruction of a plugin. It is kept as it stands."));
    QVERIFY(!bench.isEnabled("button_insertAfter"));
    QVERIFY(!bench.isEnabled("button_replace"));
}

void TestProgramPage::emptyProgramSaysSo()
{
    Bench bench("LaserOff();\n");
    bench.view()->select(0);
    bench.click("button_delete");
    QCOMPARE(bench.label("label_editor"),
             QStringLiteral("The program is empty. Choose an instruction."));
}

void TestProgramPage::commentsAreWritten()
{
    Bench bench("  // a  b\nLaserOff();\n");
    auto* groups = child<QComboBox>(&bench.page, "box_group");
    groups->setCurrentText(QStringLiteral("Program text"));
    bench.view()->select(1);
    bench.choose("// Comment");
    child<QLineEdit>(&bench.page, "edit_comment")->setText(QStringLiteral("the end: \u7ec8"));
    bench.click("button_insertAfter");
    bench.view()->select(0);
    auto* field = child<QLineEdit>(&bench.page, "edit_comment");
    QCOMPARE(field->text(), QStringLiteral("a  b"));
    QCOMPARE(bench.label("label_editor"), QStringLiteral("Line 1: // Comment"));
    field->setText(QStringLiteral("c // d"));
    bench.click("button_replace");
    QCOMPARE(bench.text(), QByteArray("  // c // d\nLaserOff();\n// the end: \xe7\xbb\x88\n"));
}

// In a narrow page it is there when it is asked for.
void TestProgramPage::descriptionNeedsRoom()
{
    Bench bench;
    auto* const text = child<QLabel>(&bench.page, "label_description");
    bench.page.resize(820, 620);
    QTRY_VERIFY(text->isVisible());
    bench.page.resize(600, 470);
    QTRY_VERIFY(!text->isVisible());
    bench.click("button_describe");
    QVERIFY(text->isVisible());
}

void TestProgramPage::longNameIsShortened()
{
    Bench bench;
    const int least = bench.page.minimumSizeHint().width();
    const QString name(64, QLatin1Char('W'));
    bench.cell->createProgram(name);
    bench.page.open(name);
    bench.choose("LaserOff");
    bench.click("button_insertAfter");
    const QString shown = bench.label("label_program");
    QVERIFY(shown.size() < name.size());
    QVERIFY(shown.endsWith(QLatin1String(" *")));
    QCOMPARE(bench.page.minimumSizeHint().width(), least);
}

// In the smallest window that the pendant is made for; sizes in pixels at 96 dots per inch.
void TestProgramPage::everythingHasItsRoom()
{
    constexpr QSize Page(592, 484);
    constexpr int Finger = 40;
    constexpr int Row = 36;
    Bench bench;
    bench.page.resize(Page);
    QTRY_COMPARE(bench.editor()->size(), Page);
    QVERIFY(bench.view()->sizeHintForRow(0) >= Row);
    QVERIFY(bench.view()->viewport()->height() >= 4 * Row);
    QVERIFY(child<QListWidget>(&bench.page, "list_instructions")->viewport()->height() >= 3 * Row);
    QVERIFY(child<QWidget>(&bench.page, "scroll_editor")->height() >= 3 * Finger);
    const auto buttons = bench.editor()->findChildren<QPushButton*>();
    for (const QPushButton* button : buttons) {
        QVERIFY2(button->height() >= Finger, qPrintable(button->objectName()));
        QVERIFY2(button->width() >= button->minimumSizeHint().width(),
                 qPrintable(button->objectName()));
    }
}

void TestProgramPage::buttons_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("selected");
    QTest::newRow("delete") << 1 << QByteArray("delete") << QByteArray("a\nc\n") << 1;
    QTest::newRow("delete last") << 2 << QByteArray("delete") << QByteArray("a\nb\n") << 1;
    QTest::newRow("up") << 1 << QByteArray("moveUp") << QByteArray("b\na\nc\n") << 0;
    QTest::newRow("down") << 1 << QByteArray("moveDown") << QByteArray("a\nc\nb\n") << 2;
    QTest::newRow("comment") << 1 << QByteArray("comment") << QByteArray("a\n// b\nc\n") << 1;
    QTest::newRow("cut") << 0 << QByteArray("cut") << QByteArray("b\nc\n") << 0;
}

void TestProgramPage::buttons()
{
    QFETCH(int, row);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, after);
    QFETCH(int, selected);
    Bench bench("a\nb\nc\n");
    bench.view()->select(row);
    bench.click(QByteArray("button_" + button).constData());
    QCOMPARE(bench.text(), after);
    QCOMPARE(bench.view()->selectedFirst(), selected);
    QCOMPARE(bench.view()->selectedCount(), 1);
}

void TestProgramPage::cutAndPaste()
{
    Bench bench("a\nb\nc\n");
    QVERIFY(!bench.isEnabled("button_paste"));
    bench.view()->select(0, 2);
    bench.click("button_cut");
    bench.click("button_paste");
    QCOMPARE(bench.text(), QByteArray("c\na\nb\n"));
    QCOMPARE(bench.view()->selectedFirst(), 1);
    QCOMPARE(bench.view()->selectedCount(), 2);
}

void TestProgramPage::undoAndRedo()
{
    Bench bench("a\nb\n");
    QVERIFY(!bench.isEnabled("button_undo"));
    bench.view()->select(0);
    bench.click("button_delete");
    bench.click("button_delete");
    QCOMPARE(bench.text(), QByteArray());
    QVERIFY(!bench.isEnabled("button_redo"));
    bench.click("button_undo");
    bench.click("button_undo");
    QCOMPARE(bench.text(), QByteArray("a\nb\n"));
    bench.click("button_redo");
    QCOMPARE(bench.text(), QByteArray("b\n"));
}

void TestProgramPage::undoFillsTheEditorAgain()
{
    Bench bench("LaserOn(\"a\");\n");
    bench.view()->select(0);
    bench.click("button_replace");
    for (const char* button : {"button_undo", "button_redo"}) {
        bench.asked.calls.clear();
        bench.click(button);
        QCOMPARE(bench.asked.calls.value(0),
                 QStringLiteral("fill ") + bench.editor()->program().line(0));
    }
}

void TestProgramPage::finds()
{
    Bench bench("a\nb\nab\n");
    auto* field = child<QLineEdit>(&bench.page, "edit_find");
    field->setText(QStringLiteral("B"));
    for (const int row : {1, 2, 1}) {
        bench.click("button_find");
        QCOMPARE(bench.view()->selectedFirst(), row);
    }
    field->setText(QStringLiteral("x"));
    bench.click("button_find");
    field->clear();
    bench.click("button_find");
    QCOMPARE(bench.complaints.size(), 2);
    QCOMPARE(bench.complaints.at(0).first().toString(),
             QStringLiteral("\"x\" is not in the program."));
    QCOMPARE(bench.complaints.at(1).first().toString(),
             QStringLiteral("Type the text to find first."));
}

void TestProgramPage::savesAndMarks()
{
    Bench bench("a\nb\n");
    QCOMPARE(bench.label("label_program"), Main);
    bench.view()->select(0);
    bench.click("button_delete");
    QCOMPARE(bench.label("label_program"), QStringLiteral("Main *"));
    bench.click("button_save");
    QCOMPARE(bench.label("label_program"), Main);
    QCOMPARE(bench.stored(), QByteArray("b\n"));
}

void TestProgramPage::saveFails()
{
    Bench bench("a\nb\n");
    bench.view()->select(0);
    bench.click("button_delete");
    bench.cell->setConnected(false);
    bench.click("button_save");
    QCOMPARE(bench.complaints.size(), 1);
    QVERIFY(bench.page.hasUnsaved());
}

void TestProgramPage::leavingAsks_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<bool>("left");
    QTest::newRow("cancel") << QByteArray("answer_cancel") << QByteArray("a\nb\n") << false;
    QTest::newRow("discard") << QByteArray("answer_discard") << QByteArray("a\nb\n") << true;
    QTest::newRow("save") << QByteArray("answer_save") << QByteArray("b\n") << true;
}

void TestProgramPage::leavingAsks()
{
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, stored);
    QFETCH(bool, left);
    Bench bench("a\nb\n");
    bench.view()->select(0);
    bench.click("button_delete");
    bench.leaveToList();
    QVERIFY(child<QWidget>(&bench.page, "questionPanel")->isVisible());
    bench.click(answer.constData());
    QCOMPARE(bench.stored(), stored);
    QCOMPARE(!bench.editor()->isVisible(), left);
    QCOMPARE(bench.page.hasUnsaved(), !left);
    QVERIFY(!child<QWidget>(&bench.page, "questionPanel")->isVisible());
}

void TestProgramPage::programsAreMade()
{
    Bench bench;
    bench.leaveToList();
    bench.click("button_newProgram");
    bench.name("Main");
    QCOMPARE(bench.complaints.size(), 1);
    bench.name("Second");
    QVERIFY(bench.cell->programs().contains(QStringLiteral("Second")));
    QCOMPARE(bench.page.findChild<ProgramList*>()->current(), QStringLiteral("Second"));
    bench.click("button_openProgram");
    QVERIFY(bench.editor()->isVisible());
    QCOMPARE(bench.text(), QByteArray());
}

void TestProgramPage::programsAreRenamed()
{
    Bench bench;
    bench.leaveToList();
    bench.click("button_renameProgram");
    bench.name("Other");
    QVERIFY(!bench.cell->programs().contains(Main));
    QCOMPARE(bench.stored(QStringLiteral("Other")), QByteArray("MoveJ(home);\nLaserOff();\n"));
}

void TestProgramPage::programsAreRemoved()
{
    Bench bench;
    bench.leaveToList();
    bench.click("button_removeProgram");
    bench.click("answer_cancel");
    QVERIFY(bench.cell->programs().contains(Main));
    bench.click("button_removeProgram");
    bench.click("answer_delete");
    QVERIFY(!bench.cell->programs().contains(Main));
}

void TestProgramPage::filesComeAndGo()
{
    const QByteArray odd = "a\r\n\xff\nb";
    Bench bench(odd);
    const QTemporaryDir folder;
    auto* list = bench.page.findChild<ProgramList*>();
    bench.leaveToList();
    QVERIFY(list->exportFile(folder.filePath(QStringLiteral("Copy.txt"))));
    QVERIFY(list->importFile(folder.filePath(QStringLiteral("Copy.txt"))));
    QCOMPARE(bench.stored(QStringLiteral("Copy")), odd);
    QVERIFY(!list->importFile(folder.filePath(QStringLiteral("Copy.txt"))));
    QVERIFY(!list->importFile(folder.filePath(QStringLiteral("none.txt"))));
    QVERIFY(!list->exportFile(folder.filePath(QStringLiteral("none/none.txt"))));
    QCOMPARE(bench.complaints.size(), 3);
}

// Nothing of it stays on the controller.
void TestProgramPage::fileThatIsTooLong()
{
    Bench bench;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("Long.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(64 * 1024 * 1024 + 1));
    const QStringList before = bench.cell->programs();
    QVERIFY(!bench.page.findChild<ProgramList*>()->importFile(file.fileName()));
    QCOMPARE(bench.cell->programs(), before);
    QCOMPARE(bench.complaints.size(), 1);
}

void TestProgramPage::programThatCannotBeRead()
{
    Bench bench;
    const QByteArray before = bench.text();
    QVERIFY(!bench.page.open(QStringLiteral("none")));
    QCOMPARE(bench.complaints.first().first().toString(),
             QStringLiteral("The program \"none\" cannot be read. Check the connection to the "
                            "controller."));
    QCOMPARE(bench.text(), before);
}

void TestProgramPage::pluginsGo()
{
    Bench bench("LaserOn(\"a\");\n");
    bench.view()->select(0);
    QVERIFY(bench.page.findChild<qelplugin::RLContentBase*>());
    bench.page.dropPlugins();
    QVERIFY(!bench.page.findChild<qelplugin::RLContentBase*>());
    QCOMPARE(child<QListWidget>(&bench.page, "list_instructions")->count(), 0);
    QCOMPARE(bench.text(), QByteArray("LaserOn(\"a\");\n"));
}

// What is not saved outlives a plugin that is loaded anew.
void TestProgramPage::pluginsComeBack()
{
    Bench bench("LaserOn(\"a\");\nLaserOff();\n");
    bench.view()->select(1);
    bench.click("button_delete");
    bench.page.dropPlugins();
    bench.page.hide();
    bench.page.show();
    QVERIFY(bench.page.hasUnsaved());
    QCOMPARE(bench.text(), QByteArray("LaserOn(\"a\");\n"));
    QCOMPARE(child<QListWidget>(&bench.page, "list_instructions")->count(), 3);
    QCOMPARE(bench.label("label_editor"), QStringLiteral("Line 1: LaserOn"));
}

LASERWELD_TEST_MAIN(TestProgramPage)
#include "tst_programpage.moc"
