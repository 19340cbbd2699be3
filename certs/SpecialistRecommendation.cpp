#include "certs/SpecialistRecommendation.h"

#include <algorithm>

#include "app/IniFile.h"
#include "db/AtcCode.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/Text.h"
#include "db/TextList.h"

namespace rovanel
{
namespace
{

std::string utf8(std::string_view text) { return utf8ToCp1250(text); }

// Characters `from` to `to` (1-based, inclusive) of `text`, as far as it reaches.
std::string characters(std::string_view text, std::size_t from, std::size_t to)
{
    if (from > text.size()) return {};
    std::string_view part = text.substr(from - 1, to - from + 1);
    while (!part.empty() && part.back() == ' ') part.remove_suffix(1);
    return std::string(part);
}

bool rowIsEmpty(const std::array<std::string, RecommendationGrids::kDrugColumns>& row)
{
    return std::all_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
}

}  // namespace

std::string toBeFilledIn() { return utf8("KITÖLTENDŐ"); }

void writeRecommendationHeadings(RecommendationGrids& grids, std::string_view bno)
{
    static constexpr std::array<const char*, 6> kPatient = {"Beteg",       "Irsz. hely", "utca",
                                                            "Szül. ideje", "TAJ",        ""};
    static constexpr std::array<const char*, 6> kPhysician = {"Orvos",   "Mh. irsz. hely", "Mh.utca",
                                                              "Mh tel.", "működési eng.",  ""};
    static constexpr std::array<const char*, 9> kDrug = {"",
                                                         "Hatóanyag",
                                                         "Hatáserősség",
                                                         "Bevitel módja",
                                                         "Adagolás",
                                                         "Emelt tám. mértéke",
                                                         "Emelt ind. sorszám",
                                                         "Kiemelt ind. sorszám",
                                                         "Javaslat időtartama"};
    for (std::size_t row = 0; row < kPatient.size(); ++row) {
        grids.bg[row][0] = utf8(kPatient[row]);
        grids.og[row][0] = utf8(kPhysician[row]);
    }
    for (std::size_t column = 1; column < kDrug.size(); ++column) grids.gg[0][column] = utf8(kDrug[column]);
    grids.gg[0][0] = bno.empty() ? utf8("Üres BNO") : std::string(bno);
}

std::optional<Message> fillRecommendation(RecommendationGrids& grids, const RecommendationHandover& handover,
                                          const std::filesystem::path& dataDirectory,
                                          const TextList& atcGroupCodes,
                                          const std::filesystem::path& patientIni)
{
    writeRecommendationHeadings(grids, handover.bno);
    const std::string filled = toBeFilledIn();
    const auto orFilled = [&filled](const std::string& value) { return value.empty() ? filled : value; };
    grids.bg[0][1] = orFilled(handover.patientName);
    grids.bg[1][1] = orFilled(handover.address1);
    grids.bg[2][1] = orFilled(handover.address2);
    grids.bg[3][1] = orFilled(handover.birthDate);
    grids.bg[4][1] = orFilled(handover.taj);
    static constexpr std::array<const char*, 5> kPhysicianKeys = {"OrvosNeve", "OrvosMhCim1", "OrvosMhCim2",
                                                                  "OrvosMhTel", "OrvosMukEng"};
    for (std::size_t row = 0; row < kPhysicianKeys.size(); ++row)
        grids.og[row][1] = readProfileString(patientIni, "BetegAdatok", kPhysicianKeys[row], filled);

    DataFile names(dataFilePath(dataDirectory, "atcnrend.dat"));
    if (!names.isOpen())
        return Message{utf8("ATC file nyitás hiba."), utf8("Szakorvosi javaslat készítése"), {}};
    std::string ingredient = utf8("a hatoanyag");
    const std::string code = atcFromInternational(handover.atcCode);
    for (std::size_t group = 0; group < atcGroupCodes.size() && !code.empty(); ++group) {
        std::string_view slot = atcGroupCodes[group];
        while (!slot.empty() && slot.back() == ' ') slot.remove_suffix(1);
        if (slot != code) continue;
        if (auto name = nameLine(names, static_cast<std::int64_t>(group)); name && !name->empty())
            ingredient = std::move(*name);
        break;
    }

    const auto free = std::find_if(grids.gg.begin() + 1, grids.gg.end(), rowIsEmpty);
    if (free == grids.gg.end()) return std::nullopt;  // nine lines already: the grid holds no more
    auto& line = *free;
    line[0] = handover.bno;
    line[1] = ingredient;
    line[2] = filled;
    line[3] = filled;
    line[4] = filled;
    // Highlighted (100 %) support names its indication number from character 6; increased support gives
    // its rate in characters 1-3 as well.
    if (handover.titleText.find("100%") != std::string::npos) {
        line[7] = characters(handover.titleText, 6, 15);
    } else {
        line[5] = characters(handover.titleText, 1, 3);
        line[6] = characters(handover.titleText, 6, 15);
    }
    line[8] = filled;
    return std::nullopt;
}

void deleteFirstDrugLine(RecommendationGrids& grids)
{
    std::move(grids.gg.begin() + 2, grids.gg.end(), grids.gg.begin() + 1);
    grids.gg.back() = {};
}

void deleteLastDrugLine(RecommendationGrids& grids)
{
    std::size_t firstEmpty = grids.gg.size();
    for (std::size_t row = 1; row < grids.gg.size(); ++row) {
        if (grids.gg[row][0].empty()) {
            firstEmpty = row;
            break;
        }
    }
    if (firstEmpty > 1) grids.gg[firstEmpty - 1] = {};
}

PrintLayout recommendationLayout(const RecommendationGrids& grids, std::string_view date)
{
    static constexpr std::array<const char*, 9> kFieldPrefixes = {"bno",  "ha",  "he",  "bm", "ad",
                                                                  "tksz", "tkp", "tmp", "jav"};
    static constexpr std::array<int, 9> kColumnLefts = {30, 80, 200, 290, 380, 480, 545, 615, 700};
    struct Label {
        const char* name;
        int left, top;
        const char* text;
        double points;
        bool bold;
    };
    static constexpr Label kLabels[] = {
        {"Cim", 60, 40, "Szakorvosi javaslat támogatással történő gyógyszerrendeléshez", 13, true},
        {"LBeteg", 60, 100, "Beteg", 10, true},
        {"LBetNev", 60, 125, "neve:", 10, false},
        {"LBetTaj", 60, 145, "TAJ", 10, false},
        {"LBetSzulDat", 60, 165, "születési ideje", 10, false},
        {"LBetCim", 60, 185, "lakcíme", 10, false},
        {"LOrvos", 60, 245, "Orvos", 10, true},
        {"LOrvNev", 60, 270, "neve:", 10, false},
        {"LOrvCim", 60, 290, "munkahely címe", 10, false},
        {"LOrvTel", 60, 330, "munkahely telefonszám", 10, false},
        {"LOrvEng", 60, 350, "működési engedély száma", 10, false},
        {"LBno", 30, 400, "BNO", 7, true},
        {"LJavGy", 80, 400, "Javasolt gyógyszer", 7, true},
        {"LTamKat", 480, 400, "Támogatási kategória", 7, true},
        {"LJav", 700, 400, "Javaslat", 7, true},
        {"LHa", 80, 415, "hatóanyaga", 7, false},
        {"LHe", 200, 415, "hatáserőssége", 7, false},
        {"LBm", 290, 415, "beviteli módja", 7, false},
        {"LAd", 380, 415, "adagolása", 7, false},
        {"LEmelt", 480, 415, "Emelt - EÜ. tér. köt", 7, false},
        {"LKiemelt", 615, 415, "Kiemelt - 100%", 7, false},
        {"LIdo", 700, 415, "időtartama", 7, false},
        {"LKod", 30, 430, "kód", 7, false},
        {"LTamMert", 480, 430, "tám. mért.", 7, false},
        {"LTkp", 545, 430, "ind. pont", 7, false},
        {"LTmp", 615, 430, "ind. pont", 7, false},
        {"LAlairas", 430, 640, "...........................................", 10, false},
        {"LAlairasSzoveg", 250, 660,
         "Orvos saját kezű aláírása, valamint az orvosi bélyegző azonosítható lenyomata", 8, false},
    };
    struct Field {
        const char* name;
        int left, top;
        const std::string& value;
    };

    std::size_t drugLines = 0;
    for (std::size_t row = 1; row < grids.gg.size(); ++row) {
        if (!rowIsEmpty(grids.gg[row])) drugLines = row;
    }
    const std::size_t pageCount = std::max<std::size_t>(1, (drugLines + 2) / 3);

    PrintLayout layout;
    layout.name = "TQRf";
    layout.caption = "Szakorvosi javaslat";
    for (std::size_t page = 0; page < pageCount; ++page) {
        std::vector<PrintItem>& items = layout.pages.emplace_back().items;
        for (const Label& label : kLabels)
            items.push_back({label.name, label.left, label.top, utf8(label.text), label.points, label.bold});
        const Field fields[] = {
            {"Betnev", 280, 125, grids.bg[0][1]},     {"BetTaj", 280, 145, grids.bg[4][1]},
            {"BetSzulDat", 280, 165, grids.bg[3][1]}, {"BetCim1", 280, 185, grids.bg[1][1]},
            {"BetCim2", 280, 205, grids.bg[2][1]},    {"OrvNev", 280, 270, grids.og[0][1]},
            {"OrvCim1", 280, 290, grids.og[1][1]},    {"OrvCim2", 280, 310, grids.og[2][1]},
            {"OrvTel", 280, 330, grids.og[3][1]},     {"OrvEng", 280, 350, grids.og[4][1]},
        };
        for (const Field& field : fields)
            items.push_back({field.name, field.left, field.top, field.value, 10, false});
        for (std::size_t line = 1; line <= 3; ++line) {
            const std::size_t row = page * 3 + line;
            for (std::size_t column = 0; column < kFieldPrefixes.size(); ++column) {
                items.push_back({kFieldPrefixes[column] + std::to_string(line), kColumnLefts[column],
                                 430 + static_cast<int>(line) * 25,
                                 row < grids.gg.size() ? grids.gg[row][column] : std::string(), 7, false});
            }
        }
        items.push_back({"Datum", 60, 580, std::string(date), 10, false});
    }
    return layout;
}

}  // namespace rovanel
