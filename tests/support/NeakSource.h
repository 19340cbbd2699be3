// A small NEAK source directory in the published layouts (turnover, ATC book, EU points and texts, BNO
// codes and links, prescriber rights, the medical-aids catalogue), for the importer's tests and the
// corruption sweep. Each table's text can be replaced before writing.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "db/Cp1250.h"
#include "gen/NeakImport.h"

namespace rovanel::testing
{

struct NeakSource {
    std::string turnover =
        "IDOSZAK,BRAND,BRANDID,TTT,NEV,KISZNEV,TK,ATC,HATOANYAG,VENYTIPUS,JOGCIM,DOBOZ,DOTFORG,TBTAM,FOGYAR,"
        "TERDIJ,KVATER\n"
        // Emelt and kiemelt without normative support; the Közgyógy row must not become the support.
        "\"202501\",\"INSULA\",1,\"210000001\",\"INSULA 100 EGYSÉG/ML OLDATOS INJEKCIÓ PATRONBAN\","
        "\"10x3ml patronban\",\"EU/1\",\"A10AE04\",\"insulin glargine\",\"G\",\"Emelt\",77.5,5812.5,942865,"
        "1885730,942865,0\n"
        "\"202501\",\"INSULA\",1,\"210000001\",\"INSULA 100 EGYSÉG/ML OLDATOS INJEKCIÓ PATRONBAN\","
        "\"10x3ml patronban\",\"EU/1\",\"A10AE04\",\"insulin glargine\",\"G\",\"Kiemelt\",472.833,35462.475,"
        "11363122.66,11504972.56,141849.9,0\n"
        "\"202501\",\"INSULA\",1,\"210000001\",\"INSULA 100 EGYSÉG/ML OLDATOS INJEKCIÓ PATRONBAN\","
        "\"10x3ml patronban\",\"EU/1\",\"A10AE04\",\"insulin glargine\",\"G\",\"Közgyógy\",0.7,52.5,0,"
        "17032.4,0,17032.4\n"
        // Normative 55 %, 25 % and 80 % (the largest row wins), and a public-care row.
        "\"202501\",\"AMLO\",2,\"210000002\",\"AMLO 5 MG TABLETTA\",\"30x\",\"T-1\",\"C08CA01\","
        "\"amlodipin\",\"G\",\"Normatív\",10,300,5500,10000,4500,0\n"
        "\"202501\",\"AMLO\",2,\"210000003\",\"AMLO 10 MG TABLETTA\",\"30x\",\"T-2\",\"C08CA01\","
        "\"amlodipin\",\"G\",\"Normatív\",4,120,1000,4000,3000,0\n"
        "\"202501\",\"AMLO\",2,\"210000004\",\"AMLO 20 MG TABLETTA\",\"30x\",\"T-3\",\"C08CA01\","
        "\"amlodipin\",\"G\",\"Normatív\",2,60,1600,2000,400,0\n"
        "\"202501\",\"AMLO\",2,\"210000004\",\"AMLO 20 MG TABLETTA\",\"30x\",\"T-3\",\"C08CA01\","
        "\"amlodipin\",\"G\",\"Közgyógy\",5,150,4000,5000,0,1000\n"
        // No pack dispensed: no price, no daily doses.
        "\"202501\",\"NOPACK\",3,\"210000005\",\"NOPACK 1 MG TABLETTA\",\"20x\",\"T-4\",\"C08CA01\","
        "\"amlodipin\",\"G\",\"Normatív\",-1,,-500,-1000,-500,0\n"
        // The same name and pack under two TTT.
        "\"202501\",\"TWIN\",4,\"210001111\",\"TWIN 80 MG FILMTABLETTA\",\"28x\",\"T-5\",\"M04AA03\","
        "\"febuxostat\",\"G\",\"Emelt\",3,84,2700,3000,300,0\n"
        "\"202501\",\"TWIN\",4,\"210002222\",\"TWIN 80 MG FILMTABLETTA\",\"28x\",\"T-6\",\"M04AA03\","
        "\"febuxostat\",\"G\",\"Emelt\",3,84,1500,3000,1500,0\n"
        // Short and missing ATC codes, nutrition, a magistral material left out.
        "\"202501\",\"MIGR\",5,\"210000006\",\"MIGR 2 MG TABLETTA\",\"6x\",\"T-7\",\"N02C\",\"migrén\",\"G\","
        "\"Normatív\",1,6,0,500,500,0\n"
        "\"202501\",\"HOMEO\",6,\"270000007\",\"HOMEO GLOBULI\",\"1x4 g\",\"T-8\",\"ISMTLEN\",\"\",\"G\","
        "\"Normatív\",1,,0,900,900,0\n"
        "\"202501\",\"NUTRI\",7,\"230000008\",\"NUTRI VANÍLIA\",\"4x200 ml\",\"\",\"V06D\",\"tápszer\",\"G\","
        "\"Normatív\",2,8,1800,2000,200,0\n"
        "\"202501\",\"SAL\",8,\"110000009\",\"ACIDUM SALICYLICUM\",\"100 g\",\"\",\"D01AE12\",\"\",\"M\","
        "\"Normatív\",1,,0,100,100,0\n";
    std::string book =
        "ATC\tMEGNEV\tANGOL\tHATOANYAG\tKIHIRDETES_ID\r\n"
        "\"A\"\t\"Tápcsatorna és anyagcsere\"\t\"Alimentary\"\t\t1\r\n"
        "\"A10\"\t\"Antidiabetikumok\"\t\"Drugs used in diabetes\"\t\t1\r\n"
        "\"A10A\"\t\"Inzulinok\"\t\"Insulins\"\t\t1\r\n"
        "\"A10AE\"\t\"Hosszú hatású inzulinok\"\t\"long-acting\"\t\t1\r\n"
        "\"A10AE04\"\t\"glargin inzulin\"\t\"insulin glargine\"\t\t1\r\n"
        "\"C\"\t\"Kardiovaszkuláris rendszer\"\t\"\"\t\t1\r\n"
        "\"C08\"\t\"Kalciumcsatorna-blokkolók\"\t\"\"\t\t1\r\n"
        "\"C08C\"\t\"Szelektív kalciumcsatorna-blokkolók\"\t\"\"\t\t1\r\n"
        "\"C08CA\"\t\"Dihidropiridin-származékok\"\t\"\"\t\t1\r\n"
        "\"C08CA01\"\t\"amlodipin\"\t\"amlodipine\"\t\t1\r\n\"M\"\t\"Csont-izomrendszer\"\t\"\"\t\t1\r\n"
        "\"M04\"\t\"Köszvény elleni szerek\"\t\"\"\t\t1\r\n"
        "\"M04A\"\t\"Köszvény elleni szerek\"\t\"\"\t\t1\r\n"
        "\"M04AA\"\t\"Húgysavképzést gátlók\"\t\"\"\t\t1\r\n\"M04AA03\"\t\"\"\t\"\"\t\t1\r\n"
        "\"N\"\t\"Idegrendszer\"\t\"\"\t\t1\r\n\"N02\"\t\"Fájdalomcsillapítók\"\t\"\"\t\t1\r\n"
        "\"N02C\"\t\"Migrén elleni készítmények\"\t\"\"\t\t1\r\n\"V06D\"\t\"Egyéb tápszerek\"\t\"\"\t\t1\r\n";
    std::string points =
        "ID;EUTIP;KODSZAM;PERJEL;IND_TIP\n1;EÜ100;8;a1;G\n2;EÜ90;5;;G\n3;EÜ70;12;;G\n4;EÜ50;12;b;G\n5;"
        "Normatív;9;;S\n";
    std::string texts =
        "ID;EUPONT_ID;NDX;LEIRAS\n11;1;2;második_x000d_\n10;1;1;\"első\nsor\"\n12;2;1;emelt\n";
    // A 1-character code and XXX stay out of the tree; I10H0 has no 4-character parent, U0710 no parent.
    std::string bnoCodes =
        "ID;KOD;LEIRAS\n1;G;Idegrendszer\n2;G40;Epilepszia\n3;G409;Epilepszia k.m.n.\n"
        "4;G4090;Epilepszia k.m.n., roham nélkül\n5;I10;Magasvérnyomás-betegség\n"
        "6;I10H0; Magasvérnyomás-betegség (elsődleges)\n7;XXX;az alap betegség BNO kódja\n"
        "8;U0710;COVID-19\n9;E1190;Nem inzulin-dependens cukorbetegség\n";
    // Point 1 admits G4090 and I10H0 (the 4-character G409 and XXX are skipped), point 2 E1190.
    std::string bnoLinks = "EUPONT_ID;BNO_ID\n1;6\n1;4\n1;3\n2;9\n2;7\n";
    // Point 1: cardiology (the refused pulmonology is left out); point 2 unrestricted; point 3: code 12.
    std::string rights =
        "EUPONT_ID;KATEGORIA_ID;KATEGORIA;JOGOSULT;JIDOKORLAT;SZAKV_ID;KIINT_ID\n"
        "1;1;Fekvőbeteg gyógyintézet;írhat;0;2;1\n1;1;Fekvőbeteg gyógyintézet;Nincs jogosultsága;0;3;1\n"
        "2;4;Megkötés nélkül;írhat;0;1;1\n2;4;Háziorvos;javaslatra írhat;0;2;1\n"
        "3;1;Kijelölt intézmény;írhat;0;4;1\n";
    std::string specialties =
        "ID;KOD;LEIRAS;MEGFELEL\n1;0;Megkötés nélkül;\n2;301;Kardiológia;\n3;401;Tüdőgyógyászat;\n"
        "4;12;Belgyógyászat;\n";
    // A 15-digit and a 13-digit aid (the catalogue is not sorted), an aid of a bad code that is skipped.
    std::string aids =
        "{\"meta\": {\"totalItems\": 3, \"tags\": [1, null]},\n \"items\": [\n"
        "  {\"isoCode\": \"093006030300101\", \"name\": \"Pelenka  \\\"Extra\\\" \\u0151\", "
        "\"packSize\": \"30 db\", \"grossPrice\": 5000.4, \"patientFee\": 1000.5, \"supportPercent\": 80, "
        "\"supportType\": \"NOMIN\", \"euSupportPercent\": 98, \"euPatientFee\": 100, \"euPoints\": null, "
        "\"tttCode\": \"310000011\", \"manufacturer\": \"Gyártó\", \"distributor\": \"Forgalmazó\", "
        "\"inMarket\": true},\n"
        "  {\"isoCode\": \"0624030303001\", \"name\": \"L-111 protézis\", \"packSize\": \"darab\", "
        "\"grossPrice\": 175629.3, \"patientFee\": 3512.25, \"supportPercent\": 98, "
        "\"supportType\": \"NOMIN\", \"euSupportPercent\": 0, \"euPatientFee\": 0, "
        "\"tttCode\": \"310000013\", \"manufacturer\": \"Egyedi\", \"distributor\": \"Egyedi\"},\n"
        "  {\"isoCode\": \"12AB\", \"name\": \"Rossz\", \"packSize\": \"\", \"grossPrice\": 1, "
        "\"patientFee\": 1, \"supportPercent\": 0, \"supportType\": \"\", \"euSupportPercent\": 0, "
        "\"euPatientFee\": 0, \"tttCode\": \"\", \"manufacturer\": \"\", \"distributor\": \"\"}\n]}\n";

    void writeTo(const std::filesystem::path& root) const
    {
        const std::pair<std::string_view, const std::string*> files[] = {
            {"neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202501.csv", &turnover},
            {kAtcBookFile, &book},
            {kEuPointsFile, &points},
            {kEuTextsFile, &texts},
            {kBnoCodesFile, &bnoCodes},
            {kBnoLinksFile, &bnoLinks},
            {kRightsFile, &rights},
            {kSpecialtiesFile, &specialties},
            {kAidsFile, &aids},
        };
        for (const auto& [relative, content] : files) {
            const std::filesystem::path path = root / std::string(relative);
            std::filesystem::create_directories(path.parent_path());
            // The ATC book is published in Windows-1250, the other tables in UTF-8.
            std::ofstream(path, std::ios::binary)
                << (relative == kAtcBookFile ? utf8ToCp1250(*content) : *content);
        }
    }
};

}  // namespace rovanel::testing
