// The fixtures' shorthands for db/RecordLayout.h: names given in UTF-8, numbers as plain longs.
#pragma once

#include <cstdint>
#include <string>

#include "db/Cp1250.h"
#include "db/RecordLayout.h"

namespace rovanel::testing
{

inline std::string nameLine(const std::string& name)
{
    return encodeFixedLine(utf8ToCp1250(name), kNameLineLength);
}
inline std::string nameFileLine(const std::string& name)
{
    return encodeFixedLine(utf8ToCp1250(name), kNameFileLineLength);
}
inline std::string positionRecord(long offset)
{
    return encodePositionRecord(static_cast<std::uint64_t>(offset));
}
inline std::string directoryRecord(long offset, long count)
{
    return encodeDirectoryRecord({offset, static_cast<std::int32_t>(count)});
}

}  // namespace rovanel::testing
