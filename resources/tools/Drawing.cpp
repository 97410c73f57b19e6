#include "Drawing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace {

const QLatin1String symbolFolder("phybutton/");
const QLatin1String plateFolder("phybutton/plates/");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList svgFilesBelow(const QDir& folder)
{
    QStringList paths;
    QDirIterator files(folder.path(), {QStringLiteral("*.svg")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        paths << folder.relativeFilePath(files.next());
    paths.sort();
    return paths;
}

QString baseOf(const QString& path)
{
    return path.left(path.size() - 4);
}

QByteArray between(const QByteArray& text, const QByteArray& begin, const QByteArray& end)
{
    const int from = text.indexOf(begin) + begin.size();
    return text.mid(from, text.lastIndexOf(end) - from);
}

// The symbol's shapes without its own style, so that the plate's style colours them.
QByteArray onPlate(const QByteArray& symbol, QByteArray plate)
{
    return plate.replace("<!-- symbol -->", between(symbol, "</style>", "</svg>"));
}

} // namespace

std::vector<Drawing> drawingsIn(const QString& folder)
{
    const QDir dir(folder);
    const QStringList files = svgFilesBelow(dir);
    const QStringList plates = files.filter(plateFolder);
    std::vector<Drawing> drawings;
    for (const QString& file : files) {
        const QByteArray svg = contentOf(dir.filePath(file));
        if (!file.startsWith(symbolFolder))
            drawings.push_back({baseOf(file) + QLatin1String(".png"), svg});
        else if (!file.startsWith(plateFolder))
            for (const QString& plate : plates)
                drawings.push_back(
                    {baseOf(file) + baseOf(plate).mid(plateFolder.size()) + QLatin1String(".png"),
                     onPlate(svg, contentOf(dir.filePath(plate)))});
    }
    return drawings;
}

QImage rendered(const Drawing& drawing)
{
    QSvgRenderer renderer(drawing.svg);
    if (!renderer.isValid())
        return {};
    QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}
