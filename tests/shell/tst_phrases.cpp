#include "Languages.h"
#include "Phrases.h"
#include "TestCase.h"

using namespace pendant;

class TestPhrases : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void chinese_data();
    void chinese();
    void englishStays();
};

void TestPhrases::chinese_data()
{
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* english, const QString& expected) {
        QTest::newRow(english) << QString::fromLatin1(english) << expected;
    };
    row("not a library", QStringLiteral("不是库文件"));
    row("missing symbol: a::b(int)", QStringLiteral("缺少符号：a::b(int)"));
    row("no plugin: has no function qelplugin::api()",
        QStringLiteral("不是插件：没有函数 qelplugin::api()"));
    row("made for version 2 of the plugin interface, the pendant has 1",
        QStringLiteral("插件接口版本为 2，示教器的接口版本为 1"));
    row("There is a program \"%2\" already. Choose another name, or delete that one first.",
        QStringLiteral("程序 \"%2\" 已存在。请使用其他名称，或先删除该程序。"));
    row("The name \"%2\" has 200 characters. Give a name of at most 64.",
        QStringLiteral("名称 \"%2\" 有 200 个字符。请输入不超过 64 个字符的名称。"));
    row("nobody has said this", QStringLiteral("nobody has said this"));
    row("not a library at all", QStringLiteral("not a library at all"));
}

void TestPhrases::chinese()
{
    QFETCH(QString, english);
    Languages languages;
    languages.choose(Language::Chinese);
    QTEST(phrase(english), "expected");
}

void TestPhrases::englishStays()
{
    const QString text = QStringLiteral("missing symbol: a::b(int)");
    QCOMPARE(phrase(text), text);
}

LASERWELD_TEST_MAIN(TestPhrases)
#include "tst_phrases.moc"
