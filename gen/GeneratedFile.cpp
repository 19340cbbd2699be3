#include "gen/GeneratedFile.h"

#include <fstream>

namespace rovanel
{

bool writeGeneratedFile(const std::filesystem::path& directory, std::string_view name,
                        std::string_view content, std::string* error)
{
    const std::filesystem::path path = directory / name;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (out) return true;
    if (error) *error = "cannot write " + path.string();
    return false;
}

}  // namespace rovanel
