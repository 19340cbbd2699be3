// Sorting the detailed list by one column: the comparison of the column's class (RefLstCompare) and the
// merge sort that applies it. The comparison is not a strict weak ordering (the fixed-group tie-break
// answers 1 or 0, never -1), so the sort is a stable top-down merge sort that calls it exactly one way,
// never std::sort (docs/decisions/detailed-list-sort.md).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/Message.h"
#include "pricelist/DetailedRow.h"

namespace rovanel
{

// Negative, zero or positive, `first` against `second`, by the class of `column`. A cell of an integer
// column that is not a whole 32-bit number sets `badCell` (when given) to its text and compares as 0.
[[nodiscard]] int RefLstCompare(const DetailedRow& first, const DetailedRow& second, int column,
                                std::optional<std::string>* badCell = nullptr);

// Sorts `rows` ascending by `column`. Halves are split at the middle (the left one larger by one when the
// count is odd); a merge takes the front row of the right half only when RefLstCompare(left front,
// right front) is positive. When a cell is not a valid integer the rows keep their order and the
// conversion error is returned.
[[nodiscard]] std::optional<Message> sortRows(std::vector<DetailedRow>& rows, int column);

// The message of the conversion error for `text`.
[[nodiscard]] Message conversionError(const std::string& text);

}  // namespace rovanel
