// The prescription on the official form: the old form (TRp3, "Recept - régi formátum", always upright)
// and the new form (TRp2, "Recept", upright or sideways). Only the values are printed, each into its
// box of the pre-printed form; docs/decisions/prescription-printing.md says how the memo and the bar
// code text are made up. Texts are Windows-1250.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"
#include "rx/PrintLayout.h"

namespace rovanel
{

class RegistryStore;
struct Prescription;

// What one printed prescription shows, read from the prescription window as it stands.
struct RxPrintInput {
    std::string patientName;          // BetegNev
    std::string address1;             // BetegCim1, postcode and town
    std::string address2;             // BetegCim2, street and number
    std::string birthDate;            // BetegSzulDat, YYYYMMDD (dots and blanks are dropped)
    std::string eny;                  // BetegENY
    std::string eu;                   // BetegEU
    std::string taj;                  // BetegTAJ
    std::string bno;                  // BetegBNO
    std::string date;                 // FelirDat (dots and blanks are dropped)
    int title = 0;                    // JogcimGrp item index, 0 to 9
    bool notSubstitutable = false;    // NemHelyett
    bool copy = false;                // Masolat
    std::string specialistStamp;      // SzoAzon
    std::string recommendationDate;   // SzoJavDatum; the empty mask "    .  .  ." is no date
    std::string logNumber;            // NaploSzam
    std::string drugName;             // GyogyszerNev
    std::string packageWord;          // the chosen KiszertipGrp caption; "- Nem jelölt -" writes none
    std::string quantity;             // Mennyiseg
    std::string quantityInLatin;      // MennyisegLatinul
    std::vector<std::string> dosage;  // the lines of GyogyszerDs ("D.S.:", then the text)
    std::vector<std::string> extra;   // the lines of RpE
    std::string serialNumber;         // VenyNo
};

// What `prescription` prints: the package word of its package form, its dosage and further text split
// into lines (a CR before a line break is dropped), "X" for a drug that must not be substituted.
[[nodiscard]] RxPrintInput rxPrintInput(const Prescription& prescription);

enum class RxFormat { Old = 0, NewUpright = 1, NewSideways = 2 };

// The six shifts, in layout units; each may be negative.
struct RxMargins {
    int leftOld = 160, topOld = 8;
    int leftUpright = 160, topUpright = 8;
    int leftSideways = 655, topSideways = 8;
    friend bool operator==(const RxMargins&, const RxMargins&) = default;
};

// The layout of `format` filled from `input`, at the design positions.
[[nodiscard]] PrintLayout prescriptionLayout(RxFormat format, const RxPrintInput& input);

// The layout as printed: filled, then shifted by the format's margins (a copy; see shiftedCopy).
[[nodiscard]] PrintLayout printedPrescription(RxFormat format, const RxPrintInput& input,
                                              const RxMargins& margins);

// The memo RpTxt and the bar code text, as placed in the layouts.
[[nodiscard]] std::string prescriptionText(RxFormat format, const RxPrintInput& input);
[[nodiscard]] std::string barCodeText(const RxPrintInput& input);

// The empty mask of the recommendation date, "    .  .  ." (no date).
inline constexpr std::string_view kEmptyDateMask = "    .  .  .";
// The copy mark: thirty blanks, then "MÁSOLAT" (Windows-1250).
extern const std::string kCopyMark;

// A shift as the registry holds it: n >= 0 as it stands, a negative n as 1000 - n. Reading turns a
// stored value above 1000 back into 1000 - value; 1000 or less is taken as it stands.
[[nodiscard]] std::uint32_t storedMargin(int shift);
[[nodiscard]] int marginFromStored(std::int64_t stored);

// The registry paths under "\Software\Rovanel\RpData\".
inline constexpr std::string_view kRpFormatIdxPath = "\\Software\\Rovanel\\RpData\\RpFormatIdx";
inline constexpr std::string_view kRpPrintModeIdxPath = "\\Software\\Rovanel\\RpData\\RpPrintModeIdx";

struct RxPrintSettings {
    RxFormat format = RxFormat::Old;
    int printMode = 0;  // 0 "Direkt", 1 "Előkép"
    RxMargins margins;
};

struct RxPrintSettingsRead {
    RxPrintSettings settings;
    std::optional<Message> error;  // the first read that failed (its setting keeps the default)
};

[[nodiscard]] RxPrintSettingsRead readRxPrintSettings(RegistryStore& store);
[[nodiscard]] std::optional<Message> writeRxMargins(RegistryStore& store, const RxMargins& margins);
[[nodiscard]] std::optional<Message> writeRxFormat(RegistryStore& store, RxFormat format);
[[nodiscard]] std::optional<Message> writeRxPrintMode(RegistryStore& store, int mode);

// "Recept formátum: " and the format's caption ("Régi", "Új álló", "Új fekvő"), Windows-1250.
[[nodiscard]] std::string rxFormatCaption(RxFormat format);

}  // namespace rovanel
