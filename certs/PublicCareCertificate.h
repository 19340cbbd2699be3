// The family doctor's certificate for public care ("Háziorvosi igazolás"): the public-care list (one
// product a line, "ATC;ttt;name and packaging;form;ingredient"), the patient's and the physician's data
// from the patient data INI file, and the text built from them paragraph by paragraph. Windows-1250.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "certs/PublicCareList.h"
#include "db/Message.h"
#include "rx/PrintLayout.h"

namespace rovanel
{

// The entries of a list file's content. A line is read up to 511 bytes (the rest of a longer line is
// read as the next line), its LF and a CR before it are dropped, and the fields are taken as strtok
// takes them: four tokens ended by ";" and a fifth that runs to the line end, a run of separators
// counting as one, a missing field empty. A line with no field at all is no entry.
[[nodiscard]] std::vector<PublicCareEntry> parsePublicCareList(std::string_view content);

// The list file's entries; nothing when the file cannot be opened. At most kPublicCareListLimit bytes
// are read.
[[nodiscard]] std::optional<std::vector<PublicCareEntry>> readPublicCareList(
    const std::filesystem::path& file);
inline constexpr std::size_t kPublicCareListLimit = 4 * 1024 * 1024;

// Deletes the list file; a missing file is no error and nothing is said.
void deletePublicCareList(const std::filesystem::path& file);

struct CertificateParagraph {
    std::string text;
    bool heading = false;
    friend bool operator==(const CertificateParagraph&, const CertificateParagraph&) = default;
};

struct PublicCareCertificate {
    std::vector<CertificateParagraph> paragraphs;
    std::optional<Message> message;  // "Üres közgyógy lista" when the list file could not be opened
};

// Builds the certificate from the list file and the patient data INI file; `today` is "yyyyMMdd".
[[nodiscard]] PublicCareCertificate buildPublicCareCertificate(const std::filesystem::path& listFile,
                                                               const std::filesystem::path& patientIni,
                                                               std::string_view today);

// The same from what the two files hold (no list: std::nullopt).
[[nodiscard]] PublicCareCertificate buildPublicCareCertificate(
    const std::optional<std::vector<PublicCareEntry>>& entries, const std::filesystem::path& patientIni,
    std::string_view today);

// The text as printed pages: A4 upright, Courier 10 pt, lines wrapped at kCertificateColumns characters.
[[nodiscard]] PrintLayout certificateLayout(const std::vector<CertificateParagraph>& paragraphs);
inline constexpr std::size_t kCertificateColumns = 80;

}  // namespace rovanel
