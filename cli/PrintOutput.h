// What the printing subcommands share: their options, and a layout shown as text or written as PDF.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "rx/PrintLayout.h"

namespace rovanel::cli
{

struct PrintArguments {
    std::vector<std::string> positional;
    std::map<std::string, std::string> values;  // "--left" -> "12"
    std::set<std::string> flags;                // "--copy"
};

// Nothing when an option is not among `valueOptions` or `flagOptions`, or a value is missing.
[[nodiscard]] std::optional<PrintArguments> parsePrintArguments(const std::vector<std::string>& args,
                                                                const std::set<std::string>& valueOptions,
                                                                const std::set<std::string>& flagOptions);

// With "--pdf OUT": writes the PDF (0) or says why it could not (2). Otherwise lists the items, one a
// line: page, name, left, top and the text with its line breaks shown as " | " (UTF-8).
int outputLayout(const PrintLayout& layout, const PrintArguments& arguments);

}  // namespace rovanel::cli
