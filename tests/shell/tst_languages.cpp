#include "Controller.h"
#include "LampButton.h"
#include "MainWindow.h"
#include "OpenSession.h"
#include "Options.h"
#include "PluginSheet.h"
#include "ProgramPage.h"
#include "TestCase.h"
#include "qelplugin.h"

#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace pendant;

class TestLanguages : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void titleFollowsTheLanguage();
    void itStartsInChinese();
    void nothingStaysInEnglish();
    void theButtonTurnsIt();
    void programIsNotLost();
    void programStaysInView();
    void stateStays();
    void messageIsSaidInTheLanguage();
    void nothingIsLeftBehind();
    void theSheetOfThePlugin();
    void theThemeButton();

private:
    std::unique_ptr<QTemporaryDir> folder;
    Options options;
};

namespace {

const QString Chinese = QStringLiteral("焊接设置");
const QString English = QStringLiteral("Parmeter Setting");

QString title(Session& session)
{
    return child<QLabel>(&session.window(), "lblTitle")->text();
}

bool isMapped(const QByteArray& file)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(file);
}

// What the pendant itself shows on buttons and labels, and in headers of its own.
QStringList shellTexts(Session& session)
{
    QStringList texts;
    for (const char* part : {"topBar", "messageStrip", "drawer", "loginPanel", "programPage"}) {
        const auto all = child<QWidget>(&session.window(), part)->findChildren<QWidget*>();
        for (const QWidget* each : all) {
            texts << each->property("text").toString()
                  << each->property("placeholderText").toString() << each->toolTip()
                  << each->accessibleName();
        }
    }
    return texts;
}

} // namespace

// The plugin logs below the working directory.
void TestLanguages::init()
{
    TestCase::init();
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(folder->path()));
    options = Options();
    options.userLevel = 3;
    options.cellFile = folder->filePath(QStringLiteral("cell.sqlite"));
    options.pluginFolder = folder->filePath(QStringLiteral("plugins"));
    QVERIFY(QDir().mkdir(options.pluginFolder));
    QVERIFY(QFile::link(QStringLiteral(WELDING_LIBRARY),
                        options.pluginFolder + QStringLiteral("/libqelLaserWelding.so")));
}

void TestLanguages::cleanup()
{
    Theme::setShade(Theme::Shade::Light);
    QDir::setCurrent(QDir::rootPath());
    TestCase::cleanup();
}

void TestLanguages::titleFollowsTheLanguage()
{
    const auto session = openSession(options);
    QCOMPARE(title(*session), English);
    session->setLanguage(Language::Chinese);
    QCOMPARE(title(*session), Chinese);
    session->setLanguage(Language::Chinese);
    QCOMPARE(title(*session), Chinese);
    session->setLanguage(Language::English);
    QCOMPARE(title(*session), English);
}

void TestLanguages::itStartsInChinese()
{
    options.language = Language::Chinese;
    auto session = openSession(options);
    QCOMPARE(title(*session), Chinese);
    QCOMPARE(child<QLabel>(&session->window(), "label_application")->text(),
             QStringLiteral("激光焊接"));
    session.reset();
    // The next one knows nothing of it.
    options.language = Language::English;
    QCOMPARE(title(*openSession(options)), English);
}

// Names of programs, plugins and files stay, and what the two buttons of the bar are called.
void TestLanguages::nothingStaysInEnglish()
{
    const auto session = openSession(options);
    session->setLanguage(Language::Chinese);
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{4,}"));
    static const QRegularExpression name(QStringLiteral(
        "^(example_\\w+|.*qelLaserWelding.*|.*return.*|.*reg_name.*|.*lib\\*\\.so.*)$"));
    const QStringList texts = shellTexts(*session);
    QVERIFY(texts.contains(QStringLiteral("控制器日志")));
    for (const QString& text : texts)
        QVERIFY2(!text.contains(word) || name.match(text).hasMatch(), qPrintable(text));
}

void TestLanguages::theButtonTurnsIt()
{
    const auto session = openSession(options);
    for (const QString& expected : {Chinese, English}) {
        child<QPushButton>(&session->window(), "button_language")->click();
        QTRY_COMPARE(title(*session), expected);
    }
}

void TestLanguages::programIsNotLost()
{
    const auto session = openSession(options);
    auto* page = child<ProgramPage>(&session->window(), "programPage");
    QVERIFY(page->open(QStringLiteral("example_seam")));
    ProgramDocument& program = page->findChild<ProgramEditor*>()->program();
    program.remove(0, 1);
    const QByteArray before = program.text();
    for (const Language language : {Language::Chinese, Language::English}) {
        session->setLanguage(language);
        page = child<ProgramPage>(&session->window(), "programPage");
        auto* editor = page->findChild<ProgramEditor*>();
        QVERIFY(page->hasUnsaved());
        QCOMPARE(editor->name(), QStringLiteral("example_seam"));
        QCOMPARE(editor->program().text(), before);
        QVERIFY(editor->program().history().canUndo());
    }
    page->findChild<ProgramEditor*>()->program().history().undo();
    QVERIFY(!page->hasUnsaved());
}

void TestLanguages::programStaysInView()
{
    const auto session = openSession(options);
    child<QPushButton>(&session->window(), "button_program")->click();
    auto* page = child<ProgramPage>(&session->window(), "programPage");
    QVERIFY(page->open(QStringLiteral("example_seam")));
    session->setLanguage(Language::Chinese);
    page = child<ProgramPage>(&session->window(), "programPage");
    QVERIFY(page->isVisible());
    QVERIFY(page->findChild<ProgramEditor*>()->isVisible());
    // The instructions are there as well.
    QTRY_VERIFY(child<QWidget>(page, "list_instructions")->isVisible());
    QCOMPARE(child<QLabel>(&session->window(), "label_application")->text(),
             QStringLiteral("机器人程序"));
}

void TestLanguages::stateStays()
{
    options.powered = true;
    const auto session = openSession(options);
    session->controller().setConnected(false);
    Faults faults;
    faults.emptyReply = true;
    session->controller().setFaults(faults);
    session->window().showMessage(QStringLiteral("x"), 1, QStringLiteral("A message"));
    child<QPushButton>(&session->window(), "button_log")->click();
    auto* log = child<QWidget>(&session->window(), "panel_log");
    const QString said = qobject_cast<QPlainTextEdit*>(log)->toPlainText();
    const int messages = session->window().messages().rowCount();
    const QSize size = session->window().size();
    session->setLanguage(Language::Chinese);
    QVERIFY(session->controller().isPowered());
    QVERIFY(!session->controller().isConnected());
    QVERIFY(session->controller().faults().emptyReply);
    QCOMPARE(qelplugin::qelPluginInterface().getUserOperateLevel(), 3);
    QCOMPARE(session->window().messages().rowCount(), messages);
    QCOMPARE(child<QLabel>(&session->window(), "label_message")->text(),
             QStringLiteral("A message"));
    QCOMPARE(child<LampButton>(&session->window(), "button_user")->value(),
             QStringLiteral("3级：技术员"));
    QCOMPARE(child<LampButton>(&session->window(), "button_connection")->value(),
             QStringLiteral("未连接"));
    log = child<QWidget>(&session->window(), "panel_log");
    QVERIFY(log->isVisible());
    QVERIFY(qobject_cast<QPlainTextEdit*>(log)->toPlainText().startsWith(said));
    QCOMPARE(session->window().size(), size);
}

void TestLanguages::messageIsSaidInTheLanguage()
{
    options.language = Language::Chinese;
    const auto session = openSession(options);
    session->controller().setConnected(false);
    auto* page = child<ProgramPage>(&session->window(), "programPage");
    QVERIFY(!page->open(QStringLiteral("example_seam")));
    QCOMPARE(session->window().messages().at(0).text,
             QStringLiteral("无法读取程序“example_seam”。请检查与控制器的连接。"));
}

void TestLanguages::nothingIsLeftBehind()
{
    auto session = openSession(options);
    const auto turn = [&] {
        session->setLanguage(Language::Chinese);
        session->setLanguage(Language::English);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QApplication::allWidgets().size();
    };
    const int before = turn();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(turn(), before);
    session->setLanguage(Language::Chinese);
    session.reset();
    QCOMPARE(QCoreApplication::translate("LaserWeldPage", "Parmeter Setting"), English);
    QCOMPARE(QCoreApplication::translate("pendant::Drawer", "Close"), QStringLiteral("Close"));
    QVERIFY(!isMapped("libqelLaserWelding.so"));
}

// Each warning fails the test: the theme knows all that the sheet asks for, and Qt can read it.
void TestLanguages::theSheetOfThePlugin()
{
    const auto session = openSession(options);
    QStringList sheets;
    for (const auto shade : {Theme::Shade::Light, Theme::Shade::Dark}) {
        Theme::setShade(shade);
        sheets << PluginSheet::ofPlugin(QStringLiteral("qelLaserWelding"));
        QCOMPARE(sheets.last().count(QLatin1Char('\n')), 78);
        QVERIFY(!sheets.last().contains(QLatin1Char('$')));
        QVERIFY(sheets.last().startsWith(QStringLiteral("QWidget:focus {")));
        QWidget place;
        place.setStyleSheet(sheets.last());
        auto* button = new QPushButton(&place);
        place.grab();
        QVERIFY(button->minimumSizeHint().height() >= 36);
    }
    QVERIFY(sheets.at(0) != sheets.at(1));
}

void TestLanguages::theThemeButton()
{
    const auto session = openSession(options);
    const auto pixel = [&] {
        return session->window().grab().toImage().pixelColor(session->window().width() / 2, 2);
    };
    const auto lamp = [&] {
        return child<LampButton>(&session->window(), "button_connection")->lamp();
    };
    const QColor light = lamp();
    QCOMPARE(pixel(), Theme::colour(Theme::Card));
    child<QPushButton>(&session->window(), "button_theme")->click();
    QCOMPARE(Theme::shade(), Theme::Shade::Dark);
    QCOMPARE(pixel(), Theme::colour(Theme::Card));
    QVERIFY(pixel().lightness() < 80);
    QVERIFY(lamp() != light);
    child<QPushButton>(&session->window(), "button_theme")->click();
    QCOMPARE(lamp(), light);
    QVERIFY(pixel().lightness() > 200);
}

LASERWELD_TEST_MAIN(TestLanguages)
#include "tst_languages.moc"
