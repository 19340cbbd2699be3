// The generator's vocabulary: the fixed catalogues its products are made from (contraindications, side
// effects, pseudo-ATC groups, pharmaceutical forms, companies, name syllables, texts, regulation
// conditions) and the code and name helpers. UTF-8 here; converted to Windows-1250 when used.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel::generation
{

[[nodiscard]] std::string cp(std::string_view utf8);

// ---------------------------------------------------------------------------------------------------
// Fixed catalogues (UTF-8 here, converted once).

struct CodeEntry {
    const char* code;
    const char* name;
};

// Contraindications: group E01..E13 with its leaves. E0101 "Terhesség" is the planted one.
inline constexpr CodeEntry kContraindications[] = {
    {"E01", "Terhesség és szoptatás"},
    {"E0101", "Terhesség"},
    {"E0102", "Szoptatás"},
    {"E0103", "Fogamzóképes kor megbízható fogamzásgátlás nélkül"},
    {"E02", "Szív- és érrendszeri betegségek"},
    {"E0201", "Súlyos szívelégtelenség"},
    {"E0202", "Másod- vagy harmadfokú AV-blokk"},
    {"E0203", "Kifejezett bradycardia"},
    {"E0204", "Súlyos hypotonia"},
    {"E0205", "Friss szívinfarktus"},
    {"E03", "Légzőszervi betegségek"},
    {"E0301", "Asthma bronchiale"},
    {"E0302", "Súlyos krónikus obstruktív tüdőbetegség"},
    {"E0303", "Légzésdepresszió"},
    {"E04", "Máj- és epebetegségek"},
    {"E0401", "Súlyos májkárosodás"},
    {"E0402", "Aktív májbetegség"},
    {"E0403", "Epeúti elzáródás"},
    {"E05", "Vesebetegségek"},
    {"E0501", "Súlyos vesekárosodás"},
    {"E0502", "Dializált beteg"},
    {"E06", "Emésztőrendszeri betegségek"},
    {"E0601", "Aktív peptikus fekély"},
    {"E0602", "Gyomor-bél vérzés"},
    {"E0603", "Gyulladásos bélbetegség"},
    {"E07", "Idegrendszeri és pszichiátriai betegségek"},
    {"E0701", "Epilepszia"},
    {"E0702", "Myasthenia gravis"},
    {"E0703", "Súlyos depresszió"},
    {"E08", "Anyagcsere- és endokrin betegségek"},
    {"E0801", "Diabetes mellitus"},
    {"E0802", "Hyperkalaemia"},
    {"E0803", "Pajzsmirigy-túlműködés"},
    {"E09", "Vérképzőszervi betegségek"},
    {"E0901", "Vérzékenység"},
    {"E0902", "Súlyos vérszegénység"},
    {"E0903", "Porphyria"},
    {"E10", "Túlérzékenység"},
    {"E1001", "A hatóanyaggal szembeni túlérzékenység"},
    {"E1002", "Laktózérzékenység"},
    {"E1003", "Penicillin-allergia"},
    {"E11", "Életkor"},
    {"E1101", "Gyermekkor (12 év alatt)"},
    {"E1102", "Időskor (75 év felett)"},
    {"E12", "Szembetegségek"},
    {"E1201", "Zárt zugú glaukóma"},
    {"E13", "Fertőzések"},
    {"E1301", "Aktív tuberkulózis"},
    {"E1302", "Súlyos aktív fertőzés"},
};

// Side effects: group M01..M12 with its leaves. M0101 "Fejfájás" is the planted common one.
inline constexpr CodeEntry kSideEffects[] = {
    {"M01", "Idegrendszeri mellékhatások"},
    {"M0101", "Fejfájás"},
    {"M0102", "Szédülés"},
    {"M0103", "Aluszékonyság"},
    {"M0104", "Álmatlanság"},
    {"M0105", "Remegés"},
    {"M0106", "Görcsroham"},
    {"M02", "Emésztőrendszeri mellékhatások"},
    {"M0201", "Hányinger"},
    {"M0202", "Hányás"},
    {"M0203", "Hasmenés"},
    {"M0204", "Székrekedés"},
    {"M0205", "Hasi fájdalom"},
    {"M0206", "Emésztési zavar"},
    {"M03", "Szív- és érrendszeri mellékhatások"},
    {"M0301", "Szívdobogásérzés"},
    {"M0302", "Bokaödéma"},
    {"M0303", "Vérnyomásesés"},
    {"M0304", "Kipirulás"},
    {"M04", "Bőrtünetek"},
    {"M0401", "Bőrkiütés"},
    {"M0402", "Viszketés"},
    {"M0403", "Csalánkiütés"},
    {"M0404", "Fényérzékenység"},
    {"M05", "Légzőrendszeri mellékhatások"},
    {"M0501", "Száraz köhögés"},
    {"M0502", "Nehézlégzés"},
    {"M0503", "Orrdugulás"},
    {"M06", "Vérképzőszervi mellékhatások"},
    {"M0601", "Vérszegénység"},
    {"M0602", "Vérlemezkeszám-csökkenés"},
    {"M0603", "Fehérvérsejtszám-csökkenés"},
    {"M07", "Anyagcsere-mellékhatások"},
    {"M0701", "Étvágytalanság"},
    {"M0702", "Testsúlynövekedés"},
    {"M0703", "Alacsony vércukorszint"},
    {"M08", "Máj- és epeúti mellékhatások"},
    {"M0801", "Májenzimszint-emelkedés"},
    {"M0802", "Sárgaság"},
    {"M09", "Csont- és izomrendszeri mellékhatások"},
    {"M0901", "Izomfájdalom"},
    {"M0902", "Ízületi fájdalom"},
    {"M10", "Pszichiátriai mellékhatások"},
    {"M1001", "Nyugtalanság"},
    {"M1002", "Zavartság"},
    {"M1003", "Lehangoltság"},
    {"M11", "Általános tünetek"},
    {"M1101", "Fáradtság"},
    {"M1102", "Gyengeség"},
    {"M1103", "Láz"},
    {"M12", "Immunrendszeri mellékhatások"},
    {"M1201", "Anafilaxiás reakció"},
    {"M1202", "Angioödéma"},
};

// Pseudo-ATC groups of the nutrition (T) and other (X) products, in the same 1/3/4/5/7 shape.
inline constexpr CodeEntry kPseudoGroups[] = {
    {"T", "Tápszerek"},
    {"T01", "Anyagcsere-betegségek speciális tápszerei"},
    {"T01A", "Aminosav-anyagcserezavarok tápszerei"},
    {"T01AA", "Fenilketonuria tápszerei"},
    {"T01AA01", "fenilalaninmentes aminosavkeverék"},
    {"T01AA02", "glikomakropeptid-alapú tápszer"},
    {"T01AB", "Juharszörp-betegség tápszerei"},
    {"T01AB01", "elágazó láncú aminosavmentes keverék"},
    {"T02", "Gyógyászati célra szánt tápszerek"},
    {"T02A", "Teljes értékű tápszerek"},
    {"T02AA", "Normál energiatartalmú tápszerek"},
    {"T02AA01", "standard polimer tápszer"},
    {"T02AA02", "rostdúsított polimer tápszer"},
    {"T02AB", "Energiadús tápszerek"},
    {"T02AB01", "energiadús tápszer"},
    {"T02AB02", "fehérjedús tápszer"},
    {"T02B", "Kiegészítő tápszerek"},
    {"T02BA", "Fehérje-kiegészítők"},
    {"T02BA01", "tejfehérje-koncentrátum"},
    {"T03", "Csecsemőtápszerek"},
    {"T03A", "Speciális csecsemőtápszerek"},
    {"T03AA", "Tehéntejfehérje-allergia tápszerei"},
    {"T03AA01", "extenzíven hidrolizált fehérje"},
    {"T03AA02", "aminosavalapú csecsemőtápszer"},
    {"X", "Egyéb termékek"},
    {"X01", "Gyógyászati segédeszközök"},
    {"X01A", "Kötszerek"},
    {"X01AA", "Sebfedő kötszerek"},
    {"X01AA01", "steril gézlap"},
    {"X01AA02", "hidrokolloid kötszer"},
    {"X01B", "Diagnosztikai eszközök"},
    {"X01BA", "Vércukormérés eszközei"},
    {"X01BA01", "vércukorszint-mérő tesztcsík"},
    {"X01BA02", "ujjbegyszúró lándzsa"},
    {"X02", "Gyógyhatású készítmények"},
    {"X02A", "Növényi gyógyhatású készítmények"},
    {"X02AA", "Gyógyteák"},
    {"X02AA01", "kamillavirág"},
    {"X02AA02", "borsmentalevél"},
    {"X02AB", "Növényi kivonatok"},
    {"X02AB01", "galagonya-kivonat"},
    {"X02AB02", "ginkgo-kivonat"},
};

// Pharmaceutical forms: the name in product names, the x.dat abbreviation (at most 11 bytes), the
// #ter form text, and how a package is counted.
enum class PackKind { Pieces, Millilitres, Grams, Doses };
struct FormEntry {
    const char* upper;
    const char* abbreviation;
    const char* text;
    PackKind pack;
};
inline constexpr FormEntry kForms[] = {
    {"TABLETTA", "tabl.", "tabletta", PackKind::Pieces},                             // 0
    {"FILMTABLETTA", "filmtabl.", "filmtabletta", PackKind::Pieces},                 // 1
    {"KEMÉNY KAPSZULA", "kem.kaps.", "kemény kapszula", PackKind::Pieces},           // 2
    {"LÁGY KAPSZULA", "lágy kaps.", "lágy kapszula", PackKind::Pieces},              // 3
    {"RETARD TABLETTA", "ret.tabl.", "retard tabletta", PackKind::Pieces},           // 4
    {"PEZSGŐTABLETTA", "pezsgőtabl.", "pezsgőtabletta", PackKind::Pieces},           // 5
    {"OLDATOS INJEKCIÓ", "old.inj.", "oldatos injekció", PackKind::Doses},           // 6
    {"SZIRUP", "szirup", "szirup", PackKind::Millilitres},                           // 7
    {"BELSŐLEGES OLDAT", "bels.old.", "belsőleges oldat", PackKind::Millilitres},    // 8
    {"KENŐCS", "kenőcs", "kenőcs", PackKind::Grams},                                 // 9
    {"KRÉM", "krém", "krém", PackKind::Grams},                                       // 10
    {"GÉL", "gél", "gél", PackKind::Grams},                                          // 11
    {"OLDATOS SZEMCSEPP", "szemcsepp", "oldatos szemcsepp", PackKind::Millilitres},  // 12
    {"ADAGOLT ORRSPRAY", "orrspray", "adagolt orrspray", PackKind::Millilitres},     // 13
    {"VÉGBÉLKÚP", "végbélkúp", "végbélkúp", PackKind::Pieces},                       // 14
    {"TRANSZDERMÁLIS TAPASZ", "tapasz", "transzdermális tapasz", PackKind::Pieces},  // 15
    {"GRANULÁTUM", "granulátum", "granulátum", PackKind::Grams},                     // 16
    {"INHALÁCIÓS POR", "inh.por", "inhalációs por", PackKind::Doses},                // 17
    {"POR", "por", "por", PackKind::Grams},                                          // 18
    {"ITAL", "ital", "ital", PackKind::Millilitres},                                 // 19
    {"TESZTCSÍK", "tesztcsík", "tesztcsík", PackKind::Pieces},                       // 20
    {"DARAB", "db", "darab", PackKind::Pieces},                                      // 21
    {"FILTERES TEA", "tea", "filteres tea", PackKind::Pieces},                       // 22
};
inline constexpr int kFormCount = static_cast<int>(std::size(kForms));

// Forms a medicine of an anatomical group comes in.
[[nodiscard]] std::vector<int> formsOfGroup(char group);

// Relative number of medicines per substance of an anatomical group.
[[nodiscard]] int weightOfGroup(char group);

inline constexpr std::array<const char*, 16> kCompanies = {
    "TEVA",   "SANDOZ", "RATIOPHARM", "ACTAVIS", "RICHTER",      "EGIS",       "ZENTIVA",   "KRKA",
    "ACCORD", "MYLAN",  "AUROBINDO",  "STADA",   "PHARMACENTER", "MEDOCHEMIE", "GENERICON", "PHARMAS",
};
inline constexpr std::array<const char*, 14> kHolders = {
    "Teva Gyógyszergyár Zrt.",
    "Sandoz Hungária Kft.",
    "ratiopharm Hungária Kft.",
    "Actavis Group PTC ehf.",
    "Richter Gedeon Nyrt.",
    "Egis Gyógyszergyár Zrt.",
    "Zentiva k.s.",
    "Krka d.d. Novo mesto",
    "Accord Healthcare Polska Sp. z o.o.",
    "Mylan Hungary Kft.",
    "Aurobindo Pharma (Malta) Ltd.",
    "STADA Hungary Kft.",
    "Pharmacenter Hungary Kft.",
    "Medochemie Ltd.",
};
inline constexpr std::array<const char*, 24> kSyllables = {
    "ÉR",  "TÖ",  "RŐ", "VA", "NO", "LI", "PRO", "KAR", "DI", "ZEN", "MA", "XI",
    "SZÍ", "GYÓ", "LÁ", "NŐ", "KU", "ÚR", "BÉ",  "FŰ",  "TI", "RA",  "SO", "MÜ",
};
inline constexpr std::array<const char*, 8> kBrandEndings = {"", "", "IN", "OL", "AN", "ÉX", "ŐR", "ÜL"};
inline constexpr std::array<const char*, 5> kBrandAdditions = {"", "", "", " FORTE", " MITE"};
inline constexpr std::array<const char*, 15> kStrengths = {
    "1 MG",  "2,5 MG", "5 MG",   "10 MG",  "20 MG",  "25 MG",  "40 MG",   "50 MG",
    "80 MG", "100 MG", "150 MG", "200 MG", "250 MG", "500 MG", "1000 MG",
};
inline constexpr std::array<int, 10> kPieces = {10, 14, 20, 28, 30, 50, 56, 60, 90, 100};

inline constexpr std::array<const char*, 7> kNutritionBrands = {
    "NUTRIVIT", "TÁPLÓMIX", "ENERGIA PLUSZ", "AMINOVIT", "FEHÉRJEDÚS", "KÍMÉLŐ", "ERŐNÖVELŐ",
};
inline constexpr std::array<const char*, 6> kFlavours = {
    "VANÍLIA ÍZŰ", "EPER ÍZŰ", "CSOKOLÁDÉ ÍZŰ", "ÍZESÍTETLEN", "BANÁN ÍZŰ", "KÁVÉ ÍZŰ",
};

// Indications by anatomical group (T and X included).
[[nodiscard]] std::vector<const char*> indicationsOf(char group);

inline constexpr std::array<const char*, 6> kPatientNotes = {
    "A gyógyszer befolyásolhatja a gépjárművezetéshez és a gépek kezeléséhez szükséges képességeket.",
    "A kezelés alatt alkoholt fogyasztani tilos.",
    "A tablettát szétrágás nélkül, elegendő folyadékkal kell bevenni.",
    "A kezelés alatt kerülni kell az erős napfényt és a szoláriumot.",
    "A kezelést orvosi utasítás nélkül nem szabad abbahagyni.",
    "Étkezés előtt fél órával, éhgyomorra ajánlott bevenni.",
};
inline constexpr std::array<const char*, 5> kPoisoning = {
    "Túladagolás esetén tüneti és támogató kezelés szükséges.",
    "Gyomormosás és aktív szén adása mérlegelendő.",
    "Specifikus ellenszere nem ismert.",
    "A beteget kórházban, a keringés és a légzés folyamatos ellenőrzése mellett kell megfigyelni.",
    "Súlyos mérgezés esetén forduljon az Egészségügyi Toxikológiai Tájékoztató Szolgálathoz.",
};
inline constexpr std::array<const char*, 6> kWarnings = {
    "Vesekárosodásban a vesefunkció rendszeres ellenőrzése szükséges.",
    "A készítmény laktózt tartalmaz.",
    "Időseknél fokozott óvatosság szükséges.",
    "Terhesség alatt csak az előny és a kockázat gondos mérlegelése után alkalmazható.",
    "Hosszan tartó alkalmazás esetén a vérkép rendszeres ellenőrzése javasolt.",
    "Hirtelen elhagyása elvonási tüneteket okozhat, az adagot fokozatosan kell csökkenteni.",
};
inline constexpr std::array<const char*, 4> kContraindicationTexts = {
    "* A készítmény bármely segédanyagával szembeni túlérzékenység.",
    "* Egyidejű alkalmazás más, azonos hatóanyagú készítménnyel.",
    "* Ritka, örökletes galaktózintolerancia.",
    "* Súlyos, nem kezelt elektrolitzavar.",
};

// Indication points of the increased and highlighted supports (rend.dat): condition texts.
inline constexpr std::array<const char*, 24> kRegulationConditions = {
    "Szövődményes 2-es típusú cukorbetegség kezelésére, ha a metformin nem elegendő",
    "Igazolt familiáris hypercholesterinaemia kezelésére",
    "Krónikus szívelégtelenség (NYHA II-IV) kezelésére, kardiológus javaslatára",
    "Pitvarfibrilláció miatt fennálló stroke-kockázat csökkentésére",
    "Közepesen súlyos és súlyos asztma fenntartó kezelésére, tüdőgyógyász javaslatára",
    "Krónikus obstruktív tüdőbetegség kezelésére",
    "Epilepszia kezelésére, neurológus javaslatára",
    "Major depresszió kezelésére, ha legalább két korábbi kezelés eredménytelen volt",
    "Skizofrénia kezelésére, pszichiáter javaslatára",
    "Parkinson-kór kezelésére, neurológus javaslatára",
    "Rheumatoid arthritis kezelésére, reumatológus javaslatára",
    "Postmenopausás csontritkulás kezelésére, csonttörés után",
    "Glaukóma kezelésére, szemész javaslatára",
    "Krónikus hepatitis C fertőzés kezelésére, kijelölt centrumban",
    "Daganatos betegség miatti fájdalom csillapítására",
    "Vashiányos vérszegénység kezelésére, ha a szájon át adott vas nem hatásos",
    "Mélyvénás trombózis kezelésére és megelőzésére",
    "Sclerosis multiplex kezelésére, kijelölt centrumban",
    "Pajzsmirigy-alulműködés pótló kezelésére",
    "Fenilketonuria diétás kezelésére, anyagcsere-centrum javaslatára",
    "Alultápláltság kezelésére, ha a testtömegindex 18,5 alatt van",
    "Inzulinnal kezelt cukorbetegek vércukor-önellenőrzésére",
    "Krónikus vesebetegség okozta vérszegénység kezelésére",
    "Emlőrák kiegészítő kezelésére, onkológus javaslatára",
};

inline constexpr std::array<const char*, 4> kIncreasedPrefixes = {"_", "_", "&", "*"};

// ---------------------------------------------------------------------------------------------------
// Codes and names

// "C08CA01" -> "C08CA-01"; "C08CA" -> "C08CA-"; shorter codes unchanged.
[[nodiscard]] std::string rovanelCode(std::string_view international);

// The product code serials: 00..99, then A0..Z9, then AA..ZZ.
inline constexpr int kSerialsPerSubstance = 100 + 260 + 676;
[[nodiscard]] std::string serialText(int serial);

[[nodiscard]] std::string number(long long value);

}  // namespace rovanel::generation
