// The fixed-width records of the data directory, for tests that write databases byte by byte
// (layouts in docs/data-format.md).
#pragma once

#include <cstdio>
#include <string>

#include "db/Cp1250.h"

namespace rovanel::testing
{

// `text` blank-padded (or cut) to `width` bytes.
inline std::string field(const std::string& text, std::size_t width)
{
    std::string padded = text;
    padded.resize(width, ' ');
    return padded;
}

// A nevrend.dat line: `name` (UTF-8 here, Windows-1250 in the file) padded to 48 bytes, then CR LF.
inline std::string nameLine(const std::string& name) { return field(utf8ToCp1250(name), 48) + "\r\n"; }

// A 128-byte name-file line (ellnrend.dat, mhnrend.dat, atcnrend.dat, atcnren5.dat); `name` is UTF-8.
inline std::string nameFileLine(const std::string& name) { return field(utf8ToCp1250(name), 126) + "\r\n"; }

// A 10-byte nevpos.dat record.
inline std::string positionRecord(long offset)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%8ld\r\n", offset);
    return buffer;
}

// A 16-byte directory record "%ld,%d".
inline std::string directoryRecord(long offset, long count)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%ld,%ld", offset, count);
    return field(buffer, 14) + "\r\n";
}

}  // namespace rovanel::testing
