#pragma once

#include "TextWidths.h"

#include <QComboBox>
#include <QVector>

class QTableWidget;
class QWidget;
struct WeldioRow;

/// Fits the signal tables of the weld I/O page into the room that they have: columns as wide as the
/// widest texts, all rows on the screen, boxes as high as their row.
///
/// What is in place already is not set again: a pass over unchanged tables costs little.
class WeldioLayout
{
public:
    /// AdjustToMinimumContentsLength, which Qt 5.15 declares only together with what it deprecates.
    static constexpr auto PortSizePolicy = static_cast<QComboBox::SizeAdjustPolicy>(2);

    /// A table and what stands in its rows.
    struct SignalTable
    {
        QTableWidget* widget;
        const QVector<WeldioRow>* rows;
    };

    /// The tables stand on the page and live as long as this object is used.
    WeldioLayout(QWidget* servedPage, const QVector<SignalTable>& signalTables);

    /// The style sheets of all tables.
    void setSheets();
    /// Style, columns and rows of all tables.
    void styleTables();
    /// Columns and rows of all tables.
    void arrangeTables();

private:
    void arrangeColumns(const SignalTable& table);
    QVector<int> neededColumns(const SignalTable& table);
    int widestCaption(const SignalTable& table);
    int widestKind(const SignalTable& table);
    int neededAssignColumn(const SignalTable& table);
    void arrangeRows(const SignalTable& table);
    void arrangeBoxes(const SignalTable& table, int height);
    void arrangeBias(QComboBox* box);
    static void arrangePort(QComboBox* box);
    int biasWidth();
    int textWidth(const QString& text);

    QWidget* page;
    QVector<SignalTable> tables;
    // By the font of the texts.
    TextWidths tableWidths;
    TextWidths boxWidths;
    TextWidths captionWidths;
};
