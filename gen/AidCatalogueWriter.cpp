#include "gen/AidCatalogueWriter.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "catalogues/AidFields.h"
#include "db/Cp1250.h"
#include "gen/AidBook.h"
#include "gen/DatabaseGenerator.h"
#include "gen/GeneratedFile.h"

namespace rovanel
{
namespace
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }

// "062403" -> "06 24 03"
std::string spaced(std::string_view code)
{
    std::string text;
    for (std::size_t i = 0; i < code.size(); i += 2) {
        if (!text.empty()) text += ' ';
        text += code.substr(i, 2);
    }
    return text;
}

// The classes of the catalogue's first two digits, named by what their aids are.
const char* className(std::string_view prefix)
{
    static const std::map<std::string_view, const char*> names = {
        {"02", "Kötszerek és sebkezelés"},
        {"04", "Személyes gyógykezelés segédeszközei"},
        {"06", "Ortézisek és protézisek"},
        {"09", "Személyes gondozás és védelem segédeszközei"},
        {"12", "Személyes mobilitás segédeszközei"},
        {"15", "Táplálás és szondázás segédeszközei"},
        {"18", "Kerekesszék-tartozékok és ülőpárnák"},
        {"21", "Látás és hallás segédeszközei"},
        {"99", "Egyedi és méltányossági eszközök"},
    };
    const auto found = names.find(prefix);
    return found == names.end() ? "" : found->second;
}

// Notes by code prefix, sorted by code; "~~" breaks a line.
struct NoteSource {
    const char* code;
    int kind;
    const char* text;
};
constexpr NoteSource kNotes[] = {
    {"02", 1,
     "Kötszer havonta legfeljebb a felírható mennyiségben rendelhető.~~A sebkezelés módját a kezelőorvos "
     "határozza meg."},
    {"0209", 2, "EÜ emelt: krónikus, nem gyógyuló seb kezelésére, bőrgyógyász javaslatára."},
    {"04", 1, "Szakorvosi javaslat alapján rendelhető; a javaslat 6 hónapig érvényes."},
    {"0406", 5, "A készülék kölcsönözhető;~~a kölcsönzés havi díját a támogatás fedezi."},
    {"06", 1, "Ortézis és protézis méretvétel után, szakorvosi javaslatra rendelhető."},
    {"0603", 4, "Egyedi méltányosság: a területileg illetékes kormányhivatalnál kérelmezhető."},
    {"0612", 1, "Lábortézis: pár esetén a mennyiség két darab."},
    {"061206", 3, "EÜ kiemelt: neurológiai eredetű járászavarban, szakorvosi javaslatra."},
    {"09", 1,
     "Inkontinencia-termékek havi mennyisége a betegség súlyossági fokától függ.~~A súlyossági fokot a "
     "rendelő orvos igazolja."},
    {"0930", 2, "EÜ emelt: teljes inkontinenciában, urológus vagy nőgyógyász javaslatára."},
    {"12", 1, "Járást segítő eszköz a kihordási időn belül csak méltányosságból pótolható."},
    {"1221", 5, "Kerekesszék kölcsönzéssel is igénybe vehető;~~a kölcsönzési idő legfeljebb 12 hónap."},
    {"21", 1, "Látás és hallás segédeszköze szakorvosi vizsgálat alapján rendelhető."},
    {"2145", 3,
     "EÜ kiemelt: súlyos halláscsökkenésben, audiológiai vizsgálat alapján.~~A kihordási idő gyermekeknél "
     "rövidebb."},
    {"99", 4, "Méltányossági engedély alapján, egyedi elbírálással."},
};

// Whole-forint amounts as text.
std::string amount(long value) { return std::to_string(std::max(value, 0L)); }

// The generator's own quantities and wearing periods, by class: [normative, increased, highlighted].
struct Limits {
    const char* quantity;
    const char* wear;
};
Limits limitsOf(std::string_view code)
{
    const std::string_view top = code.substr(0, 2);
    if (top == "02") return {"30", "1"};
    if (top == "04") return {"1", "36"};
    if (top == "06") return {"1 db\\\\pár esetén 2 db", "12"};  // "\\" is a line break in se.dat
    if (top == "09") return {"90", "1"};
    if (top == "12") return {"1", "60"};
    if (top == "21") return {"1", code.substr(0, 4) == "2145" ? "60" : "24"};
    return {"1", "12"};
}

}  // namespace

std::vector<std::pair<std::string, std::string>> aidCatalogueFiles(const GeneratorOptions& options)
{
    const std::span<const AidBookEntry> book = aidBook();
    const std::size_t wanted =
        std::clamp<std::size_t>(static_cast<std::size_t>(std::max(options.products, 0)) / 3, 60, book.size());
    std::vector<const AidBookEntry*> aids;
    for (std::size_t j = 0; j < wanted; ++j) aids.push_back(&book[j * book.size() / wanted]);
    return aidCatalogueFiles(aids, options.seed);
}

std::vector<std::pair<std::string, std::string>> aidCatalogueFiles(
    const std::vector<const AidBookEntry*>& aids, std::optional<std::uint64_t> ownDetailsSeed)
{
    // se.dat and the names, in code order; where each group's run begins.
    std::string se, senev;
    std::map<std::string, std::size_t> groupStart;
    std::vector<std::size_t> starts;  // of each aid's line
    const bool own = ownDetailsSeed.has_value();
    std::uint64_t mix = ownDetailsSeed.value_or(0) * 0x9E3779B97F4A7C15ULL + 1;
    for (const AidBookEntry* entry : aids) {
        const std::string code = entry->isoCode;
        // Groups of 2 to 10 digits, and of 12 for the 15-digit codes: at least three digits name the aid.
        starts.push_back(se.size());
        for (std::size_t length = 2; length + 3 <= code.size(); length += 2)
            groupStart.try_emplace(code.substr(0, length), se.size());
        mix ^= mix >> 31;
        mix *= 0xBF58476D1CE4E5B9ULL;
        const bool unsupported =
            entry->supportPercent == 0 || std::string_view(entry->supportKind) == "NEMKIV";
        const long support = unsupported ? 0 : entry->grossPrice - entry->patientFee;
        const bool eu = entry->increasedPercent != 0;
        const bool highlighted = eu && entry->increasedPercent >= 98;
        const long euSupport = entry->grossPrice - entry->increasedPatientFee;
        const Limits limits = own ? limitsOf(code) : Limits{"-", "-"};
        std::array<std::string, aid::kFieldCount> f;
        f[aid::kCode] = code;
        f[aid::kName] = cp(entry->name);
        f[aid::kPackaging] = cp(entry->packaging);
        f[aid::kFullPrice] = amount(entry->grossPrice);
        f[aid::kSupport] = amount(support);
        f[aid::kPayable] = amount(unsupported ? entry->grossPrice : entry->patientFee);
        f[aid::kIncreasedPayable] = eu && !highlighted ? amount(entry->increasedPatientFee) : "0";
        f[aid::kIncreasedSupport] = eu && !highlighted ? amount(euSupport) : "0";
        f[aid::kHighlightedPayable] = highlighted ? amount(entry->increasedPatientFee) : "0";
        f[aid::kHighlightedSupport] = highlighted ? amount(euSupport) : "0";
        f[aid::kStandardNoteMark] = own && (mix >> 40) % 7 == 0 ? "N" : "I";
        f[aid::kQuantityNormative] = cp(limits.quantity);
        f[aid::kQuantityIncreased] = eu && !highlighted ? cp(limits.quantity) : "-";
        f[aid::kQuantityHighlighted] = highlighted ? cp(limits.quantity) : "-";
        f[aid::kWearNormative] = limits.wear;
        f[aid::kWearIncreased] = eu && !highlighted ? limits.wear : "-";
        f[aid::kWearHighlighted] = highlighted ? limits.wear : "-";
        f[aid::kProductCode] = entry->productCode;
        f[aid::kManufacturer] = cp(entry->manufacturer);
        f[aid::kDistributor] = cp(entry->distributor);
        f[aid::kSupportPercent] = std::to_string(entry->supportPercent);
        f[aid::kSupportKind] = entry->supportKind;
        f[aid::kIncreasedPercent] = std::to_string(entry->increasedPercent);
        f[aid::kIsoCode] = spaced(code);
        std::string line;
        for (std::size_t i = 0; i < f.size(); ++i) line += (i ? "\t" : "") + f[i];
        se += line + "\r\n";
        senev += f[aid::kName] + " " + f[aid::kPackaging] + "\t" + code + "\r\n";
    }

    // A group's aids begin at the first code that begins with the group (a shorter code may begin with a
    // group made for a longer one).
    for (auto& [group, start] : groupStart) {
        const auto first = std::lower_bound(aids.begin(), aids.end(), group,
                                            [](const AidBookEntry* aid, const std::string& code) {
                                                return std::string_view(aid->isoCode) < code;
                                            });
        start = starts[static_cast<std::size_t>(first - aids.begin())];
    }
    // A prefix sorts before every longer code it begins, so code order is the tree's pre-order.
    std::string tree, codes, positions, iso;
    for (const auto& [group, start] : groupStart) {
        const std::size_t depth = group.size() / 2 - 1;
        std::string text = spaced(group);
        if (depth == 0 && *className(group)) text += std::string(" ") + cp(className(group));
        tree += std::string(depth, '\t') + text + "\r\n";
        codes += group + "\r\n";
        positions += std::to_string(start) + "\r\n";
        iso += spaced(group) + "\r\n";
    }
    std::string notes;
    if (own)
        for (const NoteSource& note : kNotes)
            notes +=
                std::string(note.code) + "\t" + std::to_string(note.kind) + "\t" + cp(note.text) + "\r\n";

    return {{"senrend2.dat", tree}, {"sekod2.dat", codes}, {"sepos.dat", positions},
            {"seiso.dat", iso},     {"senev.dat", senev},  {"semegj.dat", notes},
            {"se.dat", se}};
}

bool writeAidCatalogue(const std::filesystem::path& directory, const GeneratorOptions& options,
                       std::string* error)
{
    for (const auto& [name, content] : aidCatalogueFiles(options))
        if (!writeGeneratedFile(directory, name, content, error)) return false;
    return true;
}

}  // namespace rovanel
