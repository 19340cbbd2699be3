// The fixtures' shorthands for db/RecordLayout.h: names given in UTF-8.
#pragma once

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

}  // namespace rovanel::testing
