#include "db/RecordLayout.h"

#include "db/Text.h"

namespace rovanel
{

std::string encodeFixedLine(std::string_view text, std::size_t length)
{
    return encodeCodeField(text, length < 2 ? 0 : length - 2) + "\r\n";
}

std::string encodePositionRecord(std::uint64_t offset)
{
    const std::string digits = std::to_string(offset);
    return std::string(digits.size() < kPositionDigits ? kPositionDigits - digits.size() : 0, ' ') + digits +
           "\r\n";
}

std::optional<std::uint64_t> decodePositionRecord(std::string_view digits)
{
    if (digits.size() != kPositionDigits) return std::nullopt;
    const auto value = parseInteger(digits);
    if (!value || *value < 0) return std::nullopt;
    return static_cast<std::uint64_t>(*value);
}

std::string encodeDirectoryRecord(KeyRecord record)
{
    return encodeFixedLine(std::to_string(record.offset) + "," + std::to_string(record.count),
                           kDirectoryRecordLength);
}

std::optional<KeyRecord> decodeDirectoryRecord(std::string_view record)
{
    std::size_t consumed = 0;
    const auto offset = scanInteger(record, &consumed);
    if (!offset || consumed >= record.size() || record[consumed] != ',') return std::nullopt;
    const auto count = scanInteger(record.substr(consumed + 1));
    if (!count || *offset < 0 || *count < 0) return std::nullopt;
    return KeyRecord{*offset, *count};
}

std::string encodeListEntry(std::int32_t record, bool commaAfterEach)
{
    return std::to_string(record) + (commaAfterEach ? ",\r\n" : "\r\n");
}

std::string encodeCodeField(std::string_view code, std::size_t width)
{
    std::string field(code.substr(0, width));
    field.resize(width, ' ');
    return field;
}

}  // namespace rovanel
