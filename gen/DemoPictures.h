// The pictures a database directory holds for the windows (the main window's title pictures Rg0.jpg and
// Rg1.jpg, the drug list window's r1.jpg and r2.jpg), embedded from data/demo at build time so that a
// generated database is complete.
#pragma once

#include <span>

namespace rovanel
{

struct DemoPicture {
    const char* name;
    std::span<const unsigned char> bytes;  // a JPEG file
};

[[nodiscard]] std::span<const DemoPicture> demoPictures();

}  // namespace rovanel
