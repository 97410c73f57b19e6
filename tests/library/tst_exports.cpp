#include "MappedLibraries.h"
#include "TestCase.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSet>

namespace {

struct Symbol
{
    char type; ///< as nm has it
    QString name;
};

QStringList linesOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s does not run", qPrintable(program));
    return QString::fromUtf8(process.readAllStandardOutput())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QVector<Symbol> symbols(const QString& library, const QString& kind)
{
    static const QRegularExpression row(
        QStringLiteral("^ *(?:[0-9a-f]+ )? *([A-Za-z]) ([^@]+)(?:@.*)?$"));
    QVector<Symbol> all;
    const QStringList lines =
        linesOf(QStringLiteral(NM_PROGRAM), {QStringLiteral("-DC"), kind, library});
    for (const QString& line : lines) {
        const auto match = row.match(line);
        if (!match.hasMatch())
            qFatal("nm says: %s", qPrintable(line));
        all.append({match.captured(1).at(0).toLatin1(), match.captured(2)});
    }
    return all;
}

QVector<Symbol> defined()
{
    return symbols(QStringLiteral(PLUGIN_LIBRARY), QStringLiteral("--defined-only"));
}

QStringList needed()
{
    static const QRegularExpression row(QStringLiteral("\\(NEEDED\\).*\\[(.*)\\]"));
    QStringList libraries;
    const QStringList lines = linesOf(QStringLiteral(READELF_PROGRAM),
                                      {QStringLiteral("-d"), QStringLiteral(PLUGIN_LIBRARY)});
    for (const QString& line : lines) {
        const auto match = row.match(line);
        if (match.hasMatch())
            libraries << match.captured(1);
    }
    return libraries;
}

QSet<QString> exportedBy(const QStringList& libraries)
{
    QSet<QString> names;
    for (const QString& library : libraries) {
        const auto exported = symbols(library, QStringLiteral("--defined-only"));
        for (const Symbol& symbol : exported)
            names << symbol.name;
    }
    return names;
}

} // namespace

/// What the plugin's library shows to the loader, and what it wants of it.
class TestExports : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void exportsItsClassAndItsApi();
    void exportsNothingElse();
    void nothingUnique();
    void needsQtAndTheSdkOnly();
    void wantsOnlyWhatTheyHave();
    void loaderPathComesFirst();
};

void TestExports::exportsItsClassAndItsApi()
{
    QSet<QString> names;
    const auto all = defined();
    for (const Symbol& symbol : all)
        names << symbol.name;
    for (const char* wanted :
         {"qelplugin::api()", "qelplugin::qelLaserWelding::qelLaserWelding(QObject*)",
          "qelplugin::qelLaserWelding::~qelLaserWelding()",
          "qelplugin::qelLaserWelding::initPhysicalButton()", "qelplugin::qelLaserWelding::init()",
          "qelplugin::qelLaserWelding::afterInit()", "qelplugin::qelLaserWelding::render()",
          "qelplugin::qelLaserWelding::idle()", "qelplugin::qelLaserWelding::staticMetaObject",
          "vtable for qelplugin::qelLaserWelding", "typeinfo for qelplugin::qelLaserWelding"})
        QVERIFY2(names.contains(QLatin1String(wanted)), wanted);
}

void TestExports::exportsNothingElse()
{
    static const QRegularExpression ours(
        QStringLiteral("^(qelplugin::api\\(\\)"
                       "|qelplugin::qelLaserWelding::~?\\w+(\\(.*\\)( const)?)?"
                       "|(vtable|typeinfo|typeinfo name) for qelplugin::qelLaserWelding)$"));
    const auto all = defined();
    for (const Symbol& symbol : all)
        QVERIFY2(ours.match(symbol.name).hasMatch(), qPrintable(symbol.name));
}

// A unique symbol would keep the library in the process behind its unload.
void TestExports::nothingUnique()
{
    const auto all = defined();
    for (const Symbol& symbol : all)
        QVERIFY2(symbol.type != 'u', qPrintable(symbol.name));
}

void TestExports::needsQtAndTheSdkOnly()
{
    static const QSet<QString> known{
        QStringLiteral("libqelplugin.so.1"), QStringLiteral("libQt5Core.so.5"),
        QStringLiteral("libQt5Gui.so.5"),    QStringLiteral("libQt5Widgets.so.5"),
        QStringLiteral("libstdc++.so.6"),    QStringLiteral("libm.so.6"),
        QStringLiteral("libgcc_s.so.1"),     QStringLiteral("libc.so.6"),
        QStringLiteral("libasan.so.8"),      QStringLiteral("libubsan.so.1")};
    const QStringList libraries = needed();
    QVERIFY(libraries.contains(QStringLiteral("libqelplugin.so.1")));
    for (const QString& library : libraries)
        QVERIFY2(known.contains(library), qPrintable(library));
}

// This program is linked to all that the plugin needs, and so has the same libraries.
void TestExports::wantsOnlyWhatTheyHave()
{
    QStringList libraries;
    const QStringList names = needed();
    for (const QString& name : names) {
        const QStringList found = mappedLibraries(name);
        QVERIFY2(found.size() == 1, qPrintable(name));
        libraries << found;
    }
    const QSet<QString> offered = exportedBy(libraries);
    const auto wanted = symbols(QStringLiteral(PLUGIN_LIBRARY), QStringLiteral("--undefined-only"));
    QVERIFY(!wanted.isEmpty());
    for (const Symbol& symbol : wanted)
        QVERIFY2(symbol.type == 'w' || offered.contains(symbol.name), qPrintable(symbol.name));
}

// A path of the older kind would be searched before LD_LIBRARY_PATH.
void TestExports::loaderPathComesFirst()
{
    const QStringList lines = linesOf(QStringLiteral(READELF_PROGRAM),
                                      {QStringLiteral("-d"), QStringLiteral(PLUGIN_LIBRARY)});
    QVERIFY(!lines.filter(QStringLiteral("(RUNPATH)")).isEmpty());
    QVERIFY(lines.filter(QStringLiteral("(RPATH)")).isEmpty());
}

LASERWELD_CORE_TEST_MAIN(TestExports)
#include "tst_exports.moc"
