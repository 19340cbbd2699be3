// The description builder: one product's gy.ful block turned into the styled description every
// description view shows (title, then the ten section writers with their headings).
#pragma once

#include <string>
#include <string_view>

#include "db/ProductRecord.h"
#include "db/StyledDocument.h"

namespace rovanel
{

struct StartupTables;

// The texts the jump buttons search for, in button order (JumpAtc ... JumpMer). The last two stop before
// the "ő" of their headings on purpose. Windows-1250.
inline constexpr std::string_view kJumpSearchTexts[10] = {
    "ATC",
    "Hat\xF3"
    "anyag:",
    "Javallatok:",
    "Adagol\xE1s",
    "Beteg tudom\xE1s\xE1ra hozand\xF3:",
    "Ellenjavallatok:",
    "Mell\xE9khat\xE1sok:",
    "\xD3vatosan egy\xFCttadhat\xF3:",
    "Egy\xFCttad\xE1sa ker\xFClend",
    "M\xE9rgez\xE9s eset\xE9n teend",
};

// Product `record`'s description. Not built (and empty) when one of the six files (GY.FUL, nevpos.dat,
// atcnrend.dat, ellnrend.dat, mhnrend.dat, nevrend.dat) does not open, the record's position cannot be
// read, or the block's code is not in KOD.DAT table 1. kNoProduct gives an empty document, built.
struct Description {
    StyledDocument document;
    bool built = false;
};
[[nodiscard]] Description buildDescription(const StartupTables& tables, ProductRecord record);

// The support text of an indication-bound support: "%s támogatással rendelheti[%s]:" with
// " [KÜLÖNKERETES!]" appended for a separate budget.
[[nodiscard]] std::string supportPermissionText(std::string_view kind, std::string_view code,
                                                bool separateBudget);

// One regulation point of rend.dat (lines "CODE<TAB>K or -<TAB>text"): its separate-budget flag ("K") and
// text, looked up by the exact indication code; nothing found gives no flag and no text.
struct RegulationPoint {
    bool separateBudget = false;
    std::string text;
};
[[nodiscard]] RegulationPoint regulationPoint(std::string_view rendDat, std::string_view code);

}  // namespace rovanel
