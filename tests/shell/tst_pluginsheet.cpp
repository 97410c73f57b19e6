#include "PluginSheet.h"
#include "TestCase.h"
#include "Theme.h"
#include "ThemeTokens.h"

#include <QFile>
#include <QRegularExpression>

using namespace pendant;

namespace {

std::optional<QString> lookup(const QString& kind, const QString& token)
{
    if (token == QLatin1String("unknown"))
        return std::nullopt;
    return kind + QLatin1Char(':') + token;
}

} // namespace

class TestPluginSheet : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rulesInTheirOrder();
    void quotations();
    void byteOrderMark();
    void wrong_data();
    void wrong();
    void tokens_data();
    void tokens();
    void unknownTokens();
    void fontsFollowTheZoom();
    void withoutASheet();
    void cleanup();
};

void TestPluginSheet::cleanup()
{
    Theme::setShade(Theme::Shade::Light);
    Theme::setZoom(1);
}

void TestPluginSheet::rulesInTheirOrder()
{
    const PluginSheet sheet(R"([{"name":"B","color":"white"},
        {"border-bottom":"$border$input","name":"A, C::item","border":"none"},
        {"name":"B","image":"$image$widget/handle"}])",
                            lookup);
    QCOMPARE(sheet.text(), QStringLiteral("B { color: white; }\n"
                                          "A, C::item { border: none; border-bottom: "
                                          "border:input; }\n"
                                          "B { image: image:widget/handle; }\n"));
    QVERIFY(sheet.complaints().isEmpty());
}

void TestPluginSheet::quotations()
{
    const PluginSheet sheet(R"([{"name":"A[x=\"it's\"]","font":"9pt 'Noto \"Sans'"}])", lookup);
    QCOMPARE(sheet.text(), QStringLiteral("A[x=\"it's\"] { font: 9pt 'Noto \"Sans'; }\n"));
    QVERIFY(sheet.complaints().isEmpty());
}

void TestPluginSheet::byteOrderMark()
{
    const PluginSheet sheet("\xef\xbb\xbf[{\"name\":\"A\",\"color\":\"red\"}]", lookup);
    QCOMPARE(sheet.text(), QStringLiteral("A { color: red; }\n"));
    QVERIFY(sheet.complaints().isEmpty());
}

void TestPluginSheet::wrong_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("complaint"); // a part of the only one
    const auto row = [](const char* name, const char* json, const char* text,
                        const char* complaint) {
        QTest::newRow(name) << QByteArray(json) << QString::fromLatin1(text)
                            << QString::fromLatin1(complaint);
    };
    const char* const after = "B { color: red; }\n";
    row("empty", "", "", "no JSON: ");
    row("cut", "[{\"name\":", "", "no JSON: ");
    row("no array", "{\"name\":\"A\"}", "", "no array of rules");
    row("rule is a text", R"(["A",{"name":"B","color":"red"}])", after, "rule 1 is no object");
    row("rule is null", R"([null,{"name":"B","color":"red"}])", after, "rule 1 is no object");
    row("no selector", R"([{"color":"x"},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    row("selector is a number", R"([{"name":5},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    row("selector is blank", R"([{"name":" "},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    row("selector breaks out", R"([{"name":"A}"},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    row("selector begins a comment", R"([{"name":"A /*"},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    row("selector opens a quotation", R"([{"name":"A[x='1]"},{"name":"B","color":"red"}])", after,
        "rule 1 has no selector");
    const char* const both = "A { color: blue; }\nB { color: red; }\n";
    const auto property = [&](const char* name, const char* value, const char* complaint) {
        const QByteArray json = QByteArray(R"([{"name":"A","color":"blue","width":)") + value +
                                R"(},{"name":"B","color":"red"}])";
        row(name, json.constData(), both, complaint);
    };
    property("unknown token", R"("$color$unknown")",
             "rule 1 (A), \"width\": the theme has no $color$unknown");
    property("value is a number", "7", "rule 1 (A), \"width\": the value is no text");
    property("value is null", "null", "rule 1 (A), \"width\": the value is no text");
    property("value is an object", "{}", "rule 1 (A), \"width\": the value is no text");
    property("value is an array", "[]", "rule 1 (A), \"width\": the value is no text");
    property("value is true", "true", "rule 1 (A), \"width\": the value is no text");
    property("value is blank", R"("")", "rule 1 (A), \"width\": the value is no text");
    property("reference without a token", R"("$color$")", "$color$ is no reference");
    property("reference among others", R"("1px solid $color$topic")", "is no reference");
    property("value breaks out", R"("1px; } C { color: red")", "is no value");
    property("value begins a comment", R"("1px /* wide")", "is no value");
    property("value ends a comment", R"("1px */")", "is no value");
    property("value opens a quotation", R"("1px \"x")", "is no value");
    property("value is a quotation of a mark", R"("\"\\\"")", "is no value");
    row("property breaks out",
        R"([{"name":"A","color":"blue","x}":"1"},{"name":"B","color":"red"}])", both,
        "rule 1 (A), \"x}\": no name of a property");
}

void TestPluginSheet::wrong()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, complaint);
    const PluginSheet sheet(json, lookup);
    QTEST(sheet.text(), "text");
    QCOMPARE(sheet.complaints().size(), 1);
    QVERIFY2(sheet.complaints().first().contains(complaint),
             qPrintable(sheet.complaints().first()));
}

void TestPluginSheet::tokens_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("names");
    const auto row = [](const char* kind, const char* names) {
        QTest::newRow(kind) << QString::fromLatin1(kind) << QString::fromLatin1(names);
    };
    row("font", "default h2 h3");
    row("color", "btn_bkg btn_text btn_light_bkg btn_hover btn_pressed btn_disable btn_bkg_disable "
                 "topic center_bkg slider_groove tbl_grid tbl_header_bkg lst_item_bkg "
                 "lst_item_bkg_alternate lst_item_bkg_selected wgt_bkg_light bar_text bar_bkg "
                 "bar_select_text bar_select_bkg");
    row("border", "input input_focus input_hover btn btn_hover btn_pressed tbl_frame");
    row("image", "widget/chb_unchecked widget/chb_checked widget/rdb_unchecked widget/rdb_checked "
                 "widget/cmb_dropdown widget/slider_top widget/slider_bottom widget/slider_left "
                 "widget/slider_right widget/handle widget/handle_hover widget/handle_pressed "
                 "widget/branch_fold widget/branch_expand");
}

void TestPluginSheet::tokens()
{
    QFETCH(QString, kind);
    QFETCH(QString, names);
    // Registers the pictures.
    QWidget widget;
    Theme::dress(&widget);
    static const QRegularExpression url(QStringLiteral("^url\\((:.+)\\)$"));
    const QStringList all = names.split(QLatin1Char(' '));
    for (const auto shade : {Theme::Shade::Light, Theme::Shade::Dark}) {
        Theme::setShade(shade);
        for (const QString& name : all) {
            const auto value = themeValue(kind, name);
            QVERIFY2(value && !value->isEmpty(), qPrintable(name));
            if (kind == QLatin1String("image"))
                QVERIFY2(!QPixmap(url.match(*value).captured(1)).isNull(), qPrintable(*value));
            if (kind == QLatin1String("color"))
                QVERIFY2(QColor::isValidColor(*value), qPrintable(*value));
        }
    }
}

void TestPluginSheet::unknownTokens()
{
    QVERIFY(!themeValue(QStringLiteral("color"), QStringLiteral("h2")));
    QVERIFY(!themeValue(QStringLiteral("font"), QStringLiteral("h9")));
    QVERIFY(!themeValue(QStringLiteral("image"), QStringLiteral("chb_checked")));
    QVERIFY(!themeValue(QStringLiteral("shadow"), QStringLiteral("default")));
}

void TestPluginSheet::fontsFollowTheZoom()
{
    const auto font = [] { return *themeValue(QStringLiteral("font"), QStringLiteral("default")); };
    QVERIFY2(font().startsWith(QStringLiteral("normal 10pt \"")), qPrintable(font()));
    Theme::setZoom(1.5);
    QVERIFY2(font().startsWith(QStringLiteral("normal 15pt \"")), qPrintable(font()));
}

void TestPluginSheet::withoutASheet()
{
    QCOMPARE(PluginSheet::ofPlugin(QStringLiteral("nobody")), QString());
}

LASERWELD_TEST_MAIN(TestPluginSheet)
#include "tst_pluginsheet.moc"
