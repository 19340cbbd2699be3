// rvcli certificate INIFILE LISTFILE [--date YYYYMMDD] [--pdf OUT]: the public-care certificate, as text
// (one paragraph a line) or as PDF.
#include <cstdio>

#include "certs/PublicCareCertificate.h"
#include "cli/Common.h"
#include "cli/PrintOutput.h"

namespace rovanel::cli
{

int runCertificate(const Invocation& call)
{
    const auto arguments = parsePrintArguments(call.args, {"--date", "--pdf"}, {});
    if (!arguments || arguments->positional.size() != 2) return call.usageError();
    const auto date = arguments->values.find("--date");
    const PublicCareCertificate certificate =
        buildPublicCareCertificate(arguments->positional[1], arguments->positional[0],
                                   date == arguments->values.end() ? todayDigits() : date->second);
    if (certificate.message) std::fprintf(stderr, "%s\n", toUtf8(certificate.message->text).c_str());
    if (arguments->values.count("--pdf"))
        return outputLayout(certificateLayout(certificate.paragraphs), *arguments);
    for (const CertificateParagraph& paragraph : certificate.paragraphs)
        std::printf("%s\n", toUtf8(paragraph.text).c_str());
    return 0;
}

}  // namespace rovanel::cli
