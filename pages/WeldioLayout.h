#pragma once

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
    void setSheets() const;
    /// Style, columns and rows of all tables.
    void styleTables() const;
    /// Columns and rows of all tables.
    void arrangeTables() const;

private:
    void arrangeColumns(const SignalTable& table) const;
    QVector<int> neededColumns(const SignalTable& table) const;
    int neededAssignColumn(const SignalTable& table) const;
    void arrangeRows(const SignalTable& table) const;
    void arrangeBoxes(const SignalTable& table, int height) const;
    void arrangeBias(QComboBox* box) const;
    static void arrangePort(QComboBox* box);
    int biasWidth() const;

    QWidget* page;
    QVector<SignalTable> tables;
};
