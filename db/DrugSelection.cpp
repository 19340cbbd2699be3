#include "db/DrugSelection.h"

#include <algorithm>

#include "db/Cp1250.h"

namespace rovanel
{

namespace
{

constexpr int kDrugSlotsInUse = 21;
constexpr int kDrugLimit = 21;              // count + 1 < 21: at most 20 drugs
constexpr int kContraindicationLimit = 20;  // count + 1 < 20: at most 19, although the text says 20

Message selectionMessage(const char* utf8Text, bool taskModal)
{
    return Message{utf8ToCp1250(utf8Text), utf8ToCp1250("Kölcsönhatás vizsgálat"), MessageIcon::None,
                   taskModal};
}

// Is `value` among slots 0..count of `slots`? The slot just past the last entry is looked at too: it holds
// -1 normally, and 0 in the untouched contraindication slots, which is why node 0 cannot be added then.
template <std::size_t Size>
bool alreadyChosen(const std::array<std::int32_t, Size>& slots, std::int32_t count, std::int32_t value)
{
    const auto last = std::min<std::int64_t>(std::max<std::int32_t>(count, 0), Size - 1);
    for (std::int64_t i = 0; i <= last; ++i)
        if (slots[static_cast<std::size_t>(i)] == value) return true;
    return false;
}

template <std::size_t Size>
SelectionChange addTo(std::array<std::int32_t, Size>& slots, std::int32_t& count, int& resultValid,
                      std::int32_t value, int limit, const char* refusal)
{
    if (value < 0) return {};
    if (alreadyChosen(slots, count, value)) return {};
    if (count + 1 < limit && count >= 0 && static_cast<std::size_t>(count) < Size) {
        resultValid = 0;
        slots[static_cast<std::size_t>(count)] = value;
        ++count;
        return {SelectionOutcome::Changed, std::nullopt};
    }
    return {SelectionOutcome::Refused, selectionMessage(refusal, false)};
}

// The list line and the slot of the same number go; the following slots, the one past the end
// included, move down one. A row beyond the count (the two windows' lists can disagree with the shared
// slots) moves nothing, and the count never goes below 0.
template <std::size_t Size>
SelectionChange deleteFrom(std::array<std::int32_t, Size>& slots, std::int32_t& count, int& resultValid,
                           int listLines, int selectedRow)
{
    if (listLines <= 0) return {};
    if (selectedRow < 0)
        return {SelectionOutcome::Refused,
                selectionMessage("Jelölje ki a listáról törlendő gyógyszert!", true)};
    const std::int64_t end = std::min<std::int64_t>(count, Size - 1);
    for (std::int64_t k = selectedRow; k < end; ++k)
        slots[static_cast<std::size_t>(k)] = slots[static_cast<std::size_t>(k + 1)];
    if (count > 0) --count;
    resultValid = 0;
    return {SelectionOutcome::Changed, std::nullopt};
}

}  // namespace

void DrugSelection::resetForInteractionWindow()
{
    std::fill_n(SzedettGy.begin(), kDrugSlotsInUse, -1);
    SzedettGyCount = 0;
    KhResult.clear();
    KhResultValid = 0;
}

void DrugSelection::resetSlotsForSideEffectWindow() { SzedettGy.fill(-1); }

SelectionChange DrugSelection::addDrug(ProductRecord record)
{
    return addTo(SzedettGy, SzedettGyCount, KhResultValid, record, kDrugLimit,
                 "Legföljebb 20 gyógyszer adható");
}

SelectionChange DrugSelection::deleteDrug(int listLines, int selectedRow)
{
    return deleteFrom(SzedettGy, SzedettGyCount, KhResultValid, listLines, selectedRow);
}

void DrugSelection::clearDrugs()
{
    std::fill_n(SzedettGy.begin(), kDrugSlotsInUse, -1);
    SzedettGyCount = 0;
    KhResultValid = 0;
}

SelectionChange DrugSelection::addContraindication(std::int32_t node)
{
    return addTo(EllSel, EllSelCount, KhResultValid, node, kContraindicationLimit,
                 "Legföljebb 20 ellenjavallat adható meg");
}

SelectionChange DrugSelection::deleteContraindication(int listLines, int selectedRow)
{
    return deleteFrom(EllSel, EllSelCount, KhResultValid, listLines, selectedRow);
}

void DrugSelection::clearContraindications()
{
    EllSel.fill(-1);
    EllSelCount = 0;
    KhResultValid = 0;
}

}  // namespace rovanel
