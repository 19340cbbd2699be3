// The medical aids catalogue on a data directory made from the input: a group's list, its aids'
// descriptions, the tree and name searches. Parameters: node, a second node.
#include <algorithm>
#include <cstdint>

#include "catalogues/MedicalAids.h"
#include "db/DataFile.h"
#include "db/MessageTable.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "aids_fuzz");
    const FuzzDirectory& directory = fuzzDirectory();
    const AidCatalogue catalogue = loadAidCatalogue(directory.path());
    const MessageTable messages =
        MessageTable::parse(readWholeFile(directory.path() / "MSG.DAT").value_or(std::string{}));
    const std::uint64_t seSize = DataFile(directory.path() / "se.dat").size();

    for (const std::int64_t wide : {parameters.at(0), parameters.at(1, -1)}) {
        const int node = static_cast<int>(std::clamp<std::int64_t>(wide, -2, 1'000'000));
        const auto aids = listAidGroup(catalogue, node);
        ROVANEL_FUZZ_CHECK(aids.size() <= seSize);
        for (const AidEntry& aid : aids) ROVANEL_FUZZ_CHECK(aid.code.starts_with(catalogue.groupCode(node)));
        // The first and the last aid of the run: the description walk reads from the group's offset.
        for (const AidEntry* aid :
             {aids.empty() ? nullptr : &aids.front(), aids.empty() ? nullptr : &aids.back()})
            if (aid) ROVANEL_FUZZ_CHECK(aidDescription(catalogue, messages, node, aid->code).has_value());
        (void)aidDescription(catalogue, messages, node, "0101");
        const int hit = findInAidTree(catalogue, catalogue.groupCode(node), node);
        ROVANEL_FUZZ_CHECK(hit >= -1 && hit < static_cast<int>(catalogue.tree.size()));
    }
    for (const AidNote& note : catalogue.notes) ROVANEL_FUZZ_CHECK(note.code.size() <= 10);
    const std::string text =
        catalogue.names.empty() ? std::string("a") : catalogue.names.front().substr(0, 3);
    for (const AidNameHit& hit : findAidNames(catalogue, text))
        ROVANEL_FUZZ_CHECK(hit.node >= -1 && hit.node < static_cast<int>(catalogue.codes.size()));
    return 0;
}
