// A robot program of 100,000 lines: from its text to the first painted frame of the editor, and a
// search through all of it; each beside the time that a plain text widget takes for the same.

#include "ProgramDocument.h"
#include "ProgramEditor.h"
#include "Ratio.h"
#include "Theme.h"

#include <QApplication>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace {

constexpr int Lines = 100000;
constexpr int Rounds = 7;
constexpr double Limit = 2.0;
constexpr double SearchLimit = 1.0;
constexpr QSize PageSize(820, 620);

QByteArray program()
{
    QByteArray text;
    for (int i = 0; i < Lines; ++i)
        text += "LsMoveL(p" + QByteArray::number(i) + ", v100, fine, tool0, wobj0);\n";
    return text;
}

void paint(QWidget& widget)
{
    widget.resize(PageSize);
    widget.show();
    QApplication::processEvents();
    widget.grab();
}

bool opens(const QByteArray& text)
{
    const auto figures = Ratio::measure(
        Rounds,
        [&] {
            pendant::ProgramEditor editor;
            editor.load(QStringLiteral("program"), text);
            paint(editor);
        },
        [&] {
            QPlainTextEdit editor;
            editor.setPlainText(QString::fromUtf8(text));
            paint(editor);
        });
    return Ratio::report("program of 100000 lines opened / QPlainTextEdit", figures, Limit);
}

// For what only the last line has.
bool searches(const QByteArray& text)
{
    const QString wanted = QStringLiteral("P%1,").arg(Lines - 1);
    pendant::ProgramDocument program;
    program.load(text);
    const QTextDocument peer(QString::fromUtf8(text));
    bool isFound = true;
    const auto figures = Ratio::measure(
        Rounds, [&] { isFound = isFound && program.find(wanted, 0) == Lines - 1; },
        [&] { isFound = isFound && !peer.find(wanted).isNull(); });
    return Ratio::report("its last line found / QTextDocument", figures, SearchLimit) && isFound;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    pendant::Theme::apply(application);
    const QByteArray text = program();
    const bool opensInTime = opens(text);
    return searches(text) && opensInTime ? 0 : 1;
}
