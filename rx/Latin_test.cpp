#include "rx/Latin.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

TEST(Latin, TableEntriesAndTheirNeighbours)
{
    const std::pair<long long, const char*> cases[] = {
        {0, "Nem tudom konvertálni, kérem írja be!"},
        {1, "unam (I)"},
        {13, "tresdecim (XIII)"},
        {20, "viginti (XX)"},
        {21, "Nem tudom konvertálni, kérem írja be!"},
        {30, "triginta (XXX)"},
        {90, "nonaqinta (XC)"},
        {119, "Nem tudom konvertálni, kérem írja be!"},
        {120, "centum et  viginti (CXX)"},
        {270, "duocentim et septuaginta (CCLXX)"},
        {500, "quingenti (D)"},
        {501, "Nem tudom konvertálni, kérem írja be!"},
        {-30, "Nem tudom konvertálni, kérem írja be!"},
    };
    for (const auto& [number, expected] : cases)
        EXPECT_EQ(cp1250ToUtf8(latinQuantity(number)), expected) << number;
}

TEST(Latin, QuantityChangeWritesLatinAndTheMonthsLine)
{
    // The quantity typed, the days of one supply, and the Latin, the months line and the error ("": not set).
    using Case = std::tuple<const char*, float, const char*, const char*, const char*>;
    const Case cases[] = {
        {"", 30, "", "", ""},
        {"30", 30, "triginta (XXX)", "30 hónapos adag", ""},
        {"1", 30, "unam (I)", "", ""},    // exactly one month adds nothing
        {"2", 15, "duas (II)", "", ""},   // one month again
        {"3", 15, "tres (III)", "", ""},  // one and a half: cut to one
        {"4", 15, "quattuor (IV)", "2 hónapos adag", ""},
        {"3", 0, "tres (III)", "", ""},  // unknown supply length
        {"25", 30, "Nem tudom konvertálni, kérem írja be!", "25 hónapos adag", ""},
        {"x2", 30, "", "", "'x2' nem érvényes egész szám."},
        {"2.5", 30, "", "", "'2.5' nem érvényes egész szám."},
        {"99999999999999999999", 30, "", "", "'99999999999999999999' nem érvényes egész szám."},
    };
    for (const auto& [text, days, latin, months, error] : cases) {
        SCOPED_TRACE(text);
        const QuantityChange change = quantityChanged(text, days);
        EXPECT_EQ(change.latin ? cp1250ToUtf8(*change.latin) : "", latin);
        EXPECT_EQ(change.monthsLine ? cp1250ToUtf8(*change.monthsLine) : "", months);
        EXPECT_EQ(change.error ? cp1250ToUtf8(change.error->text) : "", error);
    }
}

}  // namespace
}  // namespace rovanel
