// The specialist recommendation ("Szakorvosi javaslat"): three grids (patient `bg`, physician `og`,
// recommended drugs `gg`), their row operations, the fill from the prescription window, and the printed
// page TQRf. Texts are Windows-1250.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "db/Message.h"
#include "rx/PrintLayout.h"

namespace rovanel
{

class TextList;

struct RecommendationGrids {
    static constexpr std::size_t kPersonRows = 6;
    static constexpr std::size_t kDrugRows = 10;  // the heading row and nine drug lines
    static constexpr std::size_t kDrugColumns = 9;
    std::array<std::array<std::string, 2>, kPersonRows> bg;  // [row][column]
    std::array<std::array<std::string, 2>, kPersonRows> og;
    std::array<std::array<std::string, kDrugColumns>, kDrugRows> gg;
    friend bool operator==(const RecommendationGrids&, const RecommendationGrids&) = default;
};

// What the prescription window hands over.
struct RecommendationHandover {
    std::string bno;        // BetegBNO
    std::string titleText;  // the selected support title text ("90%  M1234567" or "100% K12345")
    std::string atcCode;    // the drug's ATC code, carried ("C08CA-01") or international ("C08CA01")
    std::string patientName, address1, address2, birthDate, taj;
};

// The text of a value that must be filled in by hand.
[[nodiscard]] std::string toBeFilledIn();  // "KITÖLTENDŐ"

// The headings of the three grids; gg's BNO heading is `bno`, or "Üres BNO" while it is empty.
void writeRecommendationHeadings(RecommendationGrids& grids, std::string_view bno);

// The fill operation: headings, patient and physician values, and the drug as a new line of gg (the
// first line whose cells are all empty; none when all nine are taken). The physician values come from
// section "BetegAdatok" of the patient data INI file. When atcnrend.dat cannot be opened, gives
// "ATC file nyitás hiba." and adds no line.
[[nodiscard]] std::optional<Message> fillRecommendation(RecommendationGrids& grids,
                                                        const RecommendationHandover& handover,
                                                        const std::filesystem::path& dataDirectory,
                                                        const TextList& atcGroupCodes,
                                                        const std::filesystem::path& patientIni);

// "Első sort töröl": every row below the first drug line moves up by one, the last row is emptied.
void deleteFirstDrugLine(RecommendationGrids& grids);
// "Utolsó sort töröl": the row above the first row whose first cell is empty is emptied (the last row
// when none is empty); the heading row is never emptied.
void deleteLastDrugLine(RecommendationGrids& grids);

// The printed page(s): three drug lines a page; a fourth and later line starts another page with the
// same patient and physician blocks. `date` goes into `Datum` as it is.
[[nodiscard]] PrintLayout recommendationLayout(const RecommendationGrids& grids, std::string_view date);

}  // namespace rovanel
