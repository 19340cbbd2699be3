// The quantity of a prescription in Latin words with Roman numerals, and the supply length it adds to the
// prescription's free text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "db/Message.h"

namespace rovanel
{

// The text for a whole number of packages: the closed table's entry ("triginta (XXX)"), or "Nem tudom
// konvertálni, kérem írja be!" for any number the table does not hold.
[[nodiscard]] std::string latinQuantity(long long quantity);

// What a change of the quantity field does. `latin` is set when the text is a whole number; `error`
// when it is not (the fields keep what the user typed); `monthsLine` ("3 hónapos adag") when the supply
// lasts more than one month. An empty text gives nothing at all.
struct QuantityChange {
    std::optional<std::string> latin;
    std::optional<std::string> monthsLine;
    std::optional<Message> error;
};
// `daysPerPackage` not greater than 0 means the supply length is unknown.
[[nodiscard]] QuantityChange quantityChanged(std::string_view text, float daysPerPackage);

// Whole months that `quantity` packages of `daysPerPackage` days last (quantity x days x 1/30, cut).
[[nodiscard]] long long supplyMonths(double quantity, float daysPerPackage);

}  // namespace rovanel
