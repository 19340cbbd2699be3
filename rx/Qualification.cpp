#include "rx/Qualification.h"

#include "db/Cp1250.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

std::string_view field(std::string_view& rest)
{
    const std::size_t end = rest.find(';');
    const std::string_view value = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    return value;
}

}  // namespace

TamtttEntry lookupTamttt(std::string_view tamttt, std::string_view key)
{
    TamtttEntry entry;
    // An empty key would be found at the start of every file.
    if (key.empty()) return entry;
    const std::size_t at = tamttt.find(key);
    if (at == std::string_view::npos) return entry;
    std::string_view rest = tamttt.substr(at, kTamtttEntryLimit);
    rest = rest.substr(0, rest.find('\n'));
    if (!rest.empty() && rest.back() == '\r') rest.remove_suffix(1);
    entry.found = true;
    (void)field(rest);  // the key itself
    entry.flags = std::string(field(rest));
    entry.keys.feeKey = std::string(field(rest));
    entry.keys.freeKey = std::string(field(rest));
    return entry;
}

std::string qualificationSearchKey(std::string_view designation)
{
    std::string key = contains(designation, "90%")   ? "_"
                      : contains(designation, "70%") ? "&"
                      : contains(designation, "50%") ? "*"
                                                     : "";
    if (designation.size() > 5) key += designation.substr(5, 10);
    return key;
}

std::vector<std::string> qualificationCodes(std::string_view orvosSzakkep)
{
    std::vector<std::string> codes;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = orvosSzakkep.find(';', start);
        if (end == std::string_view::npos) return codes;
        const std::string_view piece = orvosSzakkep.substr(start, end - start);
        codes.emplace_back(piece.substr(0, piece.find(',')));
        start = end + 1;
    }
}

QualificationCheck checkQualification(std::string_view szvhr, const std::vector<std::string>& qualifications,
                                      std::string_view designation, std::string_view recommendation,
                                      std::string_view specialistFlag)
{
    QualificationCheck check;
    if (qualifications.empty()) {
        // "jogsultságát" is the message's own spelling.
        check.message = Message{utf8ToCp1250("A program nem tudta megállapítani az Ön szakképesítését, "
                                             "ellenőrizze rendelet szövege szerinti felirási jogsultságát!"),
                                "", MessageIcon::Information};
        check.accepted = true;
        return check;
    }
    const std::string key = qualificationSearchKey(designation);
    for (const std::string& qualification : qualifications) {
        if (contains(szvhr, key + "," + qualification)) {
            check.accepted = true;
            return check;
        }
    }
    if (!recommendation.empty() && specialistFlag == "1") {
        check.message = Message{
            utf8ToCp1250("A rendelet szövege szerinti szakképesítéssel rendelhető szakorvosi javaslatra"), "",
            MessageIcon::Information};
        check.accepted = true;
        return check;
    }
    check.message = Message{utf8ToCp1250("Az adott szakképesítéssel EÜ támogatással nem rendelhető"), "",
                            MessageIcon::Warning};
    return check;
}

bool restrictedByQualification(std::string_view szvhr, std::string_view designation)
{
    const std::string key = qualificationSearchKey(designation);
    return designation.size() > 5 && contains(szvhr, key + ",");
}

}  // namespace rovanel
