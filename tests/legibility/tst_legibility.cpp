#include "Forced.h"
#include "Stage.h"
#include "TestCase.h"
#include "Theme.h"

#include <QApplication>
#include <QScreen>

/// Every page and every instruction editor, in both languages and in windows of three sizes: no
/// text is cut and nothing lies over anything else, but for what the fixed sizes force. The dots
/// per inch are those that the program is started with.
class TestLegibility : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsCut_data();
    void nothingIsCut();
};

void TestLegibility::nothingIsCut_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QSize>("window");
    const QString chinese = QStringLiteral(":/qelLaserWelding/language/qelLaserWelding_cn.qm");
    for (const QSize& window : {QSize(800, 600), QSize(1024, 768), QSize(1280, 800)}) {
        QTest::addRow("English %d", window.width()) << QStringLiteral("en") << QString() << window;
        QTest::addRow("Chinese %d", window.width()) << QStringLiteral("zh") << chinese << window;
    }
}

void TestLegibility::nothingIsCut()
{
    QFETCH(const QString, language);
    QFETCH(const QString, catalogue);
    QFETCH(const QSize, window);
    const QString where = QStringLiteral("%1%2:%3")
                              .arg(language)
                              .arg(qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch()))
                              .arg(window.width());
    const QVector<Finding> findings = Stage(window, catalogue).examineAll();
    if (qEnvironmentVariableIsSet("LEGIBILITY_PICTURES")) {
        for (const Finding& each : findings)
            qInfo("found: %s %s", qPrintable(where), qPrintable(each.line()));
    }
    const QStringList differences = Forced::differences(where, findings);
    for (const QString& each : differences)
        qInfo("%s", qPrintable(each)); // QtTest cuts long texts
    QVERIFY(differences.isEmpty());
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    pendant::Theme::apply(application); // the fonts as the pendant has them
    TestLegibility test;
    return TestCase::run(&test, argc, argv);
}

#include "tst_legibility.moc"
