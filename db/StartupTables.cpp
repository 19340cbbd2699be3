#include "db/StartupTables.h"

#include <algorithm>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/DataFile.h"
#include "db/RecordLayout.h"
#include "db/Text.h"

namespace rovanel
{

const std::array<std::string_view, 7> kStartupFileNames = {"MSG.DAT", "inf.dat",     "KOD.DAT", "xd.dat",
                                                           "x.dat",   "nevrend.dat", "RV.INI"};

namespace
{

// Line-buffer sizes of the loader's reads; a longer line is cut, never split.
constexpr std::size_t kLineBuffer = 255;

// A count larger than this cannot be a real database (the generator's largest has 40,000 products); the
// loader stops rather than allocate for it. The tables are allocated at their counts whatever the files
// hold, so this bound is what keeps a 100-byte inf.dat from costing gigabytes.
constexpr std::int32_t kMaximumCount = 1'000'000;

// "%d,%d,...": a number, then a literal comma that must follow at once, and so on; returns how many
// numbers were read before the first mismatch.
int scanCommaSeparated(std::string_view line, std::int32_t* values, int wanted)
{
    int read = 0;
    std::size_t position = 0;
    while (read < wanted) {
        std::size_t consumed = 0;
        const auto value = scanInteger(line.substr(position), &consumed);
        if (!value) break;
        values[read++] = *value;
        position += consumed;
        if (read == wanted) break;
        if (position >= line.size() || line[position] != ',') break;
        ++position;
    }
    return read;
}

// Splits `count` fields of `width` bytes from `data` starting at `offset`; fields past the end of the
// data are empty, as a zero-filled buffer would leave them.
TextList cutFields(std::string_view data, std::size_t& offset, std::size_t count, std::size_t width,
                   bool anyTilde, bool anyNul)
{
    // The block's bytes are copied once and the fields refer into them.
    const std::size_t blockStart = std::min(offset, data.size());
    const std::size_t blockEnd = std::min(offset + count * width, data.size());
    TextList fields;
    fields.adopt(std::string(data.substr(blockStart, blockEnd - blockStart)));
    fields.reserve(count);
    const std::string_view block = fields.storage();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = offset + i * width;
        if (at >= blockEnd) {
            fields.pushSpan(0, 0);
            continue;
        }
        std::string_view field = block.substr(at - blockStart, width);
        // A NUL ends the field as it ends a C string (looked for only in a file that holds one).
        if (anyNul) field = field.substr(0, field.find('\0'));
        fields.pushSpan(at - blockStart, (anyTilde ? trim(field) : trimEnd(field)).size());
    }
    offset += count * width;
    return fields;
}

}  // namespace

std::string_view StartupTables::productName(ProductRecord record) const
{
    if (record < 0 || static_cast<std::uint64_t>(record) >= productNames.size()) return {};
    return productNames[static_cast<std::size_t>(record)];
}

ProductRecord StartupTables::recordOfCode(std::string_view code) const
{
    for (std::size_t i = 0; i < productCodes.size(); ++i)
        if (productCodes[i] == code) return static_cast<ProductRecord>(i);
    return kNoProduct;
}

std::int32_t StartupTables::contraindicationOfCode(std::string_view code) const
{
    for (std::size_t i = 0; i < contraindicationCodes.size(); ++i)
        if (contraindicationCodes[i] == code) return static_cast<std::int32_t>(i);
    return -1;
}

bool loadLineList(const std::filesystem::path& path, std::size_t columnLimit, TextList& lines)
{
    auto content = readWholeFile(path);
    if (!content || content->size() > 0xFFFFFFFFu) return false;
    // The texts stay where the file's bytes are: no copy of ten thousand names at every start.
    TextList read;
    read.adopt(std::move(*content));
    const std::string& bytes = read.storage();
    // A generous guess of the line count: fixed-width lists have lines of 50 or more bytes.
    read.reserve(bytes.size() / 32 + 1);
    const bool anyTilde = bytes.find('~') != std::string::npos;
    forEachLine(bytes, [&](std::string_view line) {
        line = line.substr(0, kLineBuffer - 1);
        if (columnLimit != 0) line = line.substr(0, columnLimit);
        read.pushSpan(static_cast<std::size_t>(line.data() - bytes.data()),
                      (anyTilde ? trim(line) : trimEnd(line)).size());
        return true;
    });
    if (lines.empty()) {
        lines = std::move(read);
    } else {
        for (const std::string_view text : read) lines.push_back(text);
    }
    return true;
}

StartupTables loadStartupTables(const std::filesystem::path& dataDirectory,
                                const std::filesystem::path& userIni)
{
    StartupTables tables;
    tables.dataDirectory = dataDirectory;

    // MSG.DAT is required; a missing one leaves an empty table, whose every entry reads as "".
    tables.messages = MessageTable::parse(readWholeFile(dataFilePath(dataDirectory, "MSG.DAT")).value_or(""));

    const std::string fullPrice =
        readProfileString(userIni, kSettingsSection, "NapiKezTeljesArbol", "NEM", 79);
    tables.fullPriceDailyCost = contains(fullPrice, "IGEN");

    const auto info = readWholeFile(dataFilePath(dataDirectory, "inf.dat"));
    if (!info) return tables;
    std::string_view firstLine = *info;
    firstLine = firstLine.substr(0, std::min(firstLine.find('\n'), kLineBuffer - 1));
    if (scanCommaSeparated(firstLine, tables.counts.values.data(), 13) < 13) {
        tables.counts = {};
        return tables;
    }
    // Rejected counts are not kept: readers that bound record numbers by N would otherwise accept records
    // of tables that were never loaded.
    for (int position : {1, 2, 3, 4, 8, 9, 11, 12})
        if (tables.counts[position] < 0 || tables.counts[position] > kMaximumCount) {
            tables.counts = {};
            return tables;
        }
    tables.reached = LoadStep::Counts;

    const auto& counts = tables.counts;
    const std::string codes = readWholeFile(dataFilePath(dataDirectory, "KOD.DAT")).value_or("");
    std::size_t offset = 0;
    const bool anyTilde = codes.find('~') != std::string::npos;
    const bool anyNul = codes.find('\0') != std::string::npos;
    tables.productCodes =
        cutFields(codes, offset, static_cast<std::size_t>(counts[1]), kProductCodeWidth, anyTilde, anyNul);
    tables.atcGroupCodes =
        cutFields(codes, offset, static_cast<std::size_t>(counts[2]), kAtcGroupCodeWidth, anyTilde, anyNul);
    tables.contraindicationCodes = cutFields(codes, offset, static_cast<std::size_t>(counts[4]),
                                             kContraindicationCodeWidth, anyTilde, anyNul);
    tables.sideEffectCodes =
        cutFields(codes, offset, static_cast<std::size_t>(counts[3]), kSideEffectCodeWidth, anyTilde, anyNul);
    tables.reached = LoadStep::CodeTables;

    const auto pairs = readWholeFile(dataFilePath(dataDirectory, "xd.dat"));
    if (!pairs) return tables;
    tables.pairs.assign(static_cast<std::size_t>(counts[8]), {0, 0});
    std::size_t pairIndex = 0;
    forEachLine(*pairs, [&](std::string_view line) {
        if (pairIndex >= tables.pairs.size()) return false;
        std::int32_t values[2] = {0, 0};
        scanCommaSeparated(line.substr(0, kLineBuffer - 1), values, 2);
        tables.pairs[pairIndex++] = {values[0], values[1]};
        return true;
    });
    tables.reached = LoadStep::Pairs;

    const auto shortTexts = readWholeFile(dataFilePath(dataDirectory, "x.dat"));
    if (!shortTexts) return tables;
    tables.shortTexts.assign(static_cast<std::size_t>(counts[9]), std::string{});
    std::size_t textIndex = 0;
    forEachLine(*shortTexts, [&](std::string_view line) {
        if (textIndex >= tables.shortTexts.size()) return false;
        // A 12-byte slot holds at most 11 characters.
        tables.shortTexts[textIndex++] = std::string(trim(line.substr(0, kLineBuffer - 1)).substr(0, 11));
        return true;
    });
    tables.reached = LoadStep::ShortTexts;

    TextList names;
    if (!loadLineList(dataFilePath(dataDirectory, "nevrend.dat"), kNameLineLength, names)) return tables;
    // The list has N slots; extra lines are dropped (see StartupLoader.KeepsTablesWithinTheirCounts).
    names.truncate(static_cast<std::size_t>(counts[1]));
    tables.productNames = std::move(names);
    tables.reached = LoadStep::Complete;
    return tables;
}

}  // namespace rovanel
