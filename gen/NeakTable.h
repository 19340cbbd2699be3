// The NEAK source tables as the importer reads them: delimited text (CSV with quotes that may span
// lines) in UTF-8 or Windows-1250, checked against the column list of the published layout. Every text
// comes out in Windows-1250. Bad input gives an error that names the file, and the line or column.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

enum class SourceEncoding { Utf8, Cp1250 };

// One published layout: the file's name (for messages), its delimiter, encoding and exact header.
struct TableLayout {
    std::string_view file;
    char delimiter = ',';
    SourceEncoding encoding = SourceEncoding::Utf8;
    std::vector<std::string_view> columns;
};

struct SourceTable {
    std::vector<std::vector<std::string>> rows;  // every row has exactly the layout's column count
    std::vector<std::size_t> lines;              // the physical line (from 1) each row starts on
};

// Largest table the importer reads (the biggest published file is about 2.6 MB).
inline constexpr std::size_t kMaximumTableBytes = 64u << 20;

// Parses `content` with `layout`: a leading UTF-8 byte-order mark is skipped, fields may be quoted
// ("" is a quote inside), a quoted field may span lines, CR LF and LF both end a record. The header
// must equal the layout's columns; a record with another number of fields is refused. Nothing and the
// reason ("FILE: column 3 is \"NEVX\", expected \"NEV\"") in `error` otherwise.
[[nodiscard]] std::optional<SourceTable> parseSourceTable(std::string_view content, const TableLayout& layout,
                                                          std::string* error);

// Parses a JSON document whose top-level object holds `arrayName`, an array of objects (the medical-aids
// catalogue's "items"): one row per object with the values of the layout's columns, the member names, in
// that order (strings unescaped and in Windows-1250, numbers as written, true/false as such, null empty).
// Members not asked for may hold anything. A missing member, a value that is not JSON or nesting deeper
// than 64 levels is refused with the file, the line and what is wrong; the delimiter is not used.
[[nodiscard]] std::optional<SourceTable> parseJsonItems(std::string_view content, std::string_view arrayName,
                                                        const TableLayout& layout, std::string* error);

}  // namespace rovanel
