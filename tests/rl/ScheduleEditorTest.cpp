#include "ScheduleEditorTest.h"

#include "LeaksOfQt.h"
#include "LogFolder.h"
#include "ScriptedHost.h"

ScheduleEditorTest::ScheduleEditorTest(const Traits& editorTraits)
    : traits(editorTraits)
{}

QComboBox* ScheduleEditorTest::schedule(const Editor& editor)
{
    return child<QComboBox>(editor.get(), "cbxLaserDataID");
}

QComboBox* ScheduleEditorTest::mode(const Editor& editor) const
{
    return child<QComboBox>(editor.get(), traits.mode);
}

QSpinBox* ScheduleEditorTest::number(const Editor& editor) const
{
    return child<QSpinBox>(editor.get(), traits.number);
}

bool ScheduleEditorTest::showsNumber(const Editor& editor) const
{
    return number(editor)->isVisibleTo(editor.get()) &&
           child<QLabel>(editor.get(), traits.numberLabel)->isVisibleTo(editor.get());
}

bool ScheduleEditorTest::hidesNumber(const Editor& editor) const
{
    return !number(editor)->isVisibleTo(editor.get()) &&
           !child<QLabel>(editor.get(), traits.numberLabel)->isVisibleTo(editor.get());
}

QRegularExpression ScheduleEditorTest::lineWith(char level, const QString& end) const
{
    return QRegularExpression(
        QStringLiteral("\\[%1\\|[^]]+\\] LASER:: %2::FillWith [1-9]\\d* %3$")
            .arg(QLatin1Char(level))
            .arg(QLatin1String(traits.className), QRegularExpression::escape(end)));
}

void ScheduleEditorTest::newForm()
{
    const Editor editor = make();
    QCOMPARE(QLatin1String(editor->metaObject()->className()), QLatin1String(traits.className));
    QCOMPARE(editor->metaObject()->superClass(), &qelplugin::RLContentBase::staticMetaObject);
    QCOMPARE(editor->metaObject()->methodCount(),
             qelplugin::RLContentBase::staticMetaObject.methodCount());
    QCOMPARE(EditorTest::keyOf(*editor), traits.key);
    QCOMPARE(editor->size(), traits.size);
    QVERIFY(!schedule(editor)->isEditable());
    QVERIFY(!mode(editor)->isEditable());
    QCOMPARE(mode(editor)->currentIndex(), 0);
    const QSpinBox* box = number(editor);
    QCOMPARE(box->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(box->minimum(), traits.least);
    QCOMPARE(box->maximum(), traits.most);
    QCOMPARE(box->value(), traits.preset);
    QVERIFY(hidesNumber(editor));
}

void ScheduleEditorTest::schedules()
{
    const Editor editor = make();
    QStringList names;
    for (int index = 1; index <= 30; ++index)
        names << QStringLiteral("LsData%1").arg(index);
    QCOMPARE(EditorTest::entries(schedule(editor)), names);
    QCOMPARE(schedule(editor)->currentIndex(), 0);
}

void ScheduleEditorTest::build(const char* name, int schedule, int mode, int number,
                               const char* text)
{
    QTest::newRow(name) << schedule << mode << number << QString::fromLatin1(text);
}

void ScheduleEditorTest::load(const char* name, const char* line, const char* text)
{
    QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(text);
}

void ScheduleEditorTest::builds_data()
{
    QTest::addColumn<int>("scheduleIndex");
    QTest::addColumn<int>("modeIndex");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    rowsToBuild();
}

void ScheduleEditorTest::builds()
{
    QFETCH(int, scheduleIndex);
    QFETCH(int, modeIndex);
    QFETCH(int, value);
    const Editor editor = make();
    schedule(editor)->setCurrentIndex(scheduleIndex);
    mode(editor)->setCurrentIndex(modeIndex);
    number(editor)->setValue(value);
    QTEST(editor->BuildText(), "text");
}

void ScheduleEditorTest::loads_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text"); ///< as written again
    rowsToLoad();
}

void ScheduleEditorTest::loads()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    const Editor editor = make();
    editor->FillWith(line);
    QCOMPARE(editor->BuildText(), text);
    const bool hasNumber = text.count(QLatin1Char(',')) == traits.commasWithNumber;
    QVERIFY(hasNumber ? showsNumber(editor) : hidesNumber(editor));
    QVERIFY(hasNumber || number(editor)->value() == traits.preset);
}

void ScheduleEditorTest::changesNothing_data()
{
    QTest::addColumn<QString>("line");
    const QStringList lines =
        QStringList{QString(), traits.key, traits.key + QStringLiteral("(\"LsData1\"); // on"),
                    traits.key + QStringLiteral("(\"LsData1\",\n7);")} +
        otherRefusals();
    for (const QString& line : lines)
        QTest::newRow(qPrintable(line)) << line;
}

void ScheduleEditorTest::changesNothing()
{
    QFETCH(QString, line);
    const Editor editor = make();
    editor->FillWith(callWith(5, 77));
    QCOMPARE(editor->BuildText(), callWith(5, 77));
    editor->FillWith(line);
    QCOMPARE(editor->BuildText(), callWith(5, 77));
}

void ScheduleEditorTest::numberFollowsMode()
{
    const Editor editor = make();
    for (int index = mode(editor)->count() - 1; index >= 0; --index) {
        mode(editor)->setCurrentIndex(index);
        QVERIFY(index == 1 ? showsNumber(editor) : hidesNumber(editor));
        mode(editor)->setCurrentIndex(1);
        QVERIFY(showsNumber(editor));
    }
}

void ScheduleEditorTest::exceptions_data()
{
    QTest::addColumn<bool>("isStandard");
    QTest::addColumn<QString>("end");
    QTest::newRow("standard") << true << QStringLiteral(" std::exception: broken");
    QTest::newRow("other") << false << QString::fromLatin1(traits.unknownException);
}

void ScheduleEditorTest::exceptions()
{
    QFETCH(bool, isStandard);
    QFETCH(QString, end);
    const LogFolder log;
    EditorTest::ThrowingModel model(isStandard);
    const Editor editor = make();
    schedule(editor)->setModel(&model);
    {
        const LeaksOfQt expected;
        editor->FillWith(callWith(5, 77));
    }
    const QStringList lines = LogFolder::lines(traits.tag);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lineWith('W', end).match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QCOMPARE(mode(editor)->currentIndex(), 0);
}

void ScheduleEditorTest::asksNoHost()
{
    const ScriptedHost host;
    const Editor editor = make();
    editor->FillWith(callWith(5, 77));
    editor->BuildText();
    editor->CheckInsert();
    editor->CheckReplace();
    QCOMPARE(host.callNames(), QStringList());
}

void ScheduleEditorTest::randomLines()
{
    const LogFolder log;
    const EditorTest::SilentConsole silent;
    QRandomGenerator random(4712);
    const QRegularExpression call(QString::fromLatin1(traits.anyCall));
    const Editor editor = make();
    for (int line = 0; line < 50'000; ++line) {
        const QString text = EditorTest::randomCall(random, traits.pieces);
        editor->FillWith(text);
        const QString built = editor->BuildText();
        const bool isGood = call.match(built).hasMatch() && number(editor)->value() <= traits.most;
        QVERIFY2(isGood, qPrintable(text + QStringLiteral(" -> ") + built));
    }
}
