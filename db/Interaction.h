// The interaction engine KhRun. Mode 1 checks the drugs a patient takes (SzedettGy) against each other and
// against the chosen contraindications (EllSel) and writes a report; mode 2 lists the products of one ATC
// group, leaving out those that must not be given with the drugs taken or the contraindications and
// flagging those that need care. It reads gy.ful through nevpos.dat offsets, one block per product, each
// line through a 255-byte buffer. Layout of the report and of the list lines: docs/data-format.md 5.5.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "db/FoundDrugs.h"
#include "db/Message.h"
#include "db/StyledDocument.h"

namespace rovanel
{

struct StartupTables;
struct DrugSelection;
struct SharedState;

enum class KhMode { Check = 1, AtcGroup = 2 };

struct KhRunResult {
    bool completed = false;    // false: a file missing, a limit or a bad code line stopped the run
    bool filesOpened = false;  // false: a file was missing; nothing else happened (the table is untouched)
    std::string report;        // the KhResult text (Windows-1250); empty when no drug is taken
    // The same text, styled for the result box: drug names bold, avoid findings red and bold, careful
    // findings amber, contraindications red. Its plain text is `report`, byte for byte.
    StyledDocument styledReport;
    std::vector<std::string> listLines;  // the result list's lines; line i belongs to found[i]
    std::vector<FoundDrug> found;        // the found-drug table as the run left it
    std::vector<Message> messages;       // in the order the run showed them
};

// Runs the engine over `selection`. `atcNode` is the ATC tree node (= group) for mode 2, unused in mode 1.
// Negative SzedettGy slots (the side-effect window resets the slots but not the count) are skipped.
[[nodiscard]] KhRunResult KhRun(const StartupTables& tables, const DrugSelection& selection, KhMode mode,
                                std::int64_t atcNode);

// The same on the shared state: the report goes to KhResult (and a completed check sets KhResultValid to
// 1), and the found-drug table receives the run's entries unless a file was missing.
[[nodiscard]] KhRunResult KhRun(SharedState& state, KhMode mode, std::int64_t atcNode);

// The report's colours.
inline constexpr std::uint32_t kAvoidColour = 0xC00000;
inline constexpr std::uint32_t kCarefulColour = 0xA05A00;
inline constexpr std::uint32_t kContraindicationColour = 0xC00000;

// Limits of one run: the sizes of the engine's working storage (each pinned by a test in Interaction_test).
inline constexpr std::size_t kKhCodesPerDrug = 100;        // careful, and avoid, codes of one drug
inline constexpr std::size_t kKhPooledCodes = 400;         // careful, and avoid, codes of all drugs taken
inline constexpr std::size_t kKhFoundLimit = 600;          // mode 2 stops when the table reaches this
inline constexpr std::size_t kKhCodeLineLength = 10;       // longest code line of a drug taken
inline constexpr std::size_t kKhGroupCodeLineLength = 12;  // longest careful code line of a group product

}  // namespace rovanel
