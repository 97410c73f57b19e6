#pragma once

#include "Cell.h"
#include "SqlConnection.h"

#include <QString>

#include <memory>

/// A cell's file on its way to an open cell: what it is, whose it is, and that it is whole.
namespace pendant::cellfile {

/// Empty when the file may be opened, and otherwise the text for the user. Writes nothing.
QString inspect(const QString& file);

/// Opens the file for this process alone and puts an empty one into the layout of a cell, with the
/// programs in it. Returns null and sets `error` on failure. To be called after inspect() found
/// nothing.
std::unique_ptr<SqlConnection> claim(const QString& file, const Programs& programs, QString* error);

/// Leads an older layout to the present one, in one transaction; a layout without programs gets
/// these. Also the proof that the file takes a write. Empty, or the text for the user.
QString bringUpToDate(const QString& file, const Programs& programs, SqlConnection& connection);

/// The text for the user about the last error of the connection.
QString explain(const QString& file, const SqlConnection& connection);

/// The text for the user about a file that is a cell, but not whole.
QString damaged(const QString& file, const QString& detail);

} // namespace pendant::cellfile
