// rvcli print-rx INIFILE --format 0|1|2 [...] [--pdf OUT]: a prescription on the official form, the
// patient taken from the patient data INI file as the prescription window takes it, the drug from the
// options; the items are listed, or written as PDF.
#include <cstdio>

#include "app/IniFile.h"
#include "cli/Common.h"
#include "cli/PrintOutput.h"
#include "db/Cp1250.h"
#include "rx/RxPrintLayout.h"

namespace rovanel::cli
{

int runPrintRx(const Invocation& call)
{
    const auto arguments =
        parsePrintArguments(call.args,
                            {"--format", "--left", "--top", "--title", "--drug", "--quantity", "--latin",
                             "--package", "--ds", "--date", "--pdf"},
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
