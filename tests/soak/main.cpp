// soak [MINUTES] [--seed N] [--steps M] [--only TEXT]: the pendant works itself at random, and
// looks at what comes of it. With steps, the time does not count.

#include "Application.h"
#include "LogFolder.h"
#include "Soak.h"
#include "Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QRandomGenerator>

#include <cstdio>
#include <utility>

namespace {

constexpr int Failed = 1;
constexpr int WrongUsage = 2;

/// What the command line asks for.
struct Wish
{
    soak::Length length;
    quint32 seed = 0;
    bool isUnderstood = true;
};

Wish wishOf(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption seed(QStringLiteral("seed"), QString(), QStringLiteral("n"));
    const QCommandLineOption steps(QStringLiteral("steps"), QString(), QStringLiteral("n"));
    const QCommandLineOption only(QStringLiteral("only"), QString(), QStringLiteral("text"));
    parser.addOptions({seed, steps, only});
    parser.process(arguments);
    Wish wish;
    bool good = true;
    const auto check = [&] { wish.isUnderstood = wish.isUnderstood && good; };
    wish.seed = QRandomGenerator::global()->bounded(1000000U);
    if (parser.isSet(seed))
        wish.seed = parser.value(seed).toUInt(&good);
    check();
    if (parser.isSet(steps))
        wish.length.steps = parser.value(steps).toInt(&good);
    check();
    wish.length.only = parser.value(only);
    const QStringList others = parser.positionalArguments();
    if (!others.isEmpty())
        wish.length.minutes = others.first().toDouble(&good);
    check();
    wish.isUnderstood = wish.isUnderstood && others.size() <= 1 && wish.length.minutes > 0;
    return wish;
}

} // namespace

int main(int argc, char** argv)
{
    // Without a display, and of one size everywhere, unless it is told otherwise.
    for (const auto& [name, value] :
         {std::pair("QT_QPA_PLATFORM", "offscreen"), std::pair("QT_FONT_DPI", "96")}) {
        if (qEnvironmentVariableIsEmpty(name))
            qputenv(name, value);
    }
    QApplication application(argc, argv);
    pendant::Theme::apply(application);
    const Wish wish = wishOf(QCoreApplication::arguments());
    if (!wish.isUnderstood) {
        std::fputs("usage: soak [MINUTES] [--seed N] [--steps M] [--only TEXT]\n", stderr);
        return WrongUsage;
    }
    std::printf("seed %u\n", wish.seed);
    std::fflush(stdout);
    const LogFolder home;
    pendant::Options options;
    pendant::fillPaths(&options, home.path());
    return soak::Soak(options, wish.seed).run(wish.length) ? 0 : Failed;
}
