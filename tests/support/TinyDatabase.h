// A hand-written database of five products (three medicines, one nutrition product, one other), small
// enough to corrupt byte by byte in tests. Layouts as in docs/data-format.md.
#pragma once

#include <string>

#include "db/Cp1250.h"
#include "tests/support/RecordLayouts.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel::testing
{

// Writes the tiny database into `directory`.
inline void writeTinyDatabase(const ScratchDirectory& directory)
{
    const char* codes[] = {"A02BC-0101", "C08CA-0101", "C08CA-0102", "T01AA-0101", "X01AA-0101"};
    const char* names[] = {"ALFA 20 MG KAPSZULA 28X", "BÉTA 5 MG TABLETTA 30X", "GAMMA 10 MG TABLETTA 30X",
                           "TÁPLÁLÓ ITAL 200 ML", "EGYÉB TERMÉK 1X"};
    std::string msg;
    for (int i = 0; i < 150; ++i)
        msg += i == 1   ? "Készítmény:\r\n"
               : i == 5 ? "NULL   \r\n"
               : i == 6 ? " NULL\r\n"
                        : "Üzenet " + std::to_string(i) + " ~ megjegyzés\r\n";
    directory.write("MSG.DAT", utf8ToCp1250(msg));
    directory.write("inf.dat", "5,3,2,2,0,0,0,2,2,0,1,1,1\r\n");
    std::string kod;
    for (const char* code : codes) kod += encodeCodeField(code, kProductCodeWidth);
    for (const char* group : {"C", "C08", "C08C"}) kod += encodeCodeField(group, kAtcGroupCodeWidth);
    for (const char* contra : {"E01", "E0101"}) kod += encodeCodeField(contra, kContraindicationCodeWidth);
    for (const char* effect : {"M01", "M0101"}) kod += encodeCodeField(effect, kSideEffectCodeWidth);
    directory.write("KOD.DAT", kod);
    directory.write("xd.dat", "0,3\r\n1,2\r\n");
    directory.write("x.dat", "tabl.\r\nkaps.\r\n");
    std::string nevrend;
    for (const char* name : names) nevrend += nameLine(name);
    directory.write("nevrend.dat", nevrend);
    std::string gyful;
    std::string nevpos;
    for (const char* code : codes) {
        nevpos += positionRecord(static_cast<long>(gyful.size()));
        gyful += std::string(code) + "\r\n" + std::string(code).substr(0, 8) +
                 "\r\n#ar\r\n1000\r\n800\r\n#vege\r\n";
    }
    directory.write("gy.ful", gyful);
    directory.write("nevpos.dat", nevpos);
    // Group C lists 1 and 2; C08 the same; C08C has no products; the sentinel follows.
    directory.write("atcind.dat", "1\r\n2\r\n1\r\n2\r\n");
    directory.write("atcindin.dat", directoryRecord(0, 2) + directoryRecord(6, 2) + directoryRecord(0, 0) +
                                        directoryRecord(0, 0));
    directory.write("mhind.dat", "0,\r\n2,\r\n");
    directory.write("mhindin.dat", directoryRecord(0, 2) + directoryRecord(4, 1));
    directory.write("ellind.dat", "");
    directory.write("ellindin.dat", directoryRecord(0, 0) + directoryRecord(0, 0));
    std::string ellnrend = utf8ToCp1250("   Terhesség");
    ellnrend.resize(126, ' ');
    ellnrend += "\r\n";
    std::string second = utf8ToCp1250("Szoptatás");
    second.resize(126, ' ');
    directory.write("ellnrend.dat", ellnrend + second + "\r\n");
    directory.write("zaras.inf", "20261101\r\n2026.11.01\r\n");
}

}  // namespace rovanel::testing
