#pragma once

#include <initializer_list>

class QTableView;

namespace pendant {

/// The look of the shell's lists: rows, no grid, nothing to edit. `widths` are those of the first
/// columns, for 96 dots per inch; the last column takes the rest.
void makeReadOnlyTable(QTableView* table, std::initializer_list<int> widths);

} // namespace pendant
