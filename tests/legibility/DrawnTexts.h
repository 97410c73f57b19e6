#pragma once

#include <QRectF>
#include <QString>
#include <QVector>

class QWidget;

/// A piece of text as a widget has drawn it, in the widget's pixels.
struct DrawnText
{
    QString text; ///< with the dots of an elision
    QRectF ink;   ///< what the characters cover
    QRectF room;  ///< what of that could be seen: the widget and the painter's clip
};

/// What the widget draws itself, without its children.
QVector<DrawnText> drawnTexts(QWidget* widget);
