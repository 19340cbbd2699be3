// The NEAK source-table reader (rvcli import-neak): quoted fields across lines, both encodings, the
// header check. The first byte picks the layout, the rest is the file.
#include <cstdint>
#include <string_view>

#include "fuzz/FuzzSupport.h"
#include "gen/NeakTable.h"

using namespace rovanel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TableLayout kLayouts[] = {
        {"turnover.csv", ',', SourceEncoding::Utf8, {"IDOSZAK", "TTT", "NEV", "DOBOZ"}},
        {"ATCKONYV.csv", '\t', SourceEncoding::Cp1250, {"ATC", "MEGNEV", "ANGOL"}},
        {"EUINDIKACIOK.csv", ';', SourceEncoding::Utf8, {"ID", "EUPONT_ID", "NDX", "LEIRAS"}},
    };
    if (size == 0) return 0;
    const TableLayout& layout = kLayouts[data[0] % std::size(kLayouts)];
    const std::string_view content(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string error;
    const auto table = parseSourceTable(content, layout, &error);
    if (!table) {
        ROVANEL_FUZZ_CHECK(error.starts_with(layout.file));
        return 0;
    }
    ROVANEL_FUZZ_CHECK(table->rows.size() == table->lines.size());
    std::size_t previousLine = 1;
    for (std::size_t r = 0; r < table->rows.size(); ++r) {
        ROVANEL_FUZZ_CHECK(table->rows[r].size() == layout.columns.size());
        ROVANEL_FUZZ_CHECK(table->lines[r] > previousLine);
        previousLine = table->lines[r];
        for (const std::string& field : table->rows[r]) ROVANEL_FUZZ_CHECK(field.size() < content.size() + 1);
    }
    return 0;
}
