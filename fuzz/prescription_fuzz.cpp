// The prescription readers and rules on fuzzed files: the BNO check and its code list (bnohr.dat), the
// tamttt.dat lookup, the BNO tree search (bno.tre), the qualification check (szvhr.dat) and the quantity
// in Latin. Whatever the files hold, every outcome is one of the defined ones.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/Text.h"
#include "db/TreeFile.h"
#include "fuzz/FuzzSupport.h"
#include "rx/BnoRules.h"
#include "rx/BnoTree.h"
#include "rx/Latin.h"
#include "rx/Prescription.h"
#include "rx/Qualification.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

std::vector<std::string> probeLines(std::string_view segment)
{
    std::vector<std::string> lines;
    forEachLine(segment, [&](std::string_view line) {
        lines.emplace_back(line);
        return lines.size() < 7;
    });
    lines.resize(7);
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto segments = splitSegments(input);
    const Parameters parameters(segments.front());
    const auto segment = [&](std::size_t i) {
        return i < segments.size() ? segments[i] : std::string_view{};
    };
    const bool feePaying = parameters.at(0) != 0;
    const int source = static_cast<int>(parameters.at(1) & 3);
    const float days = static_cast<float>(parameters.at(2) % 100000);
    const std::optional<std::string_view> bnohr =
        segments.size() > 1 ? std::optional<std::string_view>(segments[1]) : std::nullopt;
    const auto probe = probeLines(segment(5));
    const RegulationKeys keys{probe[0], probe[1]};

    const BnoCheckResult check = checkBnoText(bnohr, keys, probe[2], feePaying, source);
    ROVANEL_FUZZ_CHECK(check.accepted != check.message.has_value());
    const BnoCodeList list = bnoCodeListText(bnohr, keys, feePaying);
    ROVANEL_FUZZ_CHECK(list.lines.empty() == list.message.has_value());
    for (const std::string& line : list.lines) {
        ROVANEL_FUZZ_CHECK(line.size() <= kBnoRuleLineLimit + 16);
        ROVANEL_FUZZ_CHECK(line.find('\n') == std::string::npos);
        // A listed code admits the drug on the same keys, unless the rule's rest ends early.
        (void)codeOfListLine(line);
        (void)keyOfListLine(line);
    }

    const TamtttEntry entry = lookupTamttt(segment(2), probe[3]);
    ROVANEL_FUZZ_CHECK(entry.flags.size() <= kTamtttEntryLimit &&
                       entry.keys.freeKey.find('\n') == std::string::npos);
    TitleCaptions captions = defaultTitleCaptions();
    relabelLayoutB(captions, std::string_view(entry.flags));
    relabelLayoutA(captions, std::string_view(entry.flags));
    ROVANEL_FUZZ_CHECK(captions[0] == defaultTitleCaptions()[0] && captions[9] == defaultTitleCaptions()[9]);

    const std::vector<TreeNode> nodes = parseTreeText(segment(3));
    if (const auto found = findBnoCode(nodes, probe[2]))
        ROVANEL_FUZZ_CHECK(nodeHoldsCode(nodes[*found].text, probe[2]));
    const auto hits = bnoSearchAll(nodes, probe[4], (parameters.at(0) & 2) != 0);
    for (std::size_t i = 0; i < hits.size(); ++i)
        ROVANEL_FUZZ_CHECK(hits[i] < nodes.size() && (i == 0 || hits[i - 1] < hits[i]));
    BnoSearchPosition position;
    std::size_t steps = 0;
    for (auto hit = bnoSearchFirst(nodes, probe[4], false, position); hit && steps <= nodes.size();
         hit = bnoSearchNext(nodes, probe[4], false, position), ++steps)
        ROVANEL_FUZZ_CHECK(*hit < nodes.size());
    ROVANEL_FUZZ_CHECK(steps <= nodes.size());

    const auto qualifications = qualificationCodes(probe[6]);
    const QualificationCheck qualification =
        checkQualification(segment(4), qualifications, probe[3], probe[4], probe[5]);
    ROVANEL_FUZZ_CHECK(qualification.accepted || qualification.message.has_value());

    const QuantityChange change = quantityChanged(probe[5], days);
    ROVANEL_FUZZ_CHECK(!(change.latin && change.error));
    for (const std::string& record : splitDrugRecords(probe[6])) {
        const PrescriptionItem item = decodeDrugRecord(record);
        ROVANEL_FUZZ_CHECK(item.packageForm >= 0 && item.packageForm < 11);
        ROVANEL_FUZZ_CHECK(encodeDrugRecord(item).find('~') == std::string::npos);
    }
    return 0;
}
