// The "--taking P..." and "--contra K..." options of the interaction subcommands, turned into the shared
// drug selection the engine reads (added as the windows add them, with their limits and quirks).
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "db/DrugSelection.h"

namespace rovanel::cli
{

// Reads the options from args[from] on into `selection` (drugs taken, then contraindication nodes).
// False on an unknown option or a value that is not a whole number.
[[nodiscard]] bool readSelectionOptions(const std::vector<std::string>& args, std::size_t from,
                                        DrugSelection& selection, bool allowContraindications);

// Prints the messages a run asked to show to stderr, one "message: CAPTION: TEXT" each.
void printMessages(const std::vector<Message>& messages);

}  // namespace rovanel::cli
