// The pictures of a generated database: Rg0.jpg, Rg1.jpg, r1.jpg and r2.jpg (gen/DemoPictures.h).
#pragma once

#include <filesystem>
#include <string>

namespace rovanel
{

[[nodiscard]] bool writePictures(const std::filesystem::path& directory, std::string* error);

}  // namespace rovanel
