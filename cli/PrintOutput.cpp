#include "cli/PrintOutput.h"

#include <cstdio>

#include "cli/Common.h"
#include "rx/PdfWriter.h"

namespace rovanel::cli
{

std::optional<PrintArguments> parsePrintArguments(const std::vector<std::string>& args,
                                                  const std::set<std::string>& valueOptions,
                                                  const std::set<std::string>& flagOptions)
{
    PrintArguments parsed;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (valueOptions.count(arg)) {
            if (i + 1 >= args.size()) return std::nullopt;
            parsed.values[arg] = args[++i];
        } else if (flagOptions.count(arg)) {
            parsed.flags.insert(arg);
        } else if (arg.starts_with("--")) {
            return std::nullopt;
        } else {
            parsed.positional.push_back(arg);
        }
    }
    return parsed;
}

int outputLayout(const PrintLayout& layout, const PrintArguments& arguments)
{
    if (const auto pdf = arguments.values.find("--pdf"); pdf != arguments.values.end()) {
        if (const auto refused = writePdf(pdf->second, layout)) {
            std::fprintf(stderr, "rvcli: %s\n", toUtf8(*refused).c_str());
            return 2;
        }
        return 0;
    }
    for (std::size_t page = 0; page < layout.pages.size(); ++page) {
        for (const PrintItem& item : layout.pages[page].items) {
            std::string text;
            bool first = true;
            for (const std::string_view line : itemLines(item.text)) {
                text += (first ? "" : " | ") + toUtf8(line);
                first = false;
            }
            std::printf("%zu\t%s\t%d\t%d\t%s\n", page + 1, item.name.c_str(), item.left, item.top,
                        text.c_str());
        }
    }
    return 0;
}

}  // namespace rovanel::cli
