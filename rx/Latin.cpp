#include "rx/Latin.h"

#include <array>
#include <cmath>
#include <utility>

#include "db/Cp1250.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

// The table is closed and its spellings are part of the printed prescription: "nonaqinta",
// "duocentim" and the two blanks of "centum et  viginti" stay as they are (Latin_test pins them).
constexpr std::array<std::pair<int, const char*>, 34> kLatin = {{
    {1, "unam (I)"},
    {2, "duas (II)"},
    {3, "tres (III)"},
    {4, "quattuor (IV)"},
    {5, "quinque (V)"},
    {6, "sex (VI)"},
    {7, "septem (VII)"},
    {8, "octo (VIII)"},
    {9, "novem (IX)"},
    {10, "decem (X)"},
    {11, "undecim (XI)"},
    {12, "duodecim (XII)"},
    {13, "tresdecim (XIII)"},
    {14, "quattrodecim (XIV)"},
    {15, "quinquedecim (XV)"},
    {16, "sedecim (XVI)"},
    {17, "septedecim (XVII)"},
    {18, "duodeviginti (XVIII)"},
    {19, "undeviginti (XIX)"},
    {20, "viginti (XX)"},
    {30, "triginta (XXX)"},
    {40, "quadraginta (XL)"},
    {50, "quinqueginta (L)"},
    {60, "sexaginta (LX)"},
    {70, "septuaginta (LXX)"},
    {80, "octoginta (LXXX)"},
    {90, "nonaqinta (XC)"},
    {100, "centum (C)"},
    {120, "centum et  viginti (CXX)"},
    {200, "duocenti (CC)"},
    {270, "duocentim et septuaginta (CCLXX)"},
    {300, "trecenti (CCC)"},
    {400, "quadringenti (CD)"},
    {500, "quingenti (D)"},
}};

}  // namespace

std::string latinQuantity(long long quantity)
{
    for (const auto& [number, text] : kLatin)
        if (number == quantity) return text;
    return utf8ToCp1250("Nem tudom konvertálni, kérem írja be!");
}

long long supplyMonths(double quantity, float daysPerPackage)
{
    if (!(quantity > 0) || !(daysPerPackage > 0)) return 0;
    const long double months = static_cast<long double>(quantity) * daysPerPackage * (1.0L / 30.0L);
    // Cut towards zero; a quantity too large for the type lasts "very long", never a wrapped number.
    if (months >= 1e15L) return 1'000'000'000'000'000LL;
    return static_cast<long long>(months);
}

QuantityChange quantityChanged(std::string_view text, float daysPerPackage)
{
    QuantityChange change;
    if (text.empty()) return change;
    const std::optional<std::int64_t> quantity = parseInteger(text);
    if (!quantity) {
        change.error = Message{"'" + std::string(text) + utf8ToCp1250("' nem érvényes egész szám."), "",
                               MessageIcon::Stop};
        return change;
    }
    change.latin = latinQuantity(*quantity);
    if (*quantity > 0 && daysPerPackage > 0) {
        const long long months = supplyMonths(static_cast<double>(*quantity), daysPerPackage);
        if (months > 1) change.monthsLine = std::to_string(months) + utf8ToCp1250(" hónapos adag");
    }
    return change;
}

}  // namespace rovanel
