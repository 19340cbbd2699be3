// The detailed list's column widths in the registry settings: "\Software\Rovanel\RefColWidth\<i>",
// one key per column, each holding an integer value named by the key's own path. A width of 0 is a
// hidden column.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "db/Message.h"
#include "pricelist/DetailedRow.h"

namespace rovanel
{

class RegistryStore;

using ColumnWidths = std::array<int, kDetailedColumnCount>;

// The widths the columns are designed with.
[[nodiscard]] ColumnWidths designedColumnWidths();

// The setting's path for column `column`.
[[nodiscard]] std::string columnWidthPath(int column);

// Sets each column whose key exists to its stored width; a missing key keeps the width given. The
// first value that cannot be read keeps its width and is returned as the error.
[[nodiscard]] std::optional<Message> restoreColumnWidths(RegistryStore& store, ColumnWidths& widths);

// "Ment": writes each visible column's width, but only into a key that exists already (a missing key
// is not created here, on purpose: see ColumnWidths_test). The first failed write is returned.
[[nodiscard]] std::optional<Message> saveColumnWidths(RegistryStore& store, const ColumnWidths& widths);

// "Mindent mutat": column 0 at 150, every other one at 40, hidden ones included.
[[nodiscard]] ColumnWidths showAllColumnWidths();

}  // namespace rovanel
