#include "ScriptedHost.h"
#include "TestCase.h"

#include <QApplication>

#include <functional>

using qelplugin::PhysicalButton;

namespace {

const QString Plugin = QStringLiteral("somePlugin");
const QString Group = QStringLiteral("someGroup");

using Call = std::function<int()>;

} // namespace

Q_DECLARE_METATYPE(Call)

/// What a plugin puts into the window reaches the backend as it was given.
class TestHostWindow : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reachesTheBackend_data();
    void reachesTheBackend();
    void handsOverWidgets();
    void handsOverKeys();
    void pageOfAnotherPlugin();
    void nothingBehindIt_data();
    void nothingBehindIt();
    void backendBefore();
};

void TestHostWindow::reachesTheBackend_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QJsonArray>("arguments");

    QTest::newRow("CreateCenterWidget")
        << Call([] { return qelplugin::CreateCenterWidget(Plugin, nullptr); })
        << QJsonArray{Plugin};
    QTest::newRow("CreateStatusBar")
        << Call([] { return qelplugin::CreateStatusBar(Plugin, nullptr, 1); })
        << QJsonArray{Plugin, 1};
    QTest::newRow("CreatePhyButtonList") << Call([] {
        return qelplugin::CreatePhyButtonList(Plugin, Group, {}, {}, {QStringLiteral("extra")});
    }) << QJsonArray{Plugin, Group, QJsonArray{QStringLiteral("extra")}};
    QTest::newRow("ChangePhyButtonStatus")
        << Call([] { return qelplugin::ChangePhyButtonStatus(Plugin, Group, true); })
        << QJsonArray{Plugin, Group, true};
    QTest::newRow("ThrowLog") << Call([] {
        return qelplugin::ThrowLog(Plugin, static_cast<qelplugin::enThrowLogLevel>(2),
                                   QStringLiteral("text"));
    }) << QJsonArray{Plugin, 2, QStringLiteral("text")};
}

void TestHostWindow::reachesTheBackend()
{
    QFETCH(Call, call);
    QFETCH(QJsonArray, arguments);
    const ScriptedHost host;
    QCOMPARE(call(), 0);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(host.callNames(), QStringList{name});
    QCOMPARE(host.lastArguments(name), arguments);
}

void TestHostWindow::handsOverWidgets()
{
    const ScriptedHost host;
    QWidget page;
    QWidget indicator;
    qelplugin::CreateCenterWidget(Plugin, &page);
    qelplugin::CreateStatusBar(Plugin, &indicator, 1);
    QCOMPARE(host.centerWidget.data(), &page);
    QCOMPARE(host.statusBarWidget.data(), &indicator);
}

void TestHostWindow::handsOverKeys()
{
    const ScriptedHost host;
    QList<bool> pressed;
    const PhysicalButton key{QStringLiteral("label"), QStringLiteral("pressed"),
                             QStringLiteral("unpressed"), [&](bool on) { pressed << on; }};
    qelplugin::CreatePhyButtonList(Plugin, Group, {key, key}, {key}, {});
    QCOMPARE(host.firstKeys.size(), 2);
    QCOMPARE(host.secondKeys.size(), 1);
    const PhysicalButton& handed = host.secondKeys.first();
    QCOMPARE(handed.label, key.label);
    QCOMPARE(handed.pressedIcon, key.pressedIcon);
    QCOMPARE(handed.unpressedIcon, key.unpressedIcon);
    handed.callback(true);
    handed.callback(false);
    QCOMPARE(pressed, (QList<bool>{true, false}));
}

void TestHostWindow::pageOfAnotherPlugin()
{
    ScriptedHost host;
    QWidget page;
    QWidget* widget = nullptr;
    QCOMPARE(qelplugin::GetPluginNoUniqueWidget(Plugin, widget), 1);
    QVERIFY(!widget);
    host.siblings.insert(Plugin, &page);
    QCOMPARE(qelplugin::GetPluginNoUniqueWidget(Plugin, widget), 0);
    QCOMPARE(widget, &page);
}

void TestHostWindow::nothingBehindIt_data()
{
    reachesTheBackend_data();
}

void TestHostWindow::nothingBehindIt()
{
    QFETCH(Call, call);
    QVERIFY(call() != 0);
    QWidget* widget = nullptr;
    QVERIFY(qelplugin::GetPluginNoUniqueWidget(Plugin, widget) != 0);
    QVERIFY(!widget);
}

void TestHostWindow::backendBefore()
{
    const ScriptedHost outer;
    {
        const ScriptedHost inner;
        QCOMPARE(&qelplugin::hostBackend(), &inner);
    }
    QCOMPARE(&qelplugin::hostBackend(), &outer);
}

LASERWELD_TEST_MAIN(TestHostWindow)
#include "tst_hostwindow.moc"
