#include "pricelist/RefSort.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>

#include "db/Cp1250.h"
#include "db/ProductPrice.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr double kEmptyDecimal = 2147483648.0;

int compareBytes(const std::string& first, const std::string& second)
{
    // std::string compares char_traits<char>, which orders as unsigned bytes: code page order.
    const int result = first.compare(second);
    return result < 0 ? -1 : result > 0 ? 1 : 0;
}

template <typename T>
int compareValues(T first, T second)
{
    return first > second ? 1 : first < second ? -1 : 0;
}

// A strict conversion: optional blanks before a sign and digits, nothing after; 32 bits.
std::optional<std::int32_t> strictInteger(const std::string& text)
{
    std::size_t start = text.find_first_not_of(' ');
    if (start == std::string::npos) return std::nullopt;
    if (text[start] == '+') ++start;
    std::int32_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + start, end, value);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

// The key of a row in a category column: its fixed-group id when that names a group, else the largest
// integer so that rows without a group sort last.
std::int32_t categoryKey(const DetailedRow& row, int column)
{
    const std::string& category = row.cells[static_cast<std::size_t>(column)];
    const std::string& id = row.cells[static_cast<std::size_t>(column) + 1];
    if (category.empty() || id.empty() || id == "0") return kLargest;
    const std::optional<std::int32_t> value = scanInteger(id);
    return value && *value >= 1 ? *value : kLargest;
}

struct Sorter {
    int column;
    std::optional<std::string> badCell;

    void sort(std::vector<DetailedRow*>& rows, std::vector<DetailedRow*>& scratch, std::size_t from,
              std::size_t to)
    {
        if (to - from < 2 || badCell) return;
        const std::size_t middle = from + (to - from + 1) / 2;
        sort(rows, scratch, from, middle);
        sort(rows, scratch, middle, to);
        std::size_t left = from, right = middle, out = from;
        while (left < middle && right < to && !badCell) {
            if (RefLstCompare(*rows[left], *rows[right], column, &badCell) > 0)
                scratch[out++] = rows[right++];
            else
                scratch[out++] = rows[left++];
        }
        if (badCell) return;
        while (left < middle) scratch[out++] = rows[left++];
        while (right < to) scratch[out++] = rows[right++];
        std::copy(scratch.begin() + static_cast<std::ptrdiff_t>(from),
                  scratch.begin() + static_cast<std::ptrdiff_t>(to),
                  rows.begin() + static_cast<std::ptrdiff_t>(from));
    }
};

}  // namespace

int RefLstCompare(const DetailedRow& first, const DetailedRow& second, int column,
                  std::optional<std::string>* badCell)
{
    if (column < 0 || column >= kDetailedColumnCount) return 0;
    const auto index = static_cast<std::size_t>(column);
    const std::string& a = first.cells[index];
    const std::string& b = second.cells[index];
    switch (detailedColumns()[index].sortClass) {
        case SortClass::Caption:
            return compareBytes(a, b);
        case SortClass::Text:
            // An empty cell reads "yyyy": after the values that begin with a lower letter.
            return compareBytes(a.empty() ? "yyyy" : a, b.empty() ? "yyyy" : b);
        case SortClass::Decimal:
            return compareValues(a.empty() ? kEmptyDecimal : static_cast<double>(leadingNumber(a)),
                                 b.empty() ? kEmptyDecimal : static_cast<double>(leadingNumber(b)));
        case SortClass::Category: {
            const int keys = compareValues(categoryKey(first, column), categoryKey(second, column));
            if (keys != 0) return keys;
            // Inside one group: 1 when the first full price is the smaller text, else 0, never -1. This
            // decides the order inside a fixed group; kept on purpose, see RefSort_test.
            const std::string& firstPrice = first.cells[column::kFullPrice];
            const std::string& secondPrice = second.cells[column::kFullPrice];
            return firstPrice.compare(secondPrice) < 0 ? 1 : 0;
        }
        case SortClass::Integer: {
            const auto value = [&](const std::string& text) -> std::optional<std::int32_t> {
                if (text.empty()) return kLargest;
                return strictInteger(text);
            };
            const auto x = value(a), y = value(b);
            if (!x || !y) {
                if (badCell && !*badCell) *badCell = x ? b : a;
                return 0;
            }
            return compareValues(*x, *y);
        }
    }
    return 0;
}

Message conversionError(const std::string& text)
{
    return Message{"'" + text + "'" + utf8ToCp1250(" nem érvényes egész szám"), "Rovanel", MessageIcon::Stop,
                   false};
}

std::optional<Message> sortRows(std::vector<DetailedRow>& rows, int column)
{
    std::vector<DetailedRow*> order(rows.size()), scratch(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) order[i] = &rows[i];
    Sorter sorter{column, std::nullopt};
    sorter.sort(order, scratch, 0, order.size());
    if (sorter.badCell) return conversionError(*sorter.badCell);
    std::vector<DetailedRow> sorted;
    sorted.reserve(rows.size());
    for (DetailedRow* row : order) sorted.push_back(std::move(*row));
    rows = std::move(sorted);
    return std::nullopt;
}

}  // namespace rovanel
