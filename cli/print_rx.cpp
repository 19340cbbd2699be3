// rvcli print-rx INIFILE --format 0|1|2 [...] [--pdf OUT]: a prescription on the official form, the
// patient taken from the patient data INI file as the prescription window takes it, the drug from a saved
// drug record (--record FILE, as "Felirt gyogyszerek" holds it) or from the options; the items are
// listed, or written as PDF.
#include <cstdio>

#include "app/IniFile.h"
#include "cli/Common.h"
#include "cli/PrintOutput.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "rx/Prescription.h"
#include "rx/RxPrintLayout.h"

namespace rovanel::cli
{

int runPrintRx(const Invocation& call)
{
    const auto arguments =
        parsePrintArguments(call.args,
                            {"--format", "--left", "--top", "--title", "--drug", "--quantity", "--latin",
                             "--package", "--ds", "--date", "--record", "--pdf"},
                            {"--copy", "--not-substitutable"});
    if (!arguments || arguments->positional.size() != 1 || !arguments->values.count("--format"))
        return call.usageError();
    const auto number = [&arguments](const char* option, long long fallback) -> std::optional<long long> {
        const auto found = arguments->values.find(option);
        if (found == arguments->values.end()) return fallback;
        return numberArgument(found->second);
    };
    const auto format = number("--format", 0);
    const auto title = number("--title", 0);
    if (!format || *format < 0 || *format > 2 || !title || *title < 0 || *title > 9) return call.usageError();
    const auto text = [&arguments](const char* option) {
        const auto found = arguments->values.find(option);
        return found == arguments->values.end() ? std::string() : utf8ToCp1250(found->second);
    };

    const std::filesystem::path ini = arguments->positional[0];
    const auto patient = [&ini](const char* key, const char* fallback) {
        return readProfileString(ini, "BetegAdatok", key, utf8ToCp1250(fallback));
    };
    RxPrintInput input;
    input.patientName = patient("Beteg neve", "Beteg neve");
    input.address1 = patient("Beteg cim1", "Irsz, Helység");
    input.address2 = patient("Beteg cim2", "Utca, hsz.");
    input.birthDate = patient("Beteg szul", "00000000");
    input.eny = patient("Beteg ENY", "");
    input.eu = patient("Beteg EU", "");
    input.taj = patient("Beteg TAJ", "");
    input.bno = patient("Beteg bno", "");
    input.logNumber = patient("Naploszam", "");
    input.serialNumber = patient("ReceptPrefix", "");
    input.recommendationDate = std::string(kEmptyDateMask);
    input.date = arguments->values.count("--date") ? text("--date") : todayDigits();
    input.title = static_cast<int>(*title);
    input.copy = arguments->flags.count("--copy") > 0;
    input.notSubstitutable = arguments->flags.count("--not-substitutable") > 0;
    input.drugName = text("--drug");
    input.packageWord = text("--package");
    input.quantity = text("--quantity");
    input.quantityInLatin = text("--latin");
    input.dosage = {"D.S.:", text("--ds")};

    if (const auto found = arguments->values.find("--record"); found != arguments->values.end()) {
        // The first record of the file, as the prescription window saved it; its BNO code and title
        // stand in for the patient's code and --title.
        const auto content = readWholeFile(found->second);
        if (!content) {
            std::fprintf(stderr, "rvcli: %s: cannot read\n", found->second.c_str());
            return 1;
        }
        const auto records = splitDrugRecords(content->substr(0, content->find_first_of("\r\n")));
        Prescription prescription;
        if (!records.empty()) prescription.item = decodeDrugRecord(records.front());
        const RxPrintInput drug = rxPrintInput(prescription);
        input.drugName = drug.drugName;
        input.packageWord = drug.packageWord;
        input.quantity = drug.quantity;
        input.quantityInLatin = drug.quantityInLatin;
        input.dosage = drug.dosage;
        input.notSubstitutable = drug.notSubstitutable;
        std::vector<std::string_view> fields;
        for (std::string_view rest = records.empty() ? std::string_view() : records.front();;) {
            const std::size_t end = rest.find(';');
            fields.push_back(rest.substr(0, end));
            if (end == std::string_view::npos) break;
            rest.remove_prefix(end + 1);
        }
        if (fields.size() > 8 && !fields[8].empty() && !arguments->values.count("--date"))
            input.date = std::string(fields[8]);
        if (fields.size() > 9 && !fields[9].empty()) input.bno = std::string(fields[9]);
        if (const auto recorded = fields.size() > 10 ? numberArgument(std::string(fields[10])) : std::nullopt;
            recorded && *recorded >= 0 && *recorded <= 9 && !arguments->values.count("--title"))
            input.title = static_cast<int>(*recorded);
    }

    const auto rxFormat = static_cast<RxFormat>(*format);
    RxMargins margins;
    int* left = rxFormat == RxFormat::Old          ? &margins.leftOld
                : rxFormat == RxFormat::NewUpright ? &margins.leftUpright
                                                   : &margins.leftSideways;
    int* top = rxFormat == RxFormat::Old          ? &margins.topOld
               : rxFormat == RxFormat::NewUpright ? &margins.topUpright
                                                  : &margins.topSideways;
    const auto leftValue = number("--left", *left);
    const auto topValue = number("--top", *top);
    if (!leftValue || !topValue || *leftValue < -10000 || *leftValue > 10000 || *topValue < -10000 ||
        *topValue > 10000)
        return call.usageError();
    *left = static_cast<int>(*leftValue);
    *top = static_cast<int>(*topValue);
    return outputLayout(printedPrescription(rxFormat, input, margins), *arguments);
}

}  // namespace rovanel::cli
