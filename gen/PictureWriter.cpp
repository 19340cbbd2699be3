#include "gen/PictureWriter.h"

#include <string_view>

#include "gen/DemoPictures.h"
#include "gen/GeneratedFile.h"

namespace rovanel
{

bool writePictures(const std::filesystem::path& directory, std::string* error)
{
    for (const DemoPicture& picture : demoPictures()) {
        const std::string_view bytes(reinterpret_cast<const char*>(picture.bytes.data()),
                                     picture.bytes.size());
        if (!writeGeneratedFile(directory, picture.name, bytes, error)) return false;
    }
    return true;
}

}  // namespace rovanel
