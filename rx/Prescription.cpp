#include "rx/Prescription.h"

#include "app/IniFile.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"
#include "rx/BnoTree.h"
#include "rx/PatientData.h"

namespace rovanel
{

namespace
{

// A text made safe for a record field.
std::string fieldText(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;  // CR LF is one break
        out += c == '\r' || c == '\n' ? ' ' : c == ';' ? ',' : c == '~' ? '-' : c;
    }
    return out;
}

std::vector<std::string_view> splitFields(std::string_view record)
{
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = record.find(';', start);
        fields.push_back(
            record.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
        if (end == std::string_view::npos) return fields;
        start = end + 1;
    }
}

const std::string& substitutableWord()
{
    static const std::string word = utf8ToCp1250("Helyettesíthető");
    return word;
}

Message message(const char* utf8, MessageIcon icon = MessageIcon::Warning)
{
    return Message{utf8ToCp1250(utf8), "", icon};
}

}  // namespace

const std::vector<std::string>& packageFormWords()
{
    static const std::vector<std::string> words = {
        "Scat.Orig. No.",
        "Tub.Orig. No.",
        "Caps.Orig. No.",
        "Tabl.Orig No.",
        "Lag.Orig No.",
        "Amp.Orig No.",
        "Drg.Orig No.",
        "No.",
        "FoNo dosim",
        "FoNo doses",
        utf8ToCp1250("- Nem jelölt -"),
    };
    return words;
}

std::string encodeDrugRecord(const PrescriptionItem& item, std::string_view date, std::string_view bno,
                             int title)
{
    const std::string fields[] = {
        fieldText(item.key),      fieldText(item.productCode),
        fieldText(item.name),     std::to_string(item.packageForm),
        fieldText(item.quantity), fieldText(item.quantityLatin),
        fieldText(item.dosage),   item.substitutable ? substitutableWord() : std::string(),
        fieldText(date),          fieldText(bno),
        std::to_string(title),
    };
    std::string record = fields[0];
    for (std::size_t i = 1; i < std::size(fields); ++i) record += ';' + fields[i];
    return record;
}

PrescriptionItem decodeDrugRecord(std::string_view record)
{
    const auto fields = splitFields(record);
    const auto at = [&](std::size_t i) { return i < fields.size() ? std::string(fields[i]) : std::string(); };
    PrescriptionItem item;
    item.key = at(0);
    item.productCode = at(1);
    item.name = at(2);
    if (const auto form = parseInteger(at(3));
        form && *form >= 0 && *form < static_cast<std::int64_t>(packageFormWords().size()))
        item.packageForm = static_cast<int>(*form);
    item.quantity = at(4);
    item.quantityLatin = at(5);
    item.dosage = at(6);
    item.substitutable = at(7) == substitutableWord();
    return item;
}

std::vector<std::string> splitDrugRecords(std::string_view list)
{
    std::vector<std::string> records;
    std::size_t start = 0;
    while (start < list.size()) {
        std::size_t end = list.find('~', start);
        if (end == std::string_view::npos) end = list.size();
        if (end > start) records.emplace_back(list.substr(start, end - start));
        start = end + 1;
    }
    return records;
}

RecordCheck checkPrescription(const Prescription& prescription,
                              const std::optional<std::vector<TreeNode>>& bnoTree,
                              const std::filesystem::path& dataDirectory)
{
    RecordCheck check;
    if (prescription.bno.size() != 5) {
        check.message = message("Rövid BNO kód");
        check.focus = RecordCheck::Field::Bno;
        return check;
    }
    if (prescription.source != static_cast<int>(PrescriptionSource::OwnMagistral) &&
        prescription.item.quantity.empty()) {
        check.message = message("Adja meg a mennyiséget!");
        check.focus = RecordCheck::Field::Quantity;
        return check;
    }
    // A tree that cannot be read holds no code, so every code is refused the same way.
    if (!bnoTree || !findBnoCode(*bnoTree, prescription.bno)) {
        check.message = message("Hibás BNO kód");
        check.focus = RecordCheck::Field::Bno;
        return check;
    }
    const int title = prescription.title;
    if (title < 0 || title >= kTitleCount ||
        prescription.titleCaptions[static_cast<std::size_t>(title)] == kTitleNotAllowed) {
        check.message = message("Nem rendelhető ilyen jogcímen");
        return check;
    }
    if (isRegulatedTitle(title)) {
        BnoCheckResult bno = checkBno(dataDirectory, prescription.keys, prescription.bno,
                                      isFeePayingTitle(title), prescription.source);
        if (!bno.accepted) {
            check.message = std::move(bno.message);
            return check;
        }
    }
    check.passed = true;
    return check;
}

std::string previewText(const Prescription& prescription)
{
    const Patient& patient = prescription.patient;
    const PrescriptionItem& item = prescription.item;
    const auto& words = packageFormWords();
    std::string text;
    text += patient.name + "\n" + patient.address1 + "\n" + patient.address2 + "\n";
    text += utf8ToCp1250("Szül.: ") + patient.birthDate + "   TAJ: " + patient.taj + "\n";
    text += "BNO: " + prescription.bno + utf8ToCp1250("   Dátum: ") + prescription.date + "\n";
    if (prescription.title >= 0 && prescription.title < kTitleCount)
        text += utf8ToCp1250("Jogcím: ") +
                prescription.titleCaptions[static_cast<std::size_t>(prescription.title)] + "\n";
    text += "\nRp.\n" + item.name + "\n";
    // "- Nem jelölt -" writes no package-form word before the quantity.
    const bool marked = item.packageForm >= 0 && item.packageForm + 1 < static_cast<int>(words.size());
    text +=
        (marked ? words[static_cast<std::size_t>(item.packageForm)] + " " : std::string()) + item.quantity;
    if (!item.quantityLatin.empty()) text += " (" + item.quantityLatin + ")";
    text += "\n" + item.dosage + "\n";
    if (!prescription.extraText.empty()) text += prescription.extraText + "\n";
    if (!item.substitutable) text += utf8ToCp1250("Nem helyettesíthető\n");
    // Thirty blanks before the word, as the printed copy carries it.
    if (prescription.copy) text += std::string(30, ' ') + utf8ToCp1250("MÁSOLAT\n");
    return text;
}

Message invalidDataMessage() { return message("Hibás adatok!", MessageIcon::Stop); }

std::optional<Message> refuseIniValue(std::string_view key, std::string_view value)
{
    if (value.find_first_of("\r\n") != std::string_view::npos)
        return Message{utf8ToCp1250("A(z) \"") + std::string(key) +
                           utf8ToCp1250("\" érték sortörést tartalmaz, ezért nem menthető."),
                       "", MessageIcon::Stop};
    if (value.size() > kPatientValueLimit)
        return Message{
            utf8ToCp1250("A(z) \"") + std::string(key) + utf8ToCp1250("\" érték túl hosszú (legfeljebb ") +
                std::to_string(kPatientValueLimit) + utf8ToCp1250(" karakter), ezért nem menthető."),
            "", MessageIcon::Stop};
    return std::nullopt;
}

SaveResult savePrescription(const std::filesystem::path& patientIni, const Prescription& prescription)
{
    SaveResult result;
    constexpr const char* kKey = "Felirt gyogyszerek";
    const std::string content = readWholeFile(patientIni).value_or(std::string());
    const std::string old = findProfileValue(content, kPatientSection, kKey).value_or(std::string());
    const std::string value =
        old + encodeDrugRecord(prescription.item, prescription.date, prescription.bno, prescription.title) +
        "~";
    if (auto refusal = refuseIniValue(kKey, value)) {
        result.message = std::move(refusal);
        return result;
    }
    if (!writeFileAtomically(patientIni, setProfileValue(content, kPatientSection, kKey, value))) {
        result.message = Message{utf8ToCp1250("A recept nem menthető: a(z) ") + patientIni.string() +
                                     utf8ToCp1250(" fájl nem írható (a korábbi tartalma megmaradt)."),
                                 "", MessageIcon::Stop};
        return result;
    }
    result.saved = true;
    return result;
}

}  // namespace rovanel
