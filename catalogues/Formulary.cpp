#include "catalogues/Formulary.h"

#include <algorithm>
#include <array>

#include "catalogues/StringList.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{
namespace
{

// Reads fono.dat as a text-mode stream read through a 1024-byte buffer: each piece ends after its LF
// or at kFonoPieceLimit bytes, and a CR before an LF is dropped.
class PieceReader
{
public:
    PieceReader(std::string_view data, std::size_t position) : m_data(data), m_position(position) {}

    std::optional<std::string> next()
    {
        if (m_position >= m_data.size()) return std::nullopt;
        std::string piece;
        while (m_position < m_data.size() && piece.size() < kFonoPieceLimit) {
            char c = m_data[m_position++];
            if (c == '\r' && m_position < m_data.size() && m_data[m_position] == '\n')
                c = m_data[m_position++];
            piece.push_back(c);
            if (c == '\n') break;
        }
        return piece;
    }

private:
    std::string_view m_data;
    std::size_t m_position;
};

// The labels in the order they are tested; the first that the line contains wins. "Rp." colours the
// whole line instead of standing on a line of its own.
const std::array<std::string, 6>& labels()
{
    static const std::array<std::string, 6> list = {"Javallat:",
                                                    "Rp.",
                                                    utf8ToCp1250("Megjegyzés:"),
                                                    utf8ToCp1250("Figyelmeztetés:"),
                                                    "Ellenjavallat:",
                                                    utf8ToCp1250("Hatóanyagok:")};
    return list;
}

}  // namespace

FonoCatalogue loadFonoCatalogue(const std::filesystem::path& directory)
{
    FonoCatalogue catalogue;
    catalogue.directory = directory;
    if (auto tree = loadTreeFile(dataFilePath(directory, "fononr.txt"))) catalogue.tree = std::move(*tree);
    catalogue.names = stringList(directory, "fononev.dat");
    catalogue.offsets = stringList(directory, "fonoidx.dat");
    return catalogue;
}

FonoItem parseFonoItem(std::string_view fonoDat, std::uint64_t offset)
{
    FonoItem item;
    if (offset >= fonoDat.size()) return item;
    PieceReader reader(fonoDat, static_cast<std::size_t>(offset));
    std::optional<std::string> piece;
    while ((piece = reader.next()) && !contains(*piece, "#1")) {
    }
    if (!piece) return item;
    if (auto name = reader.next()) {
        std::string_view text = *name;
        text = text.substr(0, std::min<std::size_t>({text.find('\r'), text.find('\n'), kFonoNameLimit}));
        item.name = std::string(text);
        if (contains(*name, "#1")) return item;  // the next item begins at once: no text
    }
    // Up to "#2"; a "#1" first means the item has no "#2" and no text (the next item is not borrowed).
    while ((piece = reader.next()) && !contains(*piece, "#2"))
        if (contains(*piece, "#1")) return item;
    if (!piece) return item;
    while ((piece = reader.next()) && !contains(*piece, "#1")) {
        const std::string& line = *piece;
        if (line.empty()) continue;
        if (item.lines.empty()) {
            item.lines.push_back(FonoLine{FonoStyle::Title, line});
            continue;
        }
        const std::string* found = nullptr;
        for (const std::string& label : labels())
            if (contains(line, label)) {
                found = &label;
                break;
            }
        if (!found) {
            item.lines.push_back(FonoLine{FonoStyle::Text, line});
        } else if (*found == "Rp.") {
            item.lines.push_back(FonoLine{FonoStyle::Rp, line});
        } else {
            // The rest is taken after the label's length from the start of the line, wherever the label
            // stands in it; kept on purpose, see Formulary_test.
            item.lines.push_back(FonoLine{FonoStyle::Label, *found + "\n"});
            if (line.size() > found->size())
                item.lines.push_back(FonoLine{FonoStyle::Text, line.substr(found->size())});
        }
    }
    return item;
}

std::optional<FonoItem> readFonoItem(const FonoCatalogue& catalogue, int item)
{
    if (item < 0 || static_cast<std::size_t>(item) >= catalogue.offsets.size()) return std::nullopt;
    const auto offset = parseInteger(trimEnd(catalogue.offsets[static_cast<std::size_t>(item)]));
    if (!offset || *offset < 0) return std::nullopt;
    const auto file = readWholeFile(dataFilePath(catalogue.directory, "fono.dat"));
    if (!file || static_cast<std::uint64_t>(*offset) >= file->size()) return std::nullopt;
    return parseFonoItem(*file, static_cast<std::uint64_t>(*offset));
}

StyledDocument fonoDocument(const FonoItem& item, const TextStyle& base)
{
    StyledDocument document;
    TextStyle larger = base;
    larger.height = base.height + 4;
    for (const FonoLine& line : item.lines) {
        larger.colour = line.style == FonoStyle::Title ? kBlue : kFonoGreen;
        document.append(line.text, line.style == FonoStyle::Text ? base : larger);
    }
    return document;
}

std::string fonoText(const FonoItem& item)
{
    std::string text;
    for (const FonoLine& line : item.lines) text += line.text;
    return text;
}

int fonoItemNamed(const FonoCatalogue& catalogue, std::string_view name)
{
    for (std::size_t i = 0; i < catalogue.names.size(); ++i)
        if (catalogue.names[i] == name) return static_cast<int>(i);
    return -1;
}

std::string_view fonoStyleName(FonoStyle style)
{
    switch (style) {
        case FonoStyle::Title:
            return "title";
        case FonoStyle::Label:
            return "label";
        case FonoStyle::Rp:
            return "rp";
        case FonoStyle::Text:
            break;
    }
    return "text";
}

}  // namespace rovanel
