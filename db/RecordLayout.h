// The fixed record layouts of the data directory (docs/data-format.md), each as an encode/decode pair:
// the generator and the test fixtures write records with the encoders, the readers and the database
// check read them with the decoders. Text is Windows-1250.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rovanel
{

// A line of a fixed-width file: the text blank-padded (or cut) to `length` - 2 bytes, then CR LF.
[[nodiscard]] std::string encodeFixedLine(std::string_view text, std::size_t length);

// nevrend.dat: one product name a line, 48 bytes and CR LF.
inline constexpr std::size_t kNameLineLength = 50;
// ellnrend.dat, mhnrend.dat, atcnrend.dat, atcnren5.dat: one name a line, 126 bytes and CR LF.
inline constexpr std::size_t kNameFileLineLength = 128;

// nevpos.dat: one record a product, its block's gy.ful offset right-aligned in 8 bytes, then CR LF.
inline constexpr std::size_t kPositionRecordLength = 10;
inline constexpr std::size_t kPositionDigits = 8;
[[nodiscard]] std::string encodePositionRecord(std::uint64_t offset);
// The offset from a record's 8 digit bytes (blanks before them allowed); an all-blank, signed or
// shorter record gives nothing rather than borrowing the next record's number.
[[nodiscard]] std::optional<std::uint64_t> decodePositionRecord(std::string_view digits);

// Index directories (atcindin.dat, ellindin.dat, haindinf.dat, mhindin.dat): one record a key,
// "offset,count" blank-padded to 14 bytes, then CR LF. The offset is a byte offset into the list file.
inline constexpr std::size_t kDirectoryRecordLength = 16;
struct KeyRecord {
    std::int64_t offset = 0;
    std::int32_t count = 0;
    friend bool operator==(const KeyRecord&, const KeyRecord&) = default;
};
[[nodiscard]] std::string encodeDirectoryRecord(KeyRecord record);
// As "%ld,%d" reads it: leading blanks, the numbers each within 32 bits, anything after the count
// ignored; a negative number or a missing comma gives nothing.
[[nodiscard]] std::optional<KeyRecord> decodeDirectoryRecord(std::string_view record);

// Index lists (atcind.dat, ellind.dat, haind.dat, mhind.dat): record numbers, each on its own line;
// mhind.dat ends each number with a comma.
[[nodiscard]] std::string encodeListEntry(std::int32_t record, bool commaAfterEach);

// KOD.DAT: four tables of blank-padded codes without line ends, one after the other: product codes
// (10 bytes each), ATC group codes (10), contraindication codes (6) and side-effect codes (6).
inline constexpr std::size_t kProductCodeWidth = 10;
inline constexpr std::size_t kAtcGroupCodeWidth = 10;
inline constexpr std::size_t kContraindicationCodeWidth = 6;
inline constexpr std::size_t kSideEffectCodeWidth = 6;
[[nodiscard]] std::string encodeCodeField(std::string_view code, std::size_t width);

}  // namespace rovanel
