#include "catalogues/MedicalAids.h"

#include <algorithm>
#include <array>

#include "catalogues/AidFields.h"
#include "catalogues/StringList.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/HungarianCollation.h"
#include "db/MessageCatalog.h"
#include "db/MessageTable.h"
#include "db/Text.h"

namespace rovanel
{
namespace
{

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result;
    std::size_t start = 0;
    while (true) {
        const std::size_t at = text.find(from, start);
        if (at == std::string_view::npos) break;
        result.append(text.substr(start, at - start)).append(to);
        start = at + from.size();
    }
    result.append(text.substr(start));
    return result;
}

// The first field of a se.dat line: its code.
std::string_view codeOf(std::string_view line) { return line.substr(0, line.find('\t')); }

// Up to kFieldCount tab-separated fields, "\\" turned into CR LF; `count` is how many the line has.
struct AidFields {
    std::array<std::string, aid::kFieldCount> values;
    std::size_t count = 0;
    [[nodiscard]] const std::string& operator[](std::size_t i) const { return values[i]; }
};

AidFields splitAidLine(std::string_view line)
{
    AidFields fields;
    std::size_t start = 0;
    while (fields.count < aid::kFieldCount) {
        const std::size_t tab = line.find('\t', start);
        const std::string_view field =
            line.substr(start, tab == std::string_view::npos ? std::string_view::npos : tab - start);
        fields.values[fields.count++] = replaceAll(field, "\\\\", "\r\n");
        if (tab == std::string_view::npos) break;
        start = tab + 1;
    }
    return fields;
}

bool absentOrZero(const std::string& field) { return field.empty() || field == "0"; }

// "%ld" of a field as atol reads it: the leading number, 0 when there is none or it overflows.
std::string integerText(const std::string& field) { return std::to_string(scanInteger(field).value_or(0)); }

// The lines of se.dat from `offset`, each without its line end and cut to the line limit; `visit`
// returns false to stop.
template <typename Visit>
void forEachAidLine(std::string_view file, std::uint64_t offset, Visit&& visit)
{
    if (offset >= file.size()) return;
    forEachLine(file.substr(static_cast<std::size_t>(offset)), [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        return visit(line.substr(0, aid::kLineLimit - 2));
    });
}

}  // namespace

std::optional<std::uint64_t> AidCatalogue::groupOffset(int node) const
{
    if (node < 0 || static_cast<std::size_t>(node) >= positions.size()) return std::nullopt;
    const auto value = parseInteger(positions[static_cast<std::size_t>(node)]);
    if (!value || *value < 0) return std::nullopt;
    return static_cast<std::uint64_t>(*value);
}

std::string_view AidCatalogue::groupCode(int node) const
{
    if (node < 0 || static_cast<std::size_t>(node) >= codes.size()) return {};
    return trimEnd(codes[static_cast<std::size_t>(node)]);
}

std::vector<AidNote> parseAidNotes(std::string_view content)
{
    std::vector<AidNote> notes;
    forEachLine(content, [&](std::string_view line) {
        line = line.substr(0, aid::kNoteLineLimit - 2);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        AidNote note;
        const std::size_t firstTab = line.find('\t');
        note.code = std::string(line.substr(0, std::min(firstTab, aid::kNoteCodeLength)));
        if (firstTab != std::string_view::npos) {
            const std::string_view rest = line.substr(firstTab + 1);
            const std::size_t secondTab = rest.find('\t');
            note.kind = scanInteger(rest.substr(0, secondTab)).value_or(0);
            if (secondTab != std::string_view::npos)
                note.text = replaceAll(rest.substr(secondTab + 1), "~~", "\r\n");
        }
        notes.push_back(std::move(note));
        return true;
    });
    return notes;
}

AidCatalogue loadAidCatalogue(const std::filesystem::path& directory)
{
    AidCatalogue catalogue;
    catalogue.directory = directory;
    if (auto tree = loadTreeFile(dataFilePath(directory, "senrend2.dat"))) catalogue.tree = std::move(*tree);
    catalogue.codes = stringList(directory, "sekod2.dat");
    catalogue.positions = stringList(directory, "sepos.dat");
    catalogue.iso = stringList(directory, "seiso.dat");
    catalogue.names = stringList(directory, "senev.dat");
    if (const auto notes = readWholeFile(dataFilePath(directory, "semegj.dat")))
        catalogue.notes = parseAidNotes(*notes);
    return catalogue;
}

std::vector<AidEntry> listAidGroup(const AidCatalogue& catalogue, int node)
{
    std::vector<AidEntry> entries;
    const std::string_view group = catalogue.groupCode(node);
    const auto offset = catalogue.groupOffset(node);
    if (group.empty() || !offset) return entries;
    const auto file = readWholeFile(dataFilePath(catalogue.directory, "se.dat"));
    if (!file) return entries;
    forEachAidLine(*file, *offset, [&](std::string_view line) {
        const std::string_view code = codeOf(line);
        if (!code.starts_with(group)) return false;
        const AidFields fields = splitAidLine(line);
        entries.push_back(AidEntry{std::string(code), fields[aid::kName] + " " + fields[aid::kPackaging]});
        return true;
    });
    return entries;
}

std::string_view aidNoteHeading(int kind)
{
    // Written in UTF-8 in the comment only: Normatív, EÜ emelt, EÜ kiemelt, Egyedi méltányosság,
    // Kölcsönözhető.
    static const std::array<std::string, 5> headings = {
        utf8ToCp1250("Normatív"), utf8ToCp1250("EÜ emelt"), utf8ToCp1250("EÜ kiemelt"),
        utf8ToCp1250("Egyedi méltányosság"), utf8ToCp1250("Kölcsönözhető")};
    if (kind < 1 || kind > static_cast<int>(headings.size())) return {};
    return headings[static_cast<std::size_t>(kind - 1)];
}

std::string describeAid(std::string_view seLine, const std::vector<AidNote>& notes,
                        const MessageTable& messages)
{
    static const std::string unsupported =
        utf8ToCp1250("\r\n - Nem támogatott termék, nincs árinformáció - ");
    static const std::string increased = utf8ToCp1250("\r\nFizetendő emelt indikációra: ");
    static const std::string increasedSupport = utf8ToCp1250(" Támogatás emelt indikációra: ");
    static const std::string highlighted = utf8ToCp1250("\r\nFizetendő kiemelt indikációra: ");
    static const std::string highlightedSupport = utf8ToCp1250(" Támogatás kiemelt indikációra: ");
    static const std::string quantity = utf8ToCp1250("\r\n---Felírható mennyiség: Normativ=");
    static const std::string wear = utf8ToCp1250("\r\n---Kihordási idő: Normativ=");
    static const std::string months = utf8ToCp1250("  hónap");

    const AidFields f = splitAidLine(seLine);
    std::string text = f[aid::kName] + " " + f[aid::kPackaging];
    if (absentOrZero(f[aid::kSupport])) {
        text += unsupported;
    } else {
        text += "\r\n";
        text.append(messages.at(msg::kAidFullPriceLabel)).append(" ").append(integerText(f[aid::kFullPrice]));
        text.append("Ft\t").append(messages.at(msg::kAidSupportLabel)).append(" ").append(f[aid::kSupport]);
        text.append("Ft\t").append(messages.at(msg::kAidPayableLabel)).append(" ").append(f[aid::kPayable]);
        text += "Ft";
    }
    if (!absentOrZero(f[aid::kIncreasedSupport]))
        text += increased + integerText(f[aid::kIncreasedPayable]) + increasedSupport +
                integerText(f[aid::kIncreasedSupport]);
    if (!absentOrZero(f[aid::kHighlightedSupport]))
        text += highlighted + integerText(f[aid::kHighlightedPayable]) + highlightedSupport +
                integerText(f[aid::kHighlightedSupport]);
    if (f.count <= aid::kStandardNoteMark || f[aid::kStandardNoteMark] == "I")
        text.append("\r\n").append(messages.at(msg::kAidStandardNote));
    text += quantity + f[aid::kQuantityNormative] + " ,emelt=" + f[aid::kQuantityIncreased] +
            ",kiemelt=" + f[aid::kQuantityHighlighted];
    text += wear + f[aid::kWearNormative] + ", emelt= " + f[aid::kWearIncreased] +
            ",kiemelt=" + f[aid::kWearHighlighted] + months;

    // Notes are sorted by code: the walk ends at the first one that sorts after the aid's code.
    const std::string& code = f[aid::kCode];
    for (const AidNote& note : notes) {
        if (note.code.compare(code) > 0) break;
        if (std::string_view(code).starts_with(note.code))
            text.append("\r\n---").append(aidNoteHeading(note.kind)).append("---\r\n ").append(note.text);
    }
    return text;
}

std::optional<std::string> aidDescription(const AidCatalogue& catalogue, const MessageTable& messages,
                                          int node, std::string_view code)
{
    const auto file = readWholeFile(dataFilePath(catalogue.directory, "se.dat"));
    if (!file) return std::nullopt;
    std::optional<std::string> description;
    forEachAidLine(*file, catalogue.groupOffset(node).value_or(0), [&](std::string_view line) {
        if (codeOf(line) != code) return true;
        description = describeAid(line, catalogue.notes, messages);
        return false;
    });
    return description;
}

int findInAidTree(const AidCatalogue& catalogue, std::string_view text, int from)
{
    const std::string wanted = upperCaseCp1250(text);
    for (std::size_t i = static_cast<std::size_t>(std::max(from, 0)); i < catalogue.tree.size(); ++i)
        if (contains(upperCaseCp1250(catalogue.tree[i].text), wanted)) return static_cast<int>(i);
    return -1;
}

std::vector<AidNameHit> findAidNames(const AidCatalogue& catalogue, std::string_view text)
{
    std::vector<AidNameHit> hits;
    const std::string wanted = upperCaseCp1250(text);
    for (const std::string& line : catalogue.names) {
        const std::size_t tab = line.find('\t');
        const std::string_view name = std::string_view(line).substr(0, tab);
        if (!contains(upperCaseCp1250(name), wanted)) continue;
        AidNameHit hit{std::string(name), tab == std::string::npos ? std::string{} : line.substr(tab + 1),
                       -1};
        hit.node = groupOfAid(catalogue, hit.code);
        hits.push_back(std::move(hit));
    }
    return hits;
}

int groupOfAid(const AidCatalogue& catalogue, std::string_view code)
{
    int best = -1;
    std::size_t bestLength = 0;
    if (code.empty()) return best;
    for (std::size_t i = 0; i < catalogue.codes.size(); ++i) {
        const std::string_view group = catalogue.groupCode(static_cast<int>(i));
        if (group.empty() || group.size() <= bestLength || !code.starts_with(group)) continue;
        if (!catalogue.groupOffset(static_cast<int>(i))) continue;
        best = static_cast<int>(i);
        bestLength = group.size();
    }
    return best;
}

}  // namespace rovanel
