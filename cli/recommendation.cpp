// rvcli recommendation DIR INIFILE --atc CODE [--bno B] [--title TEXT] [--date D] [--pdf OUT]: the
// specialist recommendation filled as from the prescription window (patient from the patient data INI
// file, the drug's active ingredient from the database), listed as print items or written as PDF.
#include <cstdio>

#include "app/IniFile.h"
#include "certs/SpecialistRecommendation.h"
#include "cli/Common.h"
#include "cli/PrintOutput.h"
#include "db/Cp1250.h"

namespace rovanel::cli
{

int runRecommendation(const Invocation& call)
{
    const auto arguments =
        parsePrintArguments(call.args, {"--atc", "--bno", "--title", "--date", "--pdf"}, {});
    if (!arguments || arguments->positional.size() != 2 || !arguments->values.count("--atc"))
        return call.usageError();
    const std::filesystem::path ini = arguments->positional[1];
    const auto value = [&arguments](const char* option) {
        const auto found = arguments->values.find(option);
        return found == arguments->values.end() ? std::string() : utf8ToCp1250(found->second);
    };
    const auto patient = [&ini](const char* key) { return readProfileString(ini, "BetegAdatok", key, ""); };
    RecommendationHandover handover;
    handover.atcCode = value("--atc");
    handover.bno = arguments->values.count("--bno") ? value("--bno") : patient("Beteg bno");
    handover.titleText = value("--title");
    handover.patientName = patient("Beteg neve");
    handover.address1 = patient("Beteg cim1");
    handover.address2 = patient("Beteg cim2");
    handover.birthDate = patient("Beteg szul");
    handover.taj = patient("Beteg TAJ");
    return withDatabase(arguments->positional[0], [&](StartupTables& tables) {
        RecommendationGrids grids;
        if (const auto message =
                fillRecommendation(grids, handover, arguments->positional[0], tables.atcGroupCodes, ini))
            std::fprintf(stderr, "%s\n", toUtf8(message->text).c_str());
        const std::string date =
            arguments->values.count("--date") ? value("--date") : dottedDate(todayDigits());
        return outputLayout(recommendationLayout(grids, date), *arguments);
    });
}

}  // namespace rovanel::cli
