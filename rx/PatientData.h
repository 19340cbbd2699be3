// The patient data INI file: patient and prescriber data that a clinic program writes and the prescription,
// public-care and specialist-recommendation windows read (section "BetegAdatok"), and the list of drugs
// prescribed so far, which saving a prescription extends.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

inline constexpr const char* kPatientSection = "BetegAdatok";

// The keys this window reads, in the order it reads them, with the value used when a key is absent.
// Texts are Windows-1250.
struct PatientData {
    std::string bno;                            // "Beteg bno"
    std::string address1 = "Irsz, Helys\xE9g";  // "Beteg cim1"
    std::string address2 = "Utca, hsz.";        // "Beteg cim2"
    std::string eny;                            // "Beteg ENY"
    std::string eu;                             // "Beteg EU"
    std::string qualification;                  // "OrvosSzakkep": "code,text;code,text;"
    std::string logNumber;                      // "Naploszam"
    std::string serialPrefix;                   // "ReceptPrefix"
    std::string name = "Beteg neve";            // "Beteg neve"
    std::string birthDate = "00000000";         // "Beteg szul", YYYYMMDD (a '.' may stand in it)
    std::string taj;                            // "Beteg TAJ"
    std::string permanentDrugs;                 // "Allando gyogyszerek": records joined by '~'
    std::string prescribedDrugs;                // "Felirt gyogyszerek": records joined by '~'
};

// The longest value an INI key of this file may hold; "Felirt gyogyszerek" grows with every save.
inline constexpr std::size_t kPatientValueLimit = 65535;

// Reads the keys in table order; a missing or unreadable file gives every default.
[[nodiscard]] PatientData readPatientData(const std::filesystem::path& iniFile);

// Where the patient data INI file is: "BetegAdatokIniPath" of the data directory's RV.INI. A relative path
// is taken in the user's settings folder, never in the database folder; an empty value gives "beteg.ini"
// there.
[[nodiscard]] std::filesystem::path patientDataPath(const std::filesystem::path& dataDirectory);

// The age shown beside the birth date: prescription year (first four characters of the prescription date)
// less birth year (first four of the birth date), whole numbers, month and day ignored; nothing when either
// does not begin with four digits. "00000000" gives the prescription year itself.
[[nodiscard]] std::optional<int> ageInYears(std::string_view prescriptionDate, std::string_view birthDate);
// "Kora: 47 év" (Windows-1250), or the empty text without an age.
[[nodiscard]] std::string ageText(std::string_view prescriptionDate, std::string_view birthDate);

}  // namespace rovanel
