#include "db/ProductIndex.h"

#include <algorithm>

#include "db/StartupTables.h"
#include "db/Text.h"

namespace rovanel
{
namespace
{

constexpr std::size_t kNameReadBuffer = 80;  // the name list fill reads through 80 bytes
constexpr std::size_t kNameFileReadBuffer = 255;
// A product's text never reaches this; the bound keeps a block without its end marker from
// swallowing the rest of the file.
constexpr std::size_t kBlockLimit = 64000;
constexpr std::string_view kBlockEnd = "#vege";

}  // namespace

std::string_view directoryFileName(IndexPair pair)
{
    switch (pair) {
        case IndexPair::Atc:
            return "atcindin.dat";
        case IndexPair::Contraindication:
            return "ellindin.dat";
        case IndexPair::Ingredient:
            return "haindinf.dat";
        case IndexPair::SideEffect:
            return "mhindin.dat";
    }
    return {};
}

std::string_view listFileName(IndexPair pair)
{
    switch (pair) {
        case IndexPair::Atc:
            return "atcind.dat";
        case IndexPair::Contraindication:
            return "ellind.dat";
        case IndexPair::Ingredient:
            return "haind.dat";
        case IndexPair::SideEffect:
            return "mhind.dat";
    }
    return {};
}

std::vector<std::string> nameListFill(const StartupTables& tables, NameGroup group)
{
    std::vector<std::string> names;
    if (tables.reached < LoadStep::Counts) return names;
    const std::int64_t medicines = tables.counts.medicines();
    const std::int64_t wanted = group == NameGroup::Medicines ? medicines : tables.counts.nutrition();
    const std::int64_t firstLine = group == NameGroup::Medicines ? 0 : medicines;
    if (wanted <= 0 || firstLine < 0) return names;
    DataFile file(dataFilePath(tables.dataDirectory, "nevrend.dat"));
    if (!file.isOpen()) return names;
    // Seek to the group's first line by its byte offset, whatever the lines before hold, then read lines
    // one after another (see NutritionNamesStartAtTheirByteOffsetWhateverComesBefore).
    std::uint64_t offset = static_cast<std::uint64_t>(firstLine) * kNameLineLength;
    names.reserve(static_cast<std::size_t>(std::min<std::int64_t>(wanted, 1'000'000)));
    const std::string content = file.read(
        offset,
        static_cast<std::size_t>(std::min<std::uint64_t>(
            file.size(), static_cast<std::uint64_t>(wanted) * (kNameReadBuffer + 2) + kNameReadBuffer)));
    std::size_t position = 0;
    while (static_cast<std::int64_t>(names.size()) < wanted && position < content.size()) {
        std::size_t end = content.find('\n', position);
        if (end == std::string::npos) end = content.size();
        std::string_view line(content.data() + position, end - position);
        names.emplace_back(trim(line.substr(0, kNameReadBuffer - 1)));
        position = end + 1;
    }
    return names;
}

ProductRecord recordOfListPosition(const StartupTables& tables, NameGroup group, std::int32_t position)
{
    if (position < 0) return kNoProduct;
    if (group == NameGroup::Medicines) return position;
    return tables.counts.medicines() + position;
}

std::optional<std::uint64_t> textPosition(DataFile& nevpos, ProductRecord record)
{
    if (record < 0 || !nevpos.isOpen()) return std::nullopt;
    return decodePositionRecord(
        nevpos.read(static_cast<std::uint64_t>(record) * kPositionRecordLength, kPositionDigits));
}

std::optional<std::uint64_t> textPosition(const std::filesystem::path& dataDirectory, ProductRecord record)
{
    DataFile nevpos(dataFilePath(dataDirectory, "nevpos.dat"));
    return textPosition(nevpos, record);
}

std::optional<KeyRecord> keyRecord(DataFile& directory, std::int64_t key)
{
    if (key < 0 || !directory.isOpen()) return std::nullopt;
    const std::string bytes =
        directory.read(static_cast<std::uint64_t>(key) * kDirectoryRecordLength, kDirectoryRecordLength);
    return decodeDirectoryRecord(bytes);
}

std::vector<ProductRecord> readRecordList(DataFile& list, std::int64_t offset, std::int64_t count,
                                          bool commaAfterEach)
{
    std::vector<ProductRecord> records;
    if (count <= 0 || offset < 0 || !list.isOpen()) return records;
    const std::uint64_t start = static_cast<std::uint64_t>(offset);
    if (start >= list.size()) return records;
    // No number takes more than 13 bytes with its separator and line end; a count larger than the
    // rest of the file simply runs out of numbers.
    const std::uint64_t wanted =
        std::min<std::uint64_t>(list.size() - start, static_cast<std::uint64_t>(count) * 16);
    const std::string bytes = list.read(start, static_cast<std::size_t>(wanted));
    std::string_view rest = bytes;
    records.reserve(static_cast<std::size_t>(std::min<std::int64_t>(count, 100'000)));
    while (static_cast<std::int64_t>(records.size()) < count) {
        std::size_t consumed = 0;
        const auto value = scanInteger(rest, &consumed);
        if (!value) break;
        records.push_back(*value);
        rest.remove_prefix(consumed);
        if (commaAfterEach) {
            // "%d,": the comma must follow the number at once.
            if (rest.empty() || rest.front() != ',') break;
            rest.remove_prefix(1);
        }
    }
    return records;
}

std::vector<ProductRecord> productsOfKey(const std::filesystem::path& dataDirectory, IndexPair pair,
                                         std::int64_t key)
{
    DataFile directory(dataFilePath(dataDirectory, directoryFileName(pair)));
    const auto record = keyRecord(directory, key);
    if (!record || record->count == 0) return {};
    DataFile list(dataFilePath(dataDirectory, listFileName(pair)));
    return readRecordList(list, record->offset, record->count, pair == IndexPair::SideEffect);
}

std::optional<std::string> nameLine(DataFile& file, std::int64_t index)
{
    if (index < 0 || !file.isOpen()) return std::nullopt;
    const auto line =
        file.lineAt(static_cast<std::uint64_t>(index) * kNameFileLineLength, kNameFileReadBuffer - 1);
    if (!line) return std::nullopt;
    return std::string(trim(stripLeadingBlanks(*line)));
}

std::optional<std::string> contraindicationName(const std::filesystem::path& dataDirectory,
                                                std::int64_t index)
{
    DataFile file(dataFilePath(dataDirectory, "ellnrend.dat"));
    return nameLine(file, index);
}

std::optional<std::vector<std::string>> productBlock(DataFile& gyful, DataFile& nevpos, ProductRecord record,
                                                     std::size_t lineBuffer)
{
    const auto offset = textPosition(nevpos, record);
    if (!offset || !gyful.isOpen() || *offset >= gyful.size()) return std::nullopt;
    // Read a little first and more only while the end marker is not in sight: most blocks are a few
    // kilobytes, and the bound keeps a block without its end marker from swallowing the file.
    std::string bytes;
    std::size_t endMarker = std::string::npos;
    for (std::size_t chunk = 8192;; chunk *= 2) {
        bytes += gyful.read(*offset + bytes.size(), std::min(chunk, kBlockLimit - bytes.size()));
        endMarker = bytes.find(kBlockEnd);
        if (endMarker != std::string::npos || bytes.size() >= kBlockLimit ||
            *offset + bytes.size() >= gyful.size())
            break;
    }
    std::vector<std::string> lines;
    const std::size_t maxLength = lineBuffer > 1 ? lineBuffer - 1 : 1;
    std::size_t position = 0;
    while (position < bytes.size()) {
        std::size_t end = bytes.find('\n', position);
        const bool complete = end != std::string::npos;
        if (!complete) end = bytes.size();
        std::string_view line(bytes.data() + position, end - position);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        // A line cut by the read bound at the very end is not a line of this block.
        if (!complete && *offset + bytes.size() < gyful.size()) break;
        lines.emplace_back(line.substr(0, maxLength));
        if (line == kBlockEnd) break;
        position = end + 1;
    }
    return lines;
}

ProductTexts::ProductTexts(const std::filesystem::path& dataDirectory)
    : m_gyful(dataFilePath(dataDirectory, "gy.ful")), m_nevpos(dataFilePath(dataDirectory, "nevpos.dat"))
{
}

std::optional<ProductLocation> locateProduct(const StartupTables& tables, ProductRecord record)
{
    if (record < 0 || static_cast<std::uint64_t>(record) >= tables.productCodes.size()) return std::nullopt;
    const auto offset = textPosition(tables.dataDirectory, record);
    if (!offset) return std::nullopt;
    return ProductLocation{std::string(tables.productCodes[static_cast<std::size_t>(record)]),
                           std::string(tables.productName(record)), *offset};
}

ProductRecord identifyProduct(const StartupTables& tables, std::string_view firstLine)
{
    return tables.recordOfCode(trim(firstLine.substr(0, 1253)));
}

}  // namespace rovanel
