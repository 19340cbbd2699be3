// The generator's entry: builds the product model (gen/ProductModel.h), then lets each writer add its
// files and writes them. A new file of the database gets a writer of its own (gen/*Writer.cpp) and a call
// here.
#include "gen/DatabaseGenerator.h"

#include <system_error>

#include "gen/AidCatalogueWriter.h"
#include "gen/FormularyWriter.h"
#include "gen/GeneratedFile.h"
#include "gen/PictureWriter.h"
#include "gen/PrescriptionFiles.h"
#include "gen/ProductModel.h"

namespace rovanel
{

namespace generation
{

bool Generator::write(const std::filesystem::path& directory, std::string* error)
{
    std::error_code ec;
    std::filesystem::create_directories(directory, ec);
    if (ec || !std::filesystem::is_directory(directory)) {
        if (error) *error = "cannot create the directory " + directory.string();
        return false;
    }
    if (!writeProductFiles(error)) return false;
    writeAtcFiles();
    writeCodeTableFiles();
    writeTableIndexFiles();
    writeIngredientFiles();
    writeFormFiles();
    writeRegulationFiles();
    writeFixedFiles();
    plantListCases();
    writeCounts();
    for (const auto& [name, content] : m_files)
        if (!writeGeneratedFile(directory, name, content, error)) return false;
    return true;
}

}  // namespace generation

std::optional<PlantedCases> generateDatabase(const std::filesystem::path& directory,
                                             const GeneratorOptions& options, std::string* error)
{
    generation::Generator generator(options);
    if (!generator.build(error) || !generator.write(directory, error)) return std::nullopt;
    if (!writePictures(directory, error)) return std::nullopt;
    // The detailed list's cases change product blocks; the prescription files are derived from them.
    if (!plantDetailedListCases(directory, generator.planted, error)) return std::nullopt;
    if (!writePrescriptionFiles(directory, options.seed, error)) return std::nullopt;
    if (!writeAidCatalogue(directory, options, error) || !writeFormulary(directory, options, error))
        return std::nullopt;
    return generator.planted;
}

}  // namespace rovanel
