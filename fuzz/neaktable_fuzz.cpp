// The NEAK source-table reader (rvcli import-neak): quoted fields across lines, both encodings, the
// header check, and the JSON reader of the medical-aids catalogue. The first byte picks the layout (the
// fourth is JSON), the rest is the file.
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
    static const TableLayout kJson{"gyse.json", ',', SourceEncoding::Utf8, {"isoCode", "name", "grossPrice"}};
    if (size == 0) return 0;
    const bool json = data[0] % (std::size(kLayouts) + 1) == std::size(kLayouts);
    const TableLayout& layout = json ? kJson : kLayouts[data[0] % (std::size(kLayouts) + 1)];
    const std::string_view content(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string error;
    const auto table =
        json ? parseJsonItems(content, "items", layout, &error) : parseSourceTable(content, layout, &error);
    if (!table) {
        ROVANEL_FUZZ_CHECK(error.starts_with(layout.file));
        return 0;
    }
    ROVANEL_FUZZ_CHECK(table->rows.size() == table->lines.size());
    std::size_t previousLine = 1;
    for (std::size_t r = 0; r < table->rows.size(); ++r) {
        ROVANEL_FUZZ_CHECK(table->rows[r].size() == layout.columns.size());
        ROVANEL_FUZZ_CHECK(json ? table->lines[r] >= previousLine : table->lines[r] > previousLine);
        previousLine = table->lines[r];
        for (const std::string& field : table->rows[r]) ROVANEL_FUZZ_CHECK(field.size() < content.size() + 1);
    }
    return 0;
}
