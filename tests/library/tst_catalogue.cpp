// The Chinese catalogue in the library: its rows as lconvert lists them, beside the texts that the
// code asks for as lupdate finds them.

#include "TestCase.h"

#include <QCoreApplication>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

const QLatin1String catalogue(":/qelLaserWelding/language/qelLaserWelding_cn.qm");

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// Translations by context and source.
using Rows = QMap<QString, QMap<QString, QString>>;

Rows rowsOf(const QByteArray& ts)
{
    Rows rows;
    QXmlStreamReader xml(ts);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation"))
            rows[context][source] = xml.readElementText();
    }
    return rows;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

void run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
}

/// The rows of the catalogue that lies in the library.
Rows storedRows()
{
    const QTemporaryDir folder;
    const QString qm = folder.filePath(QStringLiteral("stored.qm"));
    const QString ts = folder.filePath(QStringLiteral("stored.ts"));
    QFile::copy(catalogue, qm);
    run(QStringLiteral(LCONVERT), {qm, QStringLiteral("-o"), ts});
    return rowsOf(contentOf(ts));
}

/// The texts that the code gives to tr() and the captions of its forms.
Rows askedRows()
{
    const QTemporaryDir folder;
    const QString ts = folder.filePath(QStringLiteral("asked.ts"));
    QStringList arguments{QStringLiteral("-silent"), QStringLiteral("-no-obsolete")};
    for (const char* part : {"frame", "pages", "rl", "common"})
        arguments << QStringLiteral(SOURCE_FOLDER "/") + QLatin1String(part);
    arguments << QStringLiteral(BUILT_FORMS) << QStringLiteral("-ts") << ts;
    run(QStringLiteral(LUPDATE), arguments);
    return rowsOf(contentOf(ts));
}

QStringList missing(const Rows& from, const Rows& in)
{
    QStringList rows;
    for (auto context = from.begin(); context != from.end(); ++context) {
        for (auto row = context->begin(); row != context->end(); ++row) {
            if (!in.value(context.key()).contains(row.key()))
                rows << context.key() + QStringLiteral(": ") + row.key();
        }
    }
    return rows;
}

QStringList marks(const QString& text)
{
    static const QRegularExpression mark(QStringLiteral("%[0-9]+"));
    QStringList found;
    for (auto match = mark.globalMatch(text); match.hasNext();)
        found << match.next().captured();
    found.removeDuplicates();
    found.sort();
    return found;
}

constexpr struct
{
    const char* context;
    int rows;
} Contexts[] = {
    {"qelplugin::qelLaserWelding", 16},
    {"LaserWeldPage", 10},
    {"WeldSettingPage", 41},
    {"WeldioPage", 44},
    {"WeldParameterPage", 71},
    {"CharacteristicsCurvePage", 34},
    {"RlLaserWeldDefine", 16},
    {"WMoveLInsertWidget", 5},
    {"WMoveLPropertyWidget", 5},
    {"WMoveCInsertWidget", 6},
    {"WMoveCPropertyWidget", 6},
    {"WMoveCFInsertWidget", 8},
    {"WMoveCFPropertyWidget", 8},
    {"RLLaserOnInsertWidget", 3},
    {"qelplugin::RLLaserOnInsertWidget", 2},
    {"RLParaSetInsertWidget", 3},
    {"SetUpPointWidget", 2},
    {"RLCustomInsertWidget", 3},
    {"RLCustomPropretyWidget", 3},
    {"ButtonMonitorPage", 16},
    {"CustomChart", 1},
    {"LaserTrackingPage", 1},
};

/// Rows of forms that are gone; hosts ask for them no more, and they stay.
constexpr const char* Unasked[] = {"RLCustomInsertWidget", "RLCustomPropretyWidget",
                                   "ButtonMonitorPage"};

/// Rows that translate to nothing: captions that a form never shows, and digits.
constexpr struct
{
    const char* context;
    const char* sources; ///< between bars
} Empty[] = {
    {"LaserWeldPage", "Form"},
    {"WeldSettingPage", "Form"},
    {"WeldioPage", "Form"},
    {"CharacteristicsCurvePage", "10|2|3|4|5|6|7|8|9|Form"},
    {"RLCustomInsertWidget", "Form|TextLabel"},
    {"RLCustomPropretyWidget", "Form|param1|param2"},
    {"ButtonMonitorPage", "%|1|2|3|4|5|Form"},
    {"CustomChart", "Form"},
    {"LaserTrackingPage", "Form"},
};

constexpr struct
{
    const char* context;
    const char* source;
    const char* translation;
} Telling[] = {
    {"LaserWeldPage", "Parmeter Setting", "焊接设置"},
    {"LaserWeldPage", "Soldering I/O", "焊接I/O"},
    {"qelplugin::qelLaserWelding", "Wiring", "送丝"},
    {"qelplugin::qelLaserWelding", "ProtectGas", "保护气"},
    {"qelplugin::qelLaserWelding", "Open gas successfully", "手动送气成功"},
    {"qelplugin::qelLaserWelding", "Switch to RealWdlding", "切换为焊接模式"},
    {"qelplugin::qelLaserWelding", "Switch to VirtualWelding", "切换为非焊接模式"},
    {"WeldSettingPage", "Do not modify while powered on!", "上电禁止修改激光焊接配置!"},
    {"WeldSettingPage", "Enable:", "启动"},
    {"WeldSettingPage", "Overlap Distance", "回退距离"},
    {"WeldioPage", "Guide laser", "红光"},
    {"WeldParameterPage", "Laser welding", "自熔焊"},
    {"WeldParameterPage", "Laser welding with filler wire", "填丝焊"},
    {"WeldParameterPage", "N", "禁用"},
    {"WeldParameterPage", "Speed", "速度匹配"},
    {"WeldParameterPage", "Time", "时间匹配"},
    {"WMoveCInsertWidget", "AuxPoint(robtarget): ", "辅助点1(robtarget): "},
};

} // namespace

class TestCatalogue : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void contexts();
    void sourceIsStored();
    void emptyRows();
    void allElseIsTranslated();
    void marksAreKept();
    void codeAsksForItsRows();
    void rowsAreAskedFor();
    void telling_data();
    void telling();
    void emptyRowShowsItsSource();
};

void TestCatalogue::contexts()
{
    const Rows rows = storedRows();
    QCOMPARE(rows.size(), static_cast<int>(std::size(Contexts)));
    int all = 0;
    for (const auto& each : Contexts) {
        QVERIFY2(rows.value(utf8(each.context)).size() == each.rows, each.context);
        all += each.rows;
    }
    QCOMPARE(all, 304);
}

void TestCatalogue::sourceIsStored()
{
    QCOMPARE(storedRows(), rowsOf(contentOf(QStringLiteral(
                               SOURCE_FOLDER "/resources/language/qelLaserWelding_cn.ts"))));
}

void TestCatalogue::emptyRows()
{
    const Rows rows = storedRows();
    QStringList found;
    QStringList expected;
    for (auto context = rows.begin(); context != rows.end(); ++context) {
        for (auto row = context->begin(); row != context->end(); ++row) {
            if (row->isEmpty())
                found << context.key() + QLatin1Char(':') + row.key();
        }
    }
    for (const auto& each : Empty) {
        const QStringList sources = utf8(each.sources).split(QLatin1Char('|'));
        for (const QString& source : sources)
            expected << utf8(each.context) + QLatin1Char(':') + source;
    }
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
}

/// A translation holds Chinese unless its source is a unit, a symbol or a term that stays.
void TestCatalogue::allElseIsTranslated()
{
    const QSet<QString> stays{utf8("W"),  utf8("mm/s"), utf8("ms"),       utf8("%"),
                              utf8("Hz"), utf8("JOB"),  utf8("GO/AO/Reg")};
    static const QRegularExpression chinese(QStringLiteral("[\\x{4e00}-\\x{9fff}]"));
    const Rows rows = storedRows();
    for (const auto& context : rows) {
        for (auto row = context.begin(); row != context.end(); ++row) {
            if (!row->isEmpty() && !stays.contains(row.key()))
                QVERIFY2(row->contains(chinese), qPrintable(row.key()));
        }
    }
}

void TestCatalogue::marksAreKept()
{
    const Rows rows = storedRows();
    for (const auto& context : rows) {
        for (auto row = context.begin(); row != context.end(); ++row) {
            if (!row->isEmpty())
                QVERIFY2(marks(row.key()) == marks(*row), qPrintable(row.key()));
        }
    }
}

// The unit of a length and what a form holds and never shows have no row.
void TestCatalogue::codeAsksForItsRows()
{
    QCOMPARE(missing(askedRows(), storedRows()),
             (QStringList{utf8("ShowStatusBar: Form"), utf8("ShowStatusBar: TextLabel"),
                          utf8("WeldSettingPage: mm")}));
}

void TestCatalogue::rowsAreAskedFor()
{
    Rows stored = storedRows();
    for (const char* context : Unasked)
        QVERIFY2(stored.remove(utf8(context)) == 1, context);
    QCOMPARE(missing(stored, askedRows()), QStringList());
}

void TestCatalogue::telling_data()
{
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("translation");
    for (const auto& each : Telling)
        QTest::addRow("%s", each.source)
            << QByteArray(each.context) << QByteArray(each.source) << utf8(each.translation);
}

void TestCatalogue::telling()
{
    QFETCH(QByteArray, context);
    QFETCH(QByteArray, source);
    QFETCH(QString, translation);
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QCOMPARE(translator.translate(context.constData(), source.constData()), translation);
}

void TestCatalogue::emptyRowShowsItsSource()
{
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(QCoreApplication::translate("LaserWeldPage", "Form"), utf8("Form"));
    QCOMPARE(QCoreApplication::translate("CharacteristicsCurvePage", "10"), utf8("10"));
    QCOMPARE(QCoreApplication::translate("LaserWeldPage", "Parmeter Setting"), utf8("焊接设置"));
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(QCoreApplication::translate("LaserWeldPage", "Parmeter Setting"),
             utf8("Parmeter Setting"));
}

LASERWELD_TEST_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
