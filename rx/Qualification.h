// The per-drug files read once per run when the prescription window is first shown: tamttt.dat (title
// flags and regulation-point keys of the patient's permanent drugs) and szvhr.dat (which specialist
// qualifications may prescribe at which regulation point), and the specialist qualification check.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"
#include "rx/BnoRules.h"

namespace rovanel
{

// A drug's entry of tamttt.dat: "KEY;FLAGS;FEEKEY;FREEKEY" a line.
struct TamtttEntry {
    bool found = false;
    std::string flags = "0000000000";  // Layout B title flags
    RegulationKeys keys;
};

// At most this many characters are taken from where the key is found.
inline constexpr std::size_t kTamtttEntryLimit = 1023;

// The entry of `key`, found as a substring anywhere in the file (its first occurrence); missing fields
// are empty, a CR before the line end is no part of the free key. An empty key, or one not found, gives
// the all-zero flags and empty keys.
[[nodiscard]] TamtttEntry lookupTamttt(std::string_view tamttt, std::string_view key);

// The search key of a regulation designation ("90%  EU13/b"): the rate prefix ('_' for "90%", '&' for
// "70%", '*' for "50%", none else) and the designation's characters 6 to 15 (1-based).
[[nodiscard]] std::string qualificationSearchKey(std::string_view designation);

// The prescriber's qualification codes from "OrvosSzakkep" ("code,text;code,text;"): the part before the
// first ',' of every piece that a ';' ends (a trailing piece without ';' is not taken).
[[nodiscard]] std::vector<std::string> qualificationCodes(std::string_view orvosSzakkep);

struct QualificationCheck {
    bool accepted = false;
    std::optional<Message> message;  // shown also when accepted (the first and the third outcome)
};
// The specialist qualification check against the text of szvhr.dat. `recommendation` is the form's
// specialist-recommendation entry, `specialistFlag` the drug's "prescribable on a specialist's
// recommendation" flag.
[[nodiscard]] QualificationCheck checkQualification(std::string_view szvhr,
                                                    const std::vector<std::string>& qualifications,
                                                    std::string_view designation,
                                                    std::string_view recommendation,
                                                    std::string_view specialistFlag);

// True when the designation's regulation point restricts prescription by qualification: its search key
// followed by ',' occurs in szvhr.dat.
[[nodiscard]] bool restrictedByQualification(std::string_view szvhr, std::string_view designation);

}  // namespace rovanel
