#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <vector>

// One PNG of resources/png and what it is rendered from.
struct Drawing
{
    QString png;    // path below png/, such as "meanlist/LaserWeldIO.png"
    QByteArray svg; // complete; its width and height are those of the PNG, in pixels
};

// Every drawing below `folder`, in the order of their paths. A file stands for one picture, except
// that each symbol of phybutton/ gives one for every plate of phybutton/plates/, named after both.
std::vector<Drawing> drawingsIn(const QString& folder);

// The pixels of `drawing`, transparent where nothing is drawn. Null if the SVG is not valid.
QImage rendered(const Drawing& drawing);
