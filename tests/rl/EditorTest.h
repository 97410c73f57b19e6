#pragma once

#include <qelplugin.h>

#include <QComboBox>
#include <QGridLayout>
#include <QRandomGenerator>
#include <QStringList>
#include <QStringListModel>
#include <QTranslator>

#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

/// What the tests of the instruction editors share.
namespace EditorTest {

/// Shows in which context a text was looked up: "context/text".
struct ContextTranslator : QTranslator
{
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QString::fromUtf8(context) + QLatin1Char('/') + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};

/// A list whose search throws: a standard exception or another one.
class ThrowingModel : public QStringListModel
{
public:
    explicit ThrowingModel(bool standard)
        : isStandard(standard)
    {}

    QModelIndexList match(const QModelIndex&, int, const QVariant&, int,
                          Qt::MatchFlags) const override
    {
        if (isStandard)
            throw std::runtime_error("broken");
        throw 1;
    }

private:
    bool isStandard;
};

/// No console for as long as it lives.
class SilentConsole
{
public:
    SilentConsole()
        : console(::dup(STDERR_FILENO))
    {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(nowhere, STDERR_FILENO);
        ::close(nowhere);
    }
    ~SilentConsole()
    {
        ::dup2(console, STDERR_FILENO);
        ::close(console);
    }

private:
    Q_DISABLE_COPY(SilentConsole)

    int console;
};

/// The key that an editor has noted; empty in those that note none.
inline QString keyOf(const qelplugin::RLContentBase& editor)
{
    struct Open : qelplugin::RLContentBase
    {
        using RLContentBase::insName;
    };
    return editor.*&Open::insName;
}

/// A widget, layout or spacer of a layout: "QLabel lblPoint", "layout glyt", "spacer 20x5".
inline QString itemText(QLayoutItem* item)
{
    if (const QWidget* widget = item->widget())
        return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') +
               widget->objectName();
    if (const QLayout* layout = item->layout())
        return QStringLiteral("layout ") + layout->objectName();
    const QSize size = item->sizeHint();
    return QStringLiteral("spacer %1x%2").arg(size.width()).arg(size.height());
}

/// What stands in the grid as "row,column item", in the order of its making; with rows and columns
/// behind it where it takes more than one cell: "0,1 1x3 item".
inline QStringList gridTexts(const QGridLayout* grid)
{
    QStringList texts;
    for (int index = 0; index < grid->count(); ++index) {
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(index, &row, &column, &rows, &columns);
        QString text = QStringLiteral("%1,%2 ").arg(row).arg(column);
        if (rows * columns > 1)
            text += QStringLiteral("%1x%2 ").arg(rows).arg(columns);
        texts << text + itemText(grid->itemAt(index));
    }
    return texts;
}

/// What stands in the layout, in its order; a spacer that expands vertically as "vertical".
inline QStringList outline(const QLayout* layout)
{
    QStringList texts;
    for (int index = 0; index < layout->count(); ++index) {
        QLayoutItem* item = layout->itemAt(index);
        const bool expands = item->spacerItem() && item->expandingDirections() == Qt::Vertical;
        texts << (expands ? QStringLiteral("vertical") : itemText(item));
    }
    return texts;
}

inline QStringList entries(const QComboBox* box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts << box->itemText(index);
    return texts;
}

/// Random bytes, read as Latin 1 or as UTF-8.
inline QString randomBytes(QRandomGenerator& random)
{
    QByteArray bytes(random.bounded(12), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return random.bounded(2) == 0 ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
}

/// A call, mostly, whose arguments are of the pieces or bytes.
inline QString randomCall(QRandomGenerator& random, const QStringList& pieces,
                          int mostArguments = 4)
{
    QStringList arguments;
    for (int count = random.bounded(mostArguments + 1); count > 0; --count) {
        const bool isPiece = random.bounded(5) != 0;
        arguments << (isPiece ? pieces.at(random.bounded(pieces.size())) : randomBytes(random));
    }
    const QString inner =
        arguments.join(random.bounded(2) ? QStringLiteral(", ") : QStringLiteral(","));
    const QString end = random.bounded(8) ? QStringLiteral(");") : randomBytes(random);
    const QString name = random.bounded(8) ? QStringLiteral("LaserOn(") : randomBytes(random);
    return name + inner + end;
}

} // namespace EditorTest
