// Writes the FoNo magistral formulary (fononr.txt, fononev.dat, fonoidx.dat, fono.dat): a few hundred
// items in chapters, each with its Latin recipe lines and the labelled sections the formulary window
// colours.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace rovanel
{

struct GeneratorOptions;

// The files' names and bytes (Windows-1250, CR LF).
[[nodiscard]] std::vector<std::pair<std::string, std::string>> formularyFiles(
    const GeneratorOptions& options);

// Writes them into `directory`; false and a reason in `error` when one cannot be written.
[[nodiscard]] bool writeFormulary(const std::filesystem::path& directory, const GeneratorOptions& options,
                                  std::string* error);

}  // namespace rovanel
