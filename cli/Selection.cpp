#include "cli/Selection.h"

#include <cstdio>

#include "cli/Common.h"

namespace rovanel::cli
{

bool readSelectionOptions(const std::vector<std::string>& args, std::size_t from, DrugSelection& selection,
                          bool allowContraindications)
{
    selection.resetForInteractionWindow();
    selection.clearContraindications();
    enum class Reading { Nothing, Drugs, Contraindications } reading = Reading::Nothing;
    for (std::size_t i = from; i < args.size(); ++i) {
        if (args[i] == "--taking") {
            reading = Reading::Drugs;
            continue;
        }
        if (args[i] == "--contra" && allowContraindications) {
            reading = Reading::Contraindications;
            continue;
        }
        const auto value = numberArgument(args[i]);
        if (!value || reading == Reading::Nothing || *value < -1 || *value > INT32_MAX) return false;
        const auto number = static_cast<std::int32_t>(*value);
        const SelectionChange change =
            reading == Reading::Drugs ? selection.addDrug(number) : selection.addContraindication(number);
        if (change.message) printMessages({*change.message});
    }
    return true;
}

void printMessages(const std::vector<Message>& messages)
{
    for (const Message& message : messages)
        std::fprintf(stderr, "message: %s: %s\n", toUtf8(message.caption).c_str(),
                     toUtf8(message.text).c_str());
}

}  // namespace rovanel::cli
