// Record numbers, name lists, text positions and the key -> products index pairs.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/DataFile.h"
#include "db/ProductRecord.h"
#include "db/RecordLayout.h"

namespace rovanel
{

struct StartupTables;

// The two groups of the drug list window's name list.
enum class NameGroup { Nutrition = 0, Medicines = 1 };

// The index pairs of the data directory.
enum class IndexPair { Atc, Contraindication, Ingredient, SideEffect };

// Directory and list file names of a pair ("atcindin.dat", "atcind.dat", ...).
[[nodiscard]] std::string_view directoryFileName(IndexPair pair);
[[nodiscard]] std::string_view listFileName(IndexPair pair);

// The names of one group as the name list fill reads them from nevrend.dat: medicines are the first
// N - K1 - K2 lines, nutrition products K1 lines from byte (N - K1 - K2) * 50; each read through an
// 80-byte buffer and trimmed. Empty when the file or the counts are missing.
[[nodiscard]] std::vector<std::string> nameListFill(const StartupTables& tables, NameGroup group);

// Record number of list position `position` in `group`: the position for medicines,
// N - K1 - K2 + position for nutrition products; kNoProduct for a negative position.
[[nodiscard]] ProductRecord recordOfListPosition(const StartupTables& tables, NameGroup group,
                                                 std::int32_t position);

// Offset of product `record`'s block in gy.ful (record `record` of nevpos.dat), or nothing.
[[nodiscard]] std::optional<std::uint64_t> textPosition(DataFile& nevpos, ProductRecord record);
[[nodiscard]] std::optional<std::uint64_t> textPosition(const std::filesystem::path& dataDirectory,
                                                        ProductRecord record);

// Offset and count of key `key` in a directory file, or nothing when the record is missing or bad.
[[nodiscard]] std::optional<KeyRecord> keyRecord(DataFile& directory, std::int64_t key);

// Reads up to `count` record numbers from `offset` of a list file (the separator after each number is
// blank space, or a comma for mhind.dat); stops at the first thing that is not a number.
[[nodiscard]] std::vector<ProductRecord> readRecordList(DataFile& list, std::int64_t offset,
                                                        std::int64_t count, bool commaAfterEach);

// The products of key `key` of an index pair, in file order; empty when the files or the key are
// missing. Record numbers are as the file holds them (callers that index tables check the range).
[[nodiscard]] std::vector<ProductRecord> productsOfKey(const std::filesystem::path& dataDirectory,
                                                       IndexPair pair, std::int64_t key);

// Line `index` of a file of 128-byte name lines (ellnrend.dat, mhnrend.dat, atcnrend.dat, atcnren5.dat),
// leading blanks stripped and trimmed; nothing when the line is missing.
[[nodiscard]] std::optional<std::string> nameLine(DataFile& file, std::int64_t index);
[[nodiscard]] std::optional<std::string> contraindicationName(const std::filesystem::path& dataDirectory,
                                                              std::int64_t index);

// The lines of product `record`'s block in gy.ful, from its code line up to and including "#vege"
// (or the end of the file, or a bound of 64000 bytes), each without its line end. Lines longer than
// `lineBuffer` - 1 bytes are cut (each reader reads through a fixed buffer: 1254 for the description
// builder, 255 for the interaction engine). Nothing when the record or its offset is bad.
[[nodiscard]] std::optional<std::vector<std::string>> productBlock(DataFile& gyful, DataFile& nevpos,
                                                                   ProductRecord record,
                                                                   std::size_t lineBuffer = 1254);

// gy.ful and nevpos.dat opened together, for the readers that find a product's block by its record
// number (the description builder, the interaction engine, the same-ATC prices, rvcli locate).
class ProductTexts
{
public:
    ProductTexts() = default;
    explicit ProductTexts(const std::filesystem::path& dataDirectory);

    [[nodiscard]] bool isOpen() const { return m_gyful.isOpen() && m_nevpos.isOpen(); }
    [[nodiscard]] std::uint64_t textSize() const { return m_gyful.size(); }
    // Offset of the record's block in gy.ful (textPosition), or nothing.
    [[nodiscard]] std::optional<std::uint64_t> position(ProductRecord record)
    {
        return textPosition(m_nevpos, record);
    }
    // The record's block (productBlock).
    [[nodiscard]] std::optional<std::vector<std::string>> block(ProductRecord record, std::size_t lineBuffer)
    {
        return productBlock(m_gyful, m_nevpos, record, lineBuffer);
    }
    // Up to `length` bytes of gy.ful from `offset`.
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t length)
    {
        return m_gyful.read(offset, length);
    }

private:
    DataFile m_gyful;
    DataFile m_nevpos;
};

// The product code and name of record `record` as `rvcli locate` shows them.
struct ProductLocation {
    std::string code;
    std::string name;
    std::uint64_t offset = 0;
};
[[nodiscard]] std::optional<ProductLocation> locateProduct(const StartupTables& tables, ProductRecord record);

// Identifies the product of a gy.ful block by its first line: trims it and finds the first slot of
// table 1 equal to it. kNoProduct when none is.
[[nodiscard]] ProductRecord identifyProduct(const StartupTables& tables, std::string_view firstLine);

}  // namespace rovanel
