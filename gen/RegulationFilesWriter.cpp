// The regulations: rend.dat (code, separate-budget flag, text) and the rend2.ful tree.
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeRegulationFiles()
{
    std::string rend;
    for (const Regulation& regulation : m_regulations)
        rend += regulation.code + "\t" + (regulation.separateBudget ? "K" : "-") + "\t" + regulation.text +
                "\r\n";
    m_files.emplace_back("rend.dat", std::move(rend));
    m_files.emplace_back("rend2.ful", regulationTree());
}

std::string Generator::regulationTree() const
{
    const char* general[] = {
        "Az egészségbiztosítás keretében rendelhető gyógyszerek támogatási szabályai",
        "\tI. Általános szabályok",
        "\t\t1. A normatív támogatás mértéke a termék árához viszonyítva 25, 55 vagy 80 százalék.",
        "\t\t2. Fix csoportba sorolt gyógyszernél a támogatás alapja a csoport referenciaára.",
        "\t\t3. A rendelés napjától számított 30 napon belül váltható ki a vény.",
        "\t\t4. Egy vényen legfeljebb 90 napra elegendő mennyiség rendelhető.",
        "\tII. Emelt és kiemelt indikációhoz kötött támogatások",
    };
    std::string tree;
    for (const char* line : general) tree += cp(line) + "\r\n";
    tree += cp("\t\tEmelt támogatások (EÜ emelt pontok)") + "\r\n";
    for (const Regulation& regulation : m_regulations)
        if (regulation.increased) tree += "\t\t\t" + regulation.code + ": " + regulation.text + "\r\n";
    tree += cp("\t\tKiemelt támogatások (EÜ kiemelt pontok)") + "\r\n";
    for (const Regulation& regulation : m_regulations)
        if (!regulation.increased) tree += "\t\t\t" + regulation.code + ": " + regulation.text + "\r\n";
    tree += cp("\tIII. Különkeretes gyógyszerek") + "\r\n";
    for (const Regulation& regulation : m_regulations)
        if (regulation.separateBudget)
            tree += "\t\t" + regulation.code + cp(": külön kereten finanszírozott") + "\r\n";
    const char* closing[] = {
        "\tIV. Közgyógyellátás",
        ("\t\t1. Közgyógyellátásra jogosult a rendszeres gyógyító ellátás költségeinek viselésére képtelen "
         "beteg."),
        "\t\t2. A közgyógyellátás keretében rendelt gyógyszerért térítési díjat nem kell fizetni.",
        "\tV. Tápszerek és gyógyászati segédeszközök",
        "\t\t1. Tápszer támogatással csak a megjelölt betegségekben rendelhető.",
        "\t\t2. Gyógyászati segédeszköz rendelésére a segédeszköz-rendelet szabályai vonatkoznak.",
    };
    for (const char* line : closing) tree += cp(line) + "\r\n";
    return tree;
}

}  // namespace rovanel::generation
