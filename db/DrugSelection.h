// The drug selection that the interaction and side-effect windows share with the interaction engine:
// the drugs a patient takes (SzedettGy), the patient's contraindications (EllSel) and the engine's last
// report (KhResult). Owned by the main window's SharedState; both windows change it only through the
// operations below, whose odd limits are kept on purpose (see each, and Interaction_test).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "db/Message.h"
#include "db/ProductRecord.h"

namespace rovanel
{

// What an add or delete did, and the message the window shows when it refused.
enum class SelectionOutcome { Unchanged, Changed, Refused };
struct SelectionChange {
    SelectionOutcome outcome = SelectionOutcome::Unchanged;
    std::optional<Message> message;
};

struct DrugSelection {
    // Record numbers of the drugs taken, in the order added. Slots 0..20 are in use; the side-effect
    // window resets all 22. Zero-filled until a window first shows.
    std::array<ProductRecord, 22> SzedettGy{};
    std::int32_t SzedettGyCount = 0;
    // Contraindications as absolute node indexes of the contraindication tree (= entries of KOD.DAT
    // table 3). Zero-filled until the first "Listát töröl": node 0 cannot be added before that.
    std::array<std::int32_t, 21> EllSel{};
    std::int32_t EllSelCount = 0;
    std::string KhResult;   // the engine's report, Windows-1250
    int KhResultValid = 0;  // every change of the selection sets it to 0

    // The interaction window's first showing: slots 0..20 to -1, count 0, report emptied.
    void resetForInteractionWindow();
    // The side-effect window's first showing: all 22 slots to -1 but the count is kept (so the count can
    // exceed the slots in use; the engine skips negative slots).
    void resetSlotsForSideEffectWindow();

    // Adds drug `record` (-1: nothing chosen). A drug already among slots 0..count (the slot past the end
    // included) is ignored silently; a 21st is refused with "Legföljebb 20 gyógyszer adható".
    [[nodiscard]] SelectionChange addDrug(ProductRecord record);
    // Deletes line `selectedRow` of a taken-drug list of `listLines` lines: the following slots move down
    // one (the -1 past the end with them). Nothing for an empty list; a message when no line is selected.
    [[nodiscard]] SelectionChange deleteDrug(int listLines, int selectedRow);
    // Slots 0..20 to -1, count 0.
    void clearDrugs();

    // Adds contraindication node `node` (-1: nothing chosen). The limit test is count + 1 < 20, so the
    // 20th is already refused although the message speaks of 20.
    [[nodiscard]] SelectionChange addContraindication(std::int32_t node);
    // As deleteDrug, on EllSel; the message speaks of a drug all the same (Interaction_test).
    [[nodiscard]] SelectionChange deleteContraindication(int listLines, int selectedRow);
    // All 21 slots to -1, count 0.
    void clearContraindications();
    // The report no longer belongs to what the window shows (another ATC group chosen or listed).
    void markReportOutdated() { KhResultValid = 0; }
};

}  // namespace rovanel
