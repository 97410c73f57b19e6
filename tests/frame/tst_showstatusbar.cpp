#include "ShowStatusBar.h"
#include "TestCase.h"

#include <QGridLayout>
#include <QLabel>

class ShowStatusBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void showsPictures_data();
    void showsPictures();
    void showsTheLast();
    void keepsItsSize();
};

void ShowStatusBarTest::form()
{
    const ShowStatusBar bar;
    QCOMPARE(bar.objectName(), QStringLiteral("ShowStatusBar"));
    QCOMPARE(bar.size(), QSize(53, 25));
    QCOMPARE(bar.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(bar.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));

    const auto* layout = child<QGridLayout>(&bar, "gridLayout");
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->horizontalSpacing(), 0);
    QCOMPARE(layout->verticalSpacing(), 0);

    auto* label = child<QLabel>(&bar, "label");
    QCOMPARE(layout->itemAtPosition(0, 0)->widget(), label);
    QCOMPARE(label->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(label->text(), QStringLiteral("TextLabel"));
    QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
}

using Show = void (*)(ShowStatusBar&);
Q_DECLARE_METATYPE(Show)

void ShowStatusBarTest::showsPictures_data()
{
    QTest::addColumn<Show>("show");
    QTest::addColumn<QString>("picture");

    const QString real = QStringLiteral(":/png/LaserSwitchReal.png");
    const QString simulated = QStringLiteral(":/png/LaserSwitchSimu.png");
    QTest::newRow("real") << Show([](ShowStatusBar& bar) { bar.showRealWelding(); }) << real;
    QTest::newRow("virtual") << Show([](ShowStatusBar& bar) { bar.showVirtualWelding(); })
                             << simulated;
    QTest::newRow("mode real") << Show([](ShowStatusBar& bar) { bar.showWorkMode(false); }) << real;
    QTest::newRow("mode virtual") << Show([](ShowStatusBar& bar) { bar.showWorkMode(true); })
                                  << simulated;
}

void ShowStatusBarTest::showsPictures()
{
    QFETCH(Show, show);
    QFETCH(QString, picture);
    ShowStatusBar bar;
    show(bar);

    const auto* label = child<QLabel>(&bar, "label");
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.height(), 25);
    const QPixmap whole(picture);
    QVERIFY(!whole.isNull());
    QCOMPARE(shown.toImage(), whole.scaledToHeight(25, Qt::SmoothTransformation).toImage());
    QCOMPARE(label->text(), QString());
}

void ShowStatusBarTest::showsTheLast()
{
    ShowStatusBar bar;
    const auto* label = child<QLabel>(&bar, "label");
    bar.showRealWelding();
    const QImage real = label->pixmap(Qt::ReturnByValue).toImage();
    bar.showVirtualWelding();
    QVERIFY(label->pixmap(Qt::ReturnByValue).toImage() != real);
    bar.showRealWelding();
    QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(), real);
}

void ShowStatusBarTest::keepsItsSize()
{
    ShowStatusBar bar;
    bar.showRealWelding();
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCOMPARE(bar.size(), QSize(53, 25));
    const QPixmap grabbed = bar.grab();
    QVERIFY(!grabbed.isNull());
}

LASERWELD_TEST_MAIN(ShowStatusBarTest)
#include "tst_showstatusbar.moc"
