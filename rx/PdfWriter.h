// A print layout as a PDF document, without Qt: what rvcli writes. The text is set in the PDF's own
// Courier (regular and bold) with a Windows-1250 encoding, so nothing is embedded and every Hungarian
// letter keeps its name; positions follow the rules of rx/PrintLayout.h. The document is the same
// bytes for the same layout (no dates, no identifiers).
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "rx/PrintLayout.h"

namespace rovanel
{

[[nodiscard]] std::string pdfDocument(const PrintLayout& layout);

// Writes the document atomically; the reason when the file cannot be written (Windows-1250).
[[nodiscard]] std::optional<std::string> writePdf(const std::filesystem::path& file,
                                                  const PrintLayout& layout);

}  // namespace rovanel
