// The legal titles (jogcím) of a prescription: the ten items of the title group, their relabelling from a
// drug's title flags, and what choosing a title does.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "db/Message.h"

namespace rovanel
{

inline constexpr int kTitleCount = 10;
using TitleCaptions = std::array<std::string, kTitleCount>;  // Windows-1250, by item index

// Item indexes used by number throughout.
inline constexpr int kTitleNormativ = 0, kTitleKiemelt = 4, kTitleEmelt = 5, kTitleTeljesAr = 6,
                     kTitleKiemeltKozgyogy = 7, kTitleEmeltKozgyogy = 8, kTitleEgyedi = 9;

// The captions the group has before any relabelling ("Normatív" ... "Egyedi támogatás").
[[nodiscard]] const TitleCaptions& defaultTitleCaptions();

// The caption of a title on which the drug cannot be written.
inline constexpr std::string_view kTitleNotAllowed = "-";

// Relabelling by the flags of a package (Layout A: positions 3, 6, 8, 9, 10) or of a permanent drug's
// tamttt.dat entry (Layout B: positions 0, 2, 3, 4, 5). A position past the end of the flags counts as
// '0'. No flags (nullopt) leave the captions as they are. Items 0, 6 and 9 never change.
void relabelLayoutA(TitleCaptions& captions, std::optional<std::string_view> flags);
void relabelLayoutB(TitleCaptions& captions, std::optional<std::string_view> flags);

// The titles whose prescriptions the BNO rules govern (4, 5, 7, 8), and among them the fee-paying ones,
// where the patient pays a part (5 and 8: "Eü. emelt", "Eü. térítésköteles" and their public-care forms).
[[nodiscard]] bool isRegulatedTitle(int index);
[[nodiscard]] bool isFeePayingTitle(int index);

// What choosing title `index` does: a title shown as "-" gives "Nem rendelhető ilyen jogcímen" (the choice
// stays); a regulated title on a prescription of source 2 or 3 opens the BNO code list when its button
// still reads "Kódtábla".
struct TitleChoice {
    std::optional<Message> message;
    bool openBnoCodes = false;
};
[[nodiscard]] TitleChoice titleChosen(const TitleCaptions& captions, int index, int source,
                                      bool bnoButtonShowsCodeTable);

}  // namespace rovanel
