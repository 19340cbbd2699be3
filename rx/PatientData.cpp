#include "rx/PatientData.h"

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

PatientData readPatientData(const std::filesystem::path& iniFile)
{
    PatientData data;
    // One read of the file, then the keys in the order of the table.
    const std::string content = readWholeFile(iniFile).value_or(std::string());
    const auto read = [&](const char* key, std::string& value) {
        if (auto found = findProfileValue(content, kPatientSection, key))
            value = found->substr(0, kPatientValueLimit);
    };
    read("Beteg bno", data.bno);
    read("Beteg cim1", data.address1);
    read("Beteg cim2", data.address2);
    read("Beteg ENY", data.eny);
    read("Beteg EU", data.eu);
    read("OrvosSzakkep", data.qualification);
    read("Naploszam", data.logNumber);
    read("ReceptPrefix", data.serialPrefix);
    read("Beteg neve", data.name);
    read("Beteg szul", data.birthDate);
    read("Beteg TAJ", data.taj);
    read("Allando gyogyszerek", data.permanentDrugs);
    read("Felirt gyogyszerek", data.prescribedDrugs);
    return data;
}

std::filesystem::path patientDataPath(const std::filesystem::path& dataDirectory)
{
    std::string configured =
        readProfileString(settingsFilePath(dataDirectory), kSettingsSection, "BetegAdatokIniPath", "");
    if (configured.empty()) configured = "beteg.ini";
    const std::filesystem::path path(configured);
    if (path.is_absolute()) return path;
    // A Windows path (c:\klinora\beteg.ini) off Windows names its file in the user folder.
    const std::size_t slash = configured.find_last_of("\\/:");
    return userConfigDirectory() / (slash == std::string::npos ? configured : configured.substr(slash + 1));
}

std::optional<int> ageInYears(std::string_view prescriptionDate, std::string_view birthDate)
{
    const auto year = [](std::string_view date) -> std::optional<int> {
        if (date.size() < 4) return std::nullopt;
        int value = 0;
        for (const char c : date.substr(0, 4)) {
            if (c < '0' || c > '9') return std::nullopt;
            value = value * 10 + (c - '0');
        }
        return value;
    };
    const auto prescribed = year(prescriptionDate), born = year(birthDate);
    if (!prescribed || !born) return std::nullopt;
    return *prescribed - *born;
}

std::string ageText(std::string_view prescriptionDate, std::string_view birthDate)
{
    const auto age = ageInYears(prescriptionDate, birthDate);
    return age ? "Kora: " + std::to_string(*age) + utf8ToCp1250(" év") : std::string();
}

}  // namespace rovanel
