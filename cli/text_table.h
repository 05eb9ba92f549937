#pragma once

#include <string>
#include <vector>

namespace quorbind {

/// The cells of one row; all rows of a table have equally many.
using TableRow = std::vector<std::string>;

/// Prints rows on the standard output, each column as wide as its longest cell. Characters that
/// would move a terminal's cursor are written out.
void printTable(const std::vector<TableRow>& rows);

}  // namespace quorbind
