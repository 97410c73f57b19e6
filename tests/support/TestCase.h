#pragma once

#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QtTest>

class QWidget;

/// Base of the test programs. A warning that the test has not announced fails the test, and so does
/// an announced one that did not come.
class TestCase : public QObject
{
    Q_OBJECT

public:
    /// Announces one warning whose text matches. To be called before the code that writes it.
    static void expectWarning(const QRegularExpression& text);
    static void expectWarning(const QString& text);

    /// Runs all tests of the object with the arguments of the program.
    static int run(QObject* test, int argc, char** argv);

protected Q_SLOTS:
    // Names that QtTest calls around each test. A class with its own calls these from them.
    void init();
    void cleanup();
};

/// The descendant of the type and name. Fails with the names of all descendants of the type.
template<typename Widget>
Widget* child(const QObject* parent, const char* name)
{
    if (auto* found = parent->findChild<Widget*>(QLatin1String(name)))
        return found;
    QStringList siblings;
    const auto all = parent->findChildren<Widget*>();
    for (const Widget* each : all)
        siblings << each->objectName();
    qFatal("no %s named \"%s\" under \"%s\"; there are: %s", Widget::staticMetaObject.className(),
           name, qPrintable(parent->objectName()), qPrintable(siblings.join(QLatin1String(", "))));
    Q_UNREACHABLE();
}

/// Main of a test program with widgets.
#define LASERWELD_TEST_MAIN(Class)                                                                 \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        QApplication application(argc, argv);                                                      \
        Class test;                                                                                \
        return TestCase::run(&test, argc, argv);                                                   \
    }

/// Main of a test program without widgets.
#define LASERWELD_CORE_TEST_MAIN(Class)                                                            \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        QCoreApplication application(argc, argv);                                                  \
        Class test;                                                                                \
        return TestCase::run(&test, argc, argv);                                                   \
    }
