// render_pictures DRAWINGS PNG: writes the picture of every drawing below DRAWINGS to its path
// below PNG.

#include "Drawing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <cstdio>

namespace {

bool write(const QImage& image, const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    QImageWriter writer(path, "png");
    writer.setQuality(0); // the writer's strongest compression; PNG loses nothing by it
    return !image.isNull() && writer.write(image);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: render_pictures DRAWINGS PNG\n", stderr);
        return 2;
    }
    int failures = 0;
    for (const Drawing& drawing : drawingsIn(arguments.at(1))) {
        if (write(rendered(drawing), QDir(arguments.at(2)).filePath(drawing.png)))
            continue;
        std::fprintf(stderr, "cannot render %s\n", qPrintable(drawing.png));
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
