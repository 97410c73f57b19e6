// The style sheet that the library carries for its host: an array of rules in the order in which
// they are to be emitted, their values literal or a reference to the host's theme.

#include "TestCase.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>
#include <QWidget>

#include <algorithm>

namespace {

const char* const Selectors[] = {
    R"(QWidget:focus)",
    R"(QWidget)",
    R"(QWidget#wgtContent, QWidget#wgtTitle, QWidget#BaseSettingPage)",
    R"(QWidget[func = "subWgt"])",
    R"(QWidget[func="rlWgt"])",
    R"(QLabel#lblTitle)",
    R"(QLabel)",
    R"(QLabel[func="lblState"])",
    R"(QLabel[func="subTitle"])",
    R"(QCheckBox::indicator, QRadioButton::indicator)",
    R"(QCheckBox::indicator:unchecked)",
    R"(QCheckBox::indicator:checked)",
    R"(QRadioButton::indicator:unchecked)",
    R"(QRadioButton::indicator:checked)",
    R"(QGroupBox)",
    R"(QGroupBox::title)",
    R"(QToolButton)",
    R"(QPushButton)",
    R"(QPushButton[func="operation"])",
    R"(QPushButton[func="operation"]:pressed)",
    R"(QPushButton[func="touch"])",
    R"(QPushButton[func="humble"])",
    R"(QPushButton[func="secretly"])",
    R"(QPushButton:focus)",
    R"(QPushButton[func="operation"]:hover, QPushButton[func="humble"]:hover, QPushButton[func="secretly"])",
    R"(QPushButton:pressed)",
    R"(QPushButton[func="touch"]:pressed)",
    R"(QPushButton:!enabled)",
    R"(QPushButton[func="rlBtn"],QPushButton[func="rlBtn"]:hover)",
    R"(QPushButton[func="rlMove"])",
    R"(QPushButton[func="rlMove"]:hover)",
    R"(QLineEdit, QSpinBox, QDoubleSpinBox)",
    R"(QSpinBox:enabled:focus, QDoubleSpinBox:enabled:focus, QLineEdit:enabled:focus)",
    R"(QSpinBox:hover, QDoubleSpinBox:hover, QLineEdit:hover)",
    R"(QComboBox)",
    R"(QComboBox:hover)",
    R"(QComboBox:focus)",
    R"(QComboBox[func="secretly"], QComboBox[func="secretly"]:hover)",
    R"(QComboBox::drop-down)",
    R"(QComboBox::down-arrow)",
    R"(QComboBox QAbstractItemView, QListWidget)",
    R"(QComboBox QAbstractItemView::item, QListWidget::item)",
    R"(QComboBox QAbstractItemView::item::selected, QListWidget::item::selected)",
    R"(QScrollBar:vertical)",
    R"(QScrollBar::handle:vertical)",
    R"(QScrollBar::handle:vertical:pressed)",
    R"(QScrollBar::add-line:vertical)",
    R"(QScrollBar::sub-line:vertical)",
    R"(QScrollBar:horizontal)",
    R"(QScrollBar::handle:horizontal)",
    R"(QScrollBar::handle:horizontal:pressed)",
    R"(QScrollBar::sub-line:horizontal)",
    R"(QScrollBar::add-line:horizontal)",
    R"(QScrollBar QAbstractItemView)",
    R"(QSlider:horizontal)",
    R"(QSlider::groove:horizontal)",
    R"(QSlider::handle:horizontal)",
    R"(QSlider::handle:horizontal:hover)",
    R"(QSlider::handle:horizontal:pressed)",
    R"(QTableWidget, QTreeWidget)",
    R"(QTableWidget::item, QTreeWidget::item)",
    R"(QTableWidget::item:selected, QTreeWidget::item:selected)",
    R"(QTableWidget::item:!alternate:!selected, QTreeWidget::branch:!alternate, QTreeWidget::item:!alternate:!selected)",
    R"(QTableWidget QHeaderView::section, QTreeWidget QHeaderView::section)",
    R"(QTableView QTableCornerButton::section)",
    R"(QTreeWidget::branch:alternate)",
    R"(QTreeWidget::branch:closed:has-children)",
    R"(QTreeWidget::branch:open:has-children)",
    R"(EnableButton)",
    R"(QTabWidget::pane)",
    R"(QTabWidget::tab-bar)",
    R"(QTabBar::tab)",
    R"(QTabBar::tab:last)",
    R"(QTabBar::tab:selected)",
    R"(QTabWidget[func="rlTabWgt"]::pane)",
    R"(QTabWidget[func="rlTabWgt"]::tab-pane)",
    R"(QTabBar[func="rlTabWgt"]::tab)",
    R"(QTabBar[func="rlTabWgt"]::tab:selected)",
};

/// Rules that are told to the letter, their properties sorted by name.
constexpr struct
{
    const char* selector;
    const char* properties;
} Telling[] = {
    {R"(QWidget#wgtContent, QWidget#wgtTitle, QWidget#BaseSettingPage)",
     R"(background-color: white)"},
    {R"(QLabel#lblTitle)", R"(font: $font$h2; min-height: 30px)"},
    {R"(QLabel)", R"(min-height: 36px)"},
    {R"(QPushButton)",
     R"(background-color: $color$btn_bkg; border: none; border-radius: 5px; color: white; icon-size: 16px; min-height: 36px; min-width: 100px; padding: 0 6px)"},
    {R"(QPushButton[func="touch"]:pressed)", R"(background-color: #e1871c)"},
    {R"(QPushButton[func="rlMove"])",
     R"(background: rgb(194, 37, 43); color: white; max-height: 30px; min-width: 50px)"},
    {R"(QLineEdit, QSpinBox, QDoubleSpinBox)",
     R"(border: none; border-bottom: $border$input; margin: 2 0px; min-height: 36px)"},
    {R"(QComboBox)",
     R"(background-color: white; border: none; border-bottom: $border$input; combobox-popup: 0; margin: 2 0px; min-height: 36px; min-width: 120px)"},
    {R"(QComboBox::drop-down)",
     R"(border-bottom-right-radius: 2px; border-left-style: -1px; border-left-width: 1px; border-top-right-radius: 2px; subcontrol-origin: padding; subcontrol-position: top right; width: 30px)"},
    {R"(QScrollBar:vertical)",
     R"(background: $color$center_bkg; border: 5px solid white; margin: 0px; padding-bottom: 27px; padding-top: 25px; width: 32px)"},
    {R"(QScrollBar::handle:vertical)",
     R"(background: rgba(0,0,0,45%); border-radius: 10px; min-height: 100px)"},
    {R"(QSlider::handle:horizontal)",
     R"(background-color: transparent; border: $border$btn; border-image: $image$widget/handle; height: 30px; margin: -15 -16px; width: 32px)"},
    {R"(EnableButton)", R"(max-height: 24px; max-width: 50px; min-height: 24px; min-width: 50px)"},
    {R"(QTabBar::tab:selected)",
     R"(background-color: $color$bar_select_bkg; border: 4px solid #224D75; color: $color$bar_select_text)"},
    {R"(QTabBar[func="rlTabWgt"]::tab:selected)",
     R"(background-color: rgb(34,77,117); color: white)"},
};

/// Properties and style hints that Qt's style sheets know, as far as they may stand here.
constexpr const char* Known[] = {
    "alignment",
    "alternate-background-color",
    "background",
    "background-color",
    "border",
    "border-bottom",
    "border-bottom-right-radius",
    "border-image",
    "border-left-style",
    "border-left-width",
    "border-radius",
    "border-right",
    "border-top-right-radius",
    "color",
    "combobox-popup",
    "font",
    "gridline-color",
    "height",
    "icon-size",
    "image",
    "left",
    "margin",
    "margin-right",
    "margin-top",
    "max-height",
    "max-width",
    "min-height",
    "min-width",
    "outline",
    "padding",
    "padding-bottom",
    "padding-left",
    "padding-right",
    "padding-top",
    "subcontrol-origin",
    "subcontrol-position",
    "width",
};

constexpr struct
{
    const char* kind;
    const char* tokens; ///< between blanks
} Tokens[] = {
    {"font", "default h2 h3"},
    {"color", "btn_bkg btn_text btn_light_bkg btn_hover btn_pressed btn_disable btn_bkg_disable "
              "topic center_bkg slider_groove tbl_grid tbl_header_bkg lst_item_bkg "
              "lst_item_bkg_alternate lst_item_bkg_selected wgt_bkg_light bar_text bar_bkg "
              "bar_select_text bar_select_bkg"},
    {"border", "input input_focus input_hover btn btn_hover btn_pressed tbl_frame"},
    {"image", "widget/chb_unchecked widget/chb_checked widget/rdb_unchecked widget/rdb_checked "
              "widget/cmb_dropdown widget/slider_top widget/slider_bottom widget/slider_left "
              "widget/slider_right widget/handle widget/handle_hover widget/handle_pressed "
              "widget/branch_fold widget/branch_expand"},
};

QByteArray stored()
{
    QFile file(QStringLiteral(":/qelLaserWelding/render/sub_page.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the library holds no sheet");
    return file.readAll();
}

/// Without the mark, which Qt's parser does not take.
QJsonArray rules()
{
    return QJsonDocument::fromJson(stored().mid(3)).array();
}

QString selectorOf(const QJsonValue& rule)
{
    return rule.toObject().value(QLatin1String("name")).toString();
}

/// What stands beside the selector.
QJsonObject propertiesOf(const QJsonValue& rule)
{
    QJsonObject properties = rule.toObject();
    properties.remove(QStringLiteral("name"));
    return properties;
}

QSet<QString> references(const QString& kind)
{
    static const QRegularExpression reference(QStringLiteral("^\\$(\\w+)\\$([\\w/]+)$"));
    QSet<QString> tokens;
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all) {
        const QJsonObject properties = propertiesOf(rule);
        for (const QJsonValue& value : properties) {
            const auto match = reference.match(value.toString());
            if (match.captured(1) == kind)
                tokens << match.captured(2);
        }
    }
    return tokens;
}

} // namespace

class TestThemeSheet : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isMarkedUtf8();
    void selectorsAreInOrder();
    void telling_data();
    void telling();
    void propertiesAreKnown();
    void valuesAreTexts();
    void dollarsAreReferences();
    void tokens_data();
    void tokens();
    void qtReadsIt();
};

void TestThemeSheet::isMarkedUtf8()
{
    const QByteArray bytes = stored();
    QVERIFY(bytes.startsWith("\xef\xbb\xbf["));
    QJsonParseError error{};
    QVERIFY(QJsonDocument::fromJson(bytes.mid(3), &error).isArray());
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes.mid(3)); // which loses the mark
}

void TestThemeSheet::selectorsAreInOrder()
{
    QStringList expected;
    for (const char* each : Selectors)
        expected << QLatin1String(each);
    QCOMPARE(expected.size(), 78);
    QStringList found;
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all)
        found << selectorOf(rule);
    QCOMPARE(found, expected);
}

void TestThemeSheet::telling_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("properties");
    for (const auto& each : Telling)
        QTest::addRow("%s", each.selector)
            << QString(QLatin1String(each.selector)) << QString(QLatin1String(each.properties));
}

void TestThemeSheet::telling()
{
    QFETCH(QString, selector);
    QFETCH(QString, properties);
    const QJsonArray all = rules();
    QStringList found;
    for (const QJsonValue& rule : all) {
        if (selectorOf(rule) != selector)
            continue;
        const QJsonObject object = propertiesOf(rule);
        QStringList parts; // a JSON object is sorted by its keys
        for (auto each = object.begin(); each != object.end(); ++each)
            parts << each.key() + QStringLiteral(": ") + each.value().toString();
        found << parts.join(QStringLiteral("; "));
    }
    QCOMPARE(found, QStringList(properties));
}

void TestThemeSheet::propertiesAreKnown()
{
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all) {
        const QStringList names = propertiesOf(rule).keys();
        QVERIFY2(!names.isEmpty(), qPrintable(selectorOf(rule)));
        for (const QString& name : names) {
            const bool isKnown =
                std::any_of(std::begin(Known), std::end(Known),
                            [&name](const char* each) { return name == QLatin1String(each); });
            QVERIFY2(isKnown, qPrintable(name));
        }
    }
}

void TestThemeSheet::valuesAreTexts()
{
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all) {
        const QJsonObject object = rule.toObject();
        for (const QJsonValue& value : object)
            QVERIFY2(!value.toString().isEmpty(), qPrintable(selectorOf(rule)));
    }
}

// A reference is the whole of a value.
void TestThemeSheet::dollarsAreReferences()
{
    static const QRegularExpression form(
        QStringLiteral("^\\$(font|color|border|image)\\$[\\w/]+$"));
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all) {
        const QJsonObject properties = propertiesOf(rule);
        for (const QJsonValue& value : properties) {
            const QString text = value.toString();
            QVERIFY2(!text.contains(QLatin1Char('$')) || form.match(text).hasMatch(),
                     qPrintable(text));
        }
    }
}

void TestThemeSheet::tokens_data()
{
    QTest::addColumn<QString>("tokens");
    for (const auto& each : Tokens)
        QTest::addRow("%s", each.kind) << QString(QLatin1String(each.tokens));
}

void TestThemeSheet::tokens()
{
    QFETCH(QString, tokens);
    const QStringList names = tokens.split(QLatin1Char(' '));
    QCOMPARE(references(QLatin1String(QTest::currentDataTag())),
             QSet<QString>(names.begin(), names.end()));
}

// Qt says so when it cannot read a sheet, and a message fails the test.
void TestThemeSheet::qtReadsIt()
{
    static const struct
    {
        const char* kind;
        const char* value;
    } theme[] = {{"$font$", "10pt"},
                 {"$color$", "#123456"},
                 {"$border$", "1px solid #123456"},
                 {"$image$", "url(:/none.png)"}};
    QString sheet;
    const QJsonArray all = rules();
    for (const QJsonValue& rule : all) {
        sheet += selectorOf(rule) + QLatin1Char('{');
        const QJsonObject object = propertiesOf(rule);
        for (auto each = object.begin(); each != object.end(); ++each) {
            QString value = each.value().toString();
            for (const auto& kind : theme) {
                if (value.startsWith(QLatin1String(kind.kind)))
                    value = QLatin1String(kind.value);
            }
            sheet += each.key() + QLatin1Char(':') + value + QLatin1Char(';');
        }
        sheet += QLatin1Char('}');
    }
    QWidget widget;
    widget.setStyleSheet(sheet);
    widget.ensurePolished();
    QVERIFY(!sheet.contains(QLatin1Char('$')));
}

LASERWELD_TEST_MAIN(TestThemeSheet)
#include "tst_themesheet.moc"
