#pragma once

class QGridLayout;
class QWidget;

/// Lets the fixed layout of a generated form follow its contents.
///
/// What is in place already is not set again, so that an unchanged page is not laid out anew each
/// time that it is shown.
namespace PageLayout {

/// A caption wraps and may shrink to nothing; a unit stays on one line, `unitWidth` pixels wide at
/// least. A unit is a label whose object name ends in "_unit". Returns the width that the widest
/// unit needs for its text, 0 without a unit.
int polishLabels(QWidget* page, int unitWidth);
/// Width of the third column, in pixels; nothing happens where the frame has no grid.
void setUnitColumn(QWidget* frame, int width);
/// Number fields and combo boxes: `height` is the least, `width` the exact one, in pixels.
void polishFields(QWidget* page, int width, int height);

/// No spacer of the page keeps a width; each takes what room is left beside the fields.
void relaxSpacers(QWidget* page);
/// The distances, in pixels, of all grids and rows of the page.
void setSpacings(QWidget* page);
/// The column of widgets keeps to the top and nothing in it stretches.
void packToTop(QWidget* column);
/// No row of the grid from 0 to `last` stretches.
void clearRowStretch(QGridLayout* grid, int last);
/// The columns of the grid from 0 to `last` share the width.
void shareColumns(QGridLayout* grid, int last);
/// May shrink to nothing and takes the width that it gets and the height that it needs.
void releaseSize(QWidget* frame);

} // namespace PageLayout
