// "Törzskönyvből törölt kiszerlés nem kell": key "TTNemKellLeirasba" of the settings file says whether the
// same-ATC lists leave out packages deleted from the register. Reading or writing it also sets the
// shared state's flag, so the window that read or wrote it last decides.
#pragma once

#include <string_view>

namespace rovanel
{

struct SharedState;

inline constexpr std::string_view kHideDeletedKey = "TTNemKellLeirasba";

// Reads the key (on when its value contains "IGEN") into the shared state and gives it.
[[nodiscard]] bool readHideDeletedSetting(SharedState& state);

// Sets the shared state's flag and writes "IGEN" or "NEM". False when the file could not be written
// (the flag is set all the same, for the rest of the run).
[[nodiscard]] bool writeHideDeletedSetting(SharedState& state, bool hide);

}  // namespace rovanel
