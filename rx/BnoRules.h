// The BNO admissibility rules of bnohr.dat: whether a diagnosis code admits a drug on a reimbursed title
// (the BNO check), and the list of codes a drug's regulation points admit (the "Kódtábla" list).
//
// bnohr.dat: one rule a line, "KEY CODE" (one blank), CR LF. A key beginning with '_' (90 %), '&' (70 %)
// or '*' (50 %) is a fee-paying rule, any other a free one. CODE "XXXXX" admits every code.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

// Where a prescription was opened from; it decides the quantity requirement and the BNO rules.
enum class PrescriptionSource { OwnMagistral = 0, Formulary = 1, MedicalAid = 2, PriceList = 3 };

// A drug's regulation-point keys: each empty, one key, or a comma-separated list of keys.
struct RegulationKeys {
    std::string freeKey;  // used when the prescription is not fee-paying
    std::string feeKey;   // used when it is
    friend bool operator==(const RegulationKeys&, const RegulationKeys&) = default;
};

struct BnoCheckResult {
    bool accepted = false;
    std::optional<Message> message;  // the refusal, shown by the window
};

// Lines of bnohr.dat are read through a 1024-byte buffer: a longer line is cut there, its rest skipped.
inline constexpr std::size_t kBnoRuleLineLimit = 1023;

// The check on the text of bnohr.dat (nothing = the file could not be opened). Source 2 (a medical aid)
// is accepted without looking at the keys or the file.
[[nodiscard]] BnoCheckResult checkBnoText(std::optional<std::string_view> bnohr, const RegulationKeys& keys,
                                          std::string_view code, bool feePaying, int source);
// The same with bnohr.dat of `dataDirectory`, opened and read anew on every call.
[[nodiscard]] BnoCheckResult checkBno(const std::filesystem::path& dataDirectory, const RegulationKeys& keys,
                                      std::string_view code, bool feePaying, int source);

// The "Kódtábla" list: one line per relevant rule, "CODE \t90%  KEY\t" (see the format docs), or the
// message that refuses it. `lines` is empty whenever `message` is set.
struct BnoCodeList {
    std::vector<std::string> lines;
    std::optional<Message> message;
};
[[nodiscard]] BnoCodeList bnoCodeListText(std::optional<std::string_view> bnohr, const RegulationKeys& keys,
                                          bool feePaying);
[[nodiscard]] BnoCodeList bnoCodeList(const std::filesystem::path& dataDirectory, const RegulationKeys& keys,
                                      bool feePaying);

// The code of a "Kódtábla" line: its text up to the first blank.
[[nodiscard]] std::string_view codeOfListLine(std::string_view line);
// The regulation point named in a "Kódtábla" line, with its rate prefix restored ("_EU13/b"); empty when
// the line has none.
[[nodiscard]] std::string keyOfListLine(std::string_view line);

// True for the rate prefixes '_', '&' and '*' that mark a fee-paying rule.
[[nodiscard]] bool isFeePayingKey(std::string_view key);

}  // namespace rovanel
