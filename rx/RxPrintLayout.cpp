#include "rx/RxPrintLayout.h"

#include <algorithm>

#include "app/RegistrySettings.h"
#include "db/Cp1250.h"
#include "rx/Prescription.h"

namespace rovanel
{

const std::string kCopyMark = std::string(30, ' ') + utf8ToCp1250("MÁSOLAT");

namespace
{

// 9 pt Courier: a spaced digit and its blank take 3.8 mm, about one box of the forms, and the TAJ
// field ends before the BNO boxes on the same line.
constexpr double kPrescriptionFontPoints = 9;

struct Position {
    int left;
    int top;
};

// Design positions of one layout, in the order of kFieldNames.
struct FormDesign {
    std::string_view name;
    Position nev, cim1, cim2, szulDat, eny, eu, taj, bno, datum, nemHely;
    std::array<Position, 8> titleBoxes;  // Norm, Egy, Hm, Kgy, Ub, Euk, Eue, Telj
    std::optional<Position> psz, szjDatum, naploszam;
    Position rpTxt, barCode;
};

constexpr std::array<std::string_view, 8> kTitleBoxNames = {"Norm", "Egy", "Hm",  "Kgy",
                                                            "Ub",   "Euk", "Eue", "Telj"};

constexpr FormDesign kNewForm = {
    "TRp2",
    {38, 156},
    {38, 172},
    {38, 188},
    {336, 150},
    {320, 186},
    {156, 218},
    {38, 260},
    {176, 260},
    {256, 260},
    {410, 260},
    {{{76, 294}, {128, 294}, {180, 294}, {228, 294}, {280, 294}, {332, 294}, {384, 294}, {435, 294}}},
    Position{127, 324},
    Position{205, 324},
    Position{324, 324},
    {38, 360},
    {88, 720},
};

constexpr FormDesign kOldForm = {
    "TRp3",
    {38, 156},
    {38, 172},
    {38, 188},
    {247, 150},
    {233, 186},
    {80, 218},
    {38, 260},
    {176, 260},
    {256, 260},
    {352, 325},
    {{{76, 287}, {352, 358}, {162, 287}, {200, 287}, {238, 287}, {276, 287}, {314, 287}, {351, 287}}},
    std::nullopt,
    std::nullopt,
    std::nullopt,
    {38, 306},
    {32, 632},
};

// The boxes marked for each JogcimGrp item: a title with public care marks "Kgy" as well.
std::vector<std::string_view> markedBoxes(int title)
{
    switch (title) {
        case 0:
            return {"Norm"};
        case 1:
            return {"Hm"};
        case 2:
            return {"Kgy"};
        case 3:
            return {"Ub"};
        case 4:
            return {"Euk"};
        case 5:
            return {"Eue"};
        case 6:
            return {"Telj"};
        case 7:
            return {"Euk", "Kgy"};
        case 8:
            return {"Eue", "Kgy"};
        case 9:
            return {"Egy"};
        default:
            return {};
    }
}

std::string digitsAndLettersOnly(std::string_view text)
{
    std::string kept;
    for (const char c : text) {
        if (c != '.' && c != ' ' && c != '-' && c != '/') kept += c;
    }
    return kept;
}

// A boxed field: the value cut to the form's boxes, spaced.
std::string boxed(std::string_view value, std::size_t boxes)
{
    return spacedCharacters(value.substr(0, std::min(value.size(), boxes)));
}

bool isEmptyDate(std::string_view date) { return date.find_first_not_of(" .") == std::string_view::npos; }

void appendLine(std::string& text, std::string_view line)
{
    if (!text.empty()) text += '\n';
    text += line;
}

}  // namespace

std::string prescriptionText(RxFormat format, const RxPrintInput& input)
{
    std::string text;
    if (input.copy) appendLine(text, kCopyMark);
    appendLine(text, input.drugName);
    std::string quantityLine;
    if (!input.packageWord.empty() && input.packageWord != utf8ToCp1250("- Nem jelölt -"))
        quantityLine = input.packageWord;
    if (!input.quantity.empty()) quantityLine += (quantityLine.empty() ? "" : " ") + input.quantity;
    if (!input.quantityInLatin.empty())
        quantityLine += (quantityLine.empty() ? "(" : " (") + input.quantityInLatin + ")";
    if (!quantityLine.empty()) appendLine(text, quantityLine);
    for (const std::string& line : input.dosage) {
        if (!line.empty()) appendLine(text, line);
    }
    for (const std::string& line : input.extra) {
        if (!line.empty()) appendLine(text, line);
    }
    if (format == RxFormat::Old) {
        const bool hasDate = !isEmptyDate(input.recommendationDate);
        if (!input.specialistStamp.empty() || hasDate || !input.logNumber.empty()) {
            std::string line = "Szak.jav.psz:" + input.specialistStamp;
            if (hasDate) line += " D:" + input.recommendationDate;
            if (!input.logNumber.empty()) line += " Nsz:" + input.logNumber;
            appendLine(text, line);
        }
    }
    return text;
}

std::string barCodeText(const RxPrintInput& input)
{
    return input.serialNumber.empty() ? std::string() : "*" + input.serialNumber + "*";
}

PrintLayout prescriptionLayout(RxFormat format, const RxPrintInput& input)
{
    const FormDesign& design = format == RxFormat::Old ? kOldForm : kNewForm;
    PrintLayout layout;
    layout.name = std::string(design.name);
    layout.caption = format == RxFormat::Old ? utf8ToCp1250("Recept - régi formátum") : "Recept";
    layout.orientation =
        format == RxFormat::NewSideways ? PageOrientation::Sideways : PageOrientation::Upright;
    std::vector<PrintItem>& items = layout.pages.emplace_back().items;
    const auto add = [&items](std::string_view name, Position at, std::string text, bool bold = false) {
        items.push_back({std::string(name), at.left, at.top, std::move(text), kPrescriptionFontPoints, bold});
    };
    add("Nev", design.nev, input.patientName);
    add("Cim1", design.cim1, input.address1);
    add("Cim2", design.cim2, input.address2);
    add("SzulDat", design.szulDat, boxed(digitsAndLettersOnly(input.birthDate), 8));
    add("Eny", design.eny, boxed(input.eny, 9));
    add("Eu", design.eu, boxed(input.eu, 20));
    add("Taj", design.taj, boxed(input.taj, 9));
    add("Bno", design.bno, spacedCharacters(input.bno));
    add("Datum", design.datum, boxed(digitsAndLettersOnly(input.date), 8));
    add("NemHely", design.nemHely, input.notSubstitutable ? "X" : "", true);
    const std::vector<std::string_view> marked = markedBoxes(input.title);
    for (std::size_t box = 0; box < kTitleBoxNames.size(); ++box) {
        const bool isMarked = std::find(marked.begin(), marked.end(), kTitleBoxNames[box]) != marked.end();
        add(kTitleBoxNames[box], design.titleBoxes[box], isMarked ? "X" : "", true);
    }
    if (design.psz) {
        add("Psz", *design.psz, spacedCharacters(input.specialistStamp));
        const std::string date = isEmptyDate(input.recommendationDate)
                                     ? std::string()
                                     : digitsAndLettersOnly(input.recommendationDate);
        add("SzJDatum", *design.szjDatum, boxed(date, 8));
        add("Naploszam", *design.naploszam, spacedCharacters(input.logNumber));
    }
    add("RpTxt", design.rpTxt, prescriptionText(format, input));
    add("BarCode", design.barCode, barCodeText(input));
    return layout;
}

PrintLayout printedPrescription(RxFormat format, const RxPrintInput& input, const RxMargins& margins)
{
    switch (format) {
        case RxFormat::Old:
            return shiftedCopy(prescriptionLayout(format, input), margins.leftOld, margins.topOld);
        case RxFormat::NewUpright:
            return shiftedCopy(prescriptionLayout(format, input), margins.leftUpright, margins.topUpright);
        case RxFormat::NewSideways:
            return shiftedCopy(prescriptionLayout(format, input), margins.leftSideways, margins.topSideways);
    }
    return {};
}

std::uint32_t storedMargin(int shift)
{
    return shift < 0 ? static_cast<std::uint32_t>(1000 - static_cast<std::int64_t>(shift))
                     : static_cast<std::uint32_t>(shift);
}

int marginFromStored(std::int64_t stored)
{
    // Far outside any page: a damaged value is clamped rather than wrapped.
    stored = std::clamp<std::int64_t>(stored, -100000, 100000);
    return static_cast<int>(stored > 1000 ? 1000 - stored : stored);
}

namespace
{

constexpr std::string_view kRpDataPath = "\\Software\\Rovanel\\RpData\\";

struct MarginSetting {
    std::string_view name;
    int RxMargins::*field;
};

constexpr std::array<MarginSetting, 6> kMarginSettings = {{
    {"LeftAlloRegi", &RxMargins::leftOld},
    {"TopAlloRegi", &RxMargins::topOld},
    {"LeftAllo", &RxMargins::leftUpright},
    {"TopAllo", &RxMargins::topUpright},
    {"LeftFekvo", &RxMargins::leftSideways},
    {"TopFekvo", &RxMargins::topSideways},
}};

}  // namespace

RxPrintSettingsRead readRxPrintSettings(RegistryStore& store)
{
    RxPrintSettingsRead result;
    const auto read = [&](std::string_view path) -> std::optional<std::int32_t> {
        IntegerRead value = RegReadInteger(store, path);
        if (value.error) {
            if (!result.error) result.error = std::move(value.error);
            return std::nullopt;
        }
        return value.value;
    };
    if (const auto format = read(kRpFormatIdxPath); format && *format >= 0 && *format <= 2)
        result.settings.format = static_cast<RxFormat>(*format);
    if (const auto mode = read(kRpPrintModeIdxPath)) result.settings.printMode = *mode == 1 ? 1 : 0;
    for (const MarginSetting& setting : kMarginSettings) {
        // The store keeps 32 bits without sign; read back as such before decoding.
        if (const auto stored = read(std::string(kRpDataPath) + std::string(setting.name)))
            result.settings.margins.*setting.field = marginFromStored(static_cast<std::uint32_t>(*stored));
    }
    return result;
}

std::optional<Message> writeRxMargins(RegistryStore& store, const RxMargins& margins)
{
    std::optional<Message> firstError;
    for (const MarginSetting& setting : kMarginSettings) {
        auto error = RegWriteInteger(store, std::string(kRpDataPath) + std::string(setting.name),
                                     static_cast<std::int32_t>(storedMargin(margins.*setting.field)));
        if (error && !firstError) firstError = std::move(error);
    }
    return firstError;
}

std::optional<Message> writeRxFormat(RegistryStore& store, RxFormat format)
{
    return RegWriteInteger(store, kRpFormatIdxPath, static_cast<std::int32_t>(format));
}

std::optional<Message> writeRxPrintMode(RegistryStore& store, int mode)
{
    return RegWriteInteger(store, kRpPrintModeIdxPath, mode);
}

std::string rxFormatCaption(RxFormat format)
{
    switch (format) {
        case RxFormat::Old:
            return utf8ToCp1250("Recept formátum: Régi");
        case RxFormat::NewUpright:
            return utf8ToCp1250("Recept formátum: Új álló");
        case RxFormat::NewSideways:
            return utf8ToCp1250("Recept formátum: Új fekvő");
    }
    return {};
}

}  // namespace rovanel

namespace rovanel
{

namespace
{

std::vector<std::string> textLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace

RxPrintInput rxPrintInput(const Prescription& prescription)
{
    RxPrintInput input;
    input.patientName = prescription.patient.name;
    input.address1 = prescription.patient.address1;
    input.address2 = prescription.patient.address2;
    input.birthDate = prescription.patient.birthDate;
    input.eny = prescription.patient.eny;
    input.eu = prescription.patient.eu;
    input.taj = prescription.patient.taj;
    input.bno = prescription.bno;
    input.date = prescription.date;
    input.title = prescription.title;
    input.notSubstitutable = !prescription.item.substitutable;
    input.copy = prescription.copy;
    input.specialistStamp = prescription.prescriber.specialistId;
    input.recommendationDate = prescription.prescriber.recommendationDate;
    input.logNumber = prescription.prescriber.logNumber;
    input.drugName = prescription.item.name;
    const auto& words = packageFormWords();
    if (prescription.item.packageForm >= 0 && prescription.item.packageForm < static_cast<int>(words.size()))
        input.packageWord = words[static_cast<std::size_t>(prescription.item.packageForm)];
    input.quantity = prescription.item.quantity;
    input.quantityInLatin = prescription.item.quantityLatin;
    input.dosage = textLines(prescription.item.dosage);
    input.extra = textLines(prescription.extraText);
    input.serialNumber = prescription.prescriber.serialNumber;
    return input;
}

}  // namespace rovanel
