// One prescription: who it is for, who writes it, on which legal title, for which BNO code, and its drug
// line. The prescription window fills it, the record check judges it, saving appends its drug record to the
// patient's "Felirt gyogyszerek", and printing lays it out on the official form. Texts are Windows-1250.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"
#include "db/TreeFile.h"
#include "rx/BnoRules.h"
#include "rx/Titles.h"

namespace rovanel
{

struct Patient {
    std::string name;       // BetegNev
    std::string address1;   // BetegCim1: postcode and town
    std::string address2;   // BetegCim2: street and number
    std::string birthDate;  // BetegSzulDat, YYYYMMDD
    std::string eny;        // BetegENY
    std::string eu;         // BetegEU
    std::string taj;        // BetegTAJ
};

struct Prescriber {
    std::string serialNumber;                 // VenyNo: "ReceptPrefix" followed by the running number
    std::vector<std::string> qualifications;  // codes split out of "OrvosSzakkep"
    std::string specialistId;                 // SzoAzon: stamp number of the recommending specialist
    std::string logNumber;                    // NaploSzam ("Naploszam")
    std::string recommendationDate;           // SzoJavDatum
};

// One drug line; also the record kept in "Allando gyogyszerek" and "Felirt gyogyszerek" (see
// encodeDrugRecord for the field order).
struct PrescriptionItem {
    std::string key;            // the drug's key into tamttt.dat (the product's ttt code); the window caption
    std::string productCode;    // 10-character product code; "999999999" for a magistral item
    std::string name;           // GyogyszerNev
    int packageForm = 0;        // KiszertipGrp item ("Tabl.Orig No." ...), 0 to 10
    std::string quantity;       // Mennyiseg, as typed
    std::string quantityLatin;  // MennyisegLatinul
    std::string dosage;         // GyogyszerDs ("D.S.:" and the dosage text, lines joined by blanks)
    bool substitutable = true;  // not NemHelyett
    friend bool operator==(const PrescriptionItem&, const PrescriptionItem&) = default;
};

inline constexpr std::string_view kMagistralProductCode = "999999999";

struct Prescription {
    int source = 3;  // PrescriptionSource: 0 own magistral, 1 formulary, 2 medical aid, 3 drug or price list
    Patient patient;
    Prescriber prescriber;
    int title = kTitleNormativ;                            // JogcimGrp item
    TitleCaptions titleCaptions = defaultTitleCaptions();  // after relabelling; "-" = not allowed
    RegulationKeys keys;                                   // the drug's regulation-point keys
    std::string bno;                                       // BetegBNO, five characters when valid
    std::string date;                                      // FelirDat, YYYYMMDD
    std::string regulation;                                // EuRendEdt
    bool copy = false;                                     // Masolat
    std::string extraText;  // RpE: free text printed below the drug ("3 hónapos adag" lines)
    PrescriptionItem item;
};

// The package-form words of KiszertipGrp, by item (Windows-1250).
[[nodiscard]] const std::vector<std::string>& packageFormWords();

// A drug record: its fields joined with ';' in the order key, product code, name, package form, quantity,
// quantity in Latin, dosage, substitution ("Helyettesíthető" or empty), date, BNO, title. Line breaks of the
// texts become blanks; ';' and '~' inside a text become ',' and '-', so a record never splits.
[[nodiscard]] std::string encodeDrugRecord(const PrescriptionItem& item, std::string_view date = {},
                                           std::string_view bno = {}, int title = 0);
// The item of a record; missing fields are empty (a package form that is not a number gives 0).
[[nodiscard]] PrescriptionItem decodeDrugRecord(std::string_view record);
// The records of a '~'-joined list, empty ones left out.
[[nodiscard]] std::vector<std::string> splitDrugRecords(std::string_view list);

// The record check before saving or printing, in order, stopping at the first failure: a BNO code of
// exactly five characters ("Rövid BNO kód"), a quantity unless the source is 0 ("Adja meg a
// mennyiséget!"), the code in the BNO tree ("Hibás BNO kód"; a missing tree holds no code), and a title that
// admits the drug (not "-", and for titles 4, 5, 7 and 8 the BNO check).
struct RecordCheck {
    bool passed = false;
    std::optional<Message> message;  // the failed step's own message, when it has one
    enum class Field { None, Bno, Quantity } focus = Field::None;
};
[[nodiscard]] RecordCheck checkPrescription(const Prescription& prescription,
                                            const std::optional<std::vector<TreeNode>>& bnoTree,
                                            const std::filesystem::path& dataDirectory);

// The on-screen preview: the prescription's lines as the form shows them below the controls (Windows-1250,
// lines ended by '\n'): patient, date and BNO, title, the drug with its package form and quantity, the
// dosage text, the free text, and the marks for a copy and a drug that must not be substituted.
[[nodiscard]] std::string previewText(const Prescription& prescription);

// "Hibás adatok!", shown after a failed record check.
[[nodiscard]] Message invalidDataMessage();

// Appends the prescription's drug record and a closing '~' to "Felirt gyogyszerek" of the patient data
// file, written atomically: on any failure the old file stays whole and the message says why.
struct SaveResult {
    bool saved = false;
    std::optional<Message> message;  // "Recept elmentve." is the window's, not here
};
[[nodiscard]] SaveResult savePrescription(const std::filesystem::path& patientIni,
                                          const Prescription& prescription);

// The checks every value written to the patient data file passes: no line break, at most
// kPatientValueLimit bytes. The refusal names the key.
[[nodiscard]] std::optional<Message> refuseIniValue(std::string_view key, std::string_view value);

}  // namespace rovanel
