#include "gen/DatabaseGenerator.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "db/Cp1250.h"
#include "db/HungarianCollation.h"
#include "db/MessageCatalog.h"
#include "db/RecordLayout.h"
#include "gen/AtcBook.h"
#include "gen/GeneratedFile.h"
#include "gen/PictureWriter.h"

namespace rovanel
{
namespace
{

// ---------------------------------------------------------------------------------------------------
// Randomness of our own (splitmix64): the standard distributions differ between libraries, and the
// same seed must give the same bytes everywhere.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}
    std::uint64_t next()
    {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    // 0 .. bound-1 (bound > 0); the modulo bias is irrelevant at these sizes and identical everywhere.
    int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(bound)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool percent(int chance) { return below(100) < chance; }
    template <typename T>
    const T& pick(const std::vector<T>& items)
    {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    template <typename T, std::size_t N>
    const T& pick(const std::array<T, N>& items)
    {
        return items[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }

private:
    std::uint64_t m_state;
};

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }

// ---------------------------------------------------------------------------------------------------
// Fixed catalogues (UTF-8 here, converted once).

struct CodeEntry {
    const char* code;
    const char* name;
};

// Contraindications: group E01..E13 with its leaves. E0101 "Terhesség" is the planted one.
constexpr CodeEntry kContraindications[] = {
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
constexpr CodeEntry kSideEffects[] = {
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
constexpr CodeEntry kPseudoGroups[] = {
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
constexpr FormEntry kForms[] = {
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
constexpr int kFormCount = static_cast<int>(std::size(kForms));

// Forms a medicine of an anatomical group comes in.
std::vector<int> formsOfGroup(char group)
{
    switch (group) {
        case 'D':
            return {9, 10, 10, 11, 11};
        case 'S':
            return {12, 12, 9};
        case 'R':
            return {1, 0, 7, 13, 17, 8};
        case 'J':
            return {1, 1, 2, 0, 6, 7};
        case 'L':
            return {6, 6, 1, 2};
        case 'B':
            return {6, 1, 0, 8};
        case 'V':
            return {6, 0, 8, 18};
        case 'G':
            return {1, 0, 14, 10};
        case 'M':
            return {1, 0, 11, 2, 6};
        case 'N':
            return {1, 0, 2, 4, 8, 15, 14};
        case 'A':
            return {0, 1, 2, 5, 16, 8, 14};
        default:
            return {0, 1, 1, 2, 4};
    }
}

// Relative number of medicines per substance of an anatomical group.
int weightOfGroup(char group)
{
    switch (group) {
        case 'C':
        case 'N':
            return 6;
        case 'A':
            return 4;
        case 'J':
        case 'M':
        case 'R':
            return 3;
        case 'B':
        case 'G':
        case 'L':
        case 'D':
            return 2;
        default:
            return 1;
    }
}

constexpr std::array<const char*, 16> kCompanies = {
    "TEVA",   "SANDOZ", "RATIOPHARM", "ACTAVIS", "RICHTER",      "EGIS",       "ZENTIVA",   "KRKA",
    "ACCORD", "MYLAN",  "AUROBINDO",  "STADA",   "PHARMACENTER", "MEDOCHEMIE", "GENERICON", "PHARMAS",
};
constexpr std::array<const char*, 14> kHolders = {
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
constexpr std::array<const char*, 24> kSyllables = {
    "ÉR",  "TÖ",  "RŐ", "VA", "NO", "LI", "PRO", "KAR", "DI", "ZEN", "MA", "XI",
    "SZÍ", "GYÓ", "LÁ", "NŐ", "KU", "ÚR", "BÉ",  "FŰ",  "TI", "RA",  "SO", "MÜ",
};
constexpr std::array<const char*, 8> kBrandEndings = {"", "", "IN", "OL", "AN", "ÉX", "ŐR", "ÜL"};
constexpr std::array<const char*, 5> kBrandAdditions = {"", "", "", " FORTE", " MITE"};
constexpr std::array<const char*, 15> kStrengths = {
    "1 MG",  "2,5 MG", "5 MG",   "10 MG",  "20 MG",  "25 MG",  "40 MG",   "50 MG",
    "80 MG", "100 MG", "150 MG", "200 MG", "250 MG", "500 MG", "1000 MG",
};
constexpr std::array<int, 10> kPieces = {10, 14, 20, 28, 30, 50, 56, 60, 90, 100};

constexpr std::array<const char*, 7> kNutritionBrands = {
    "NUTRIVIT", "TÁPLÓMIX", "ENERGIA PLUSZ", "AMINOVIT", "FEHÉRJEDÚS", "KÍMÉLŐ", "ERŐNÖVELŐ",
};
constexpr std::array<const char*, 6> kFlavours = {
    "VANÍLIA ÍZŰ", "EPER ÍZŰ", "CSOKOLÁDÉ ÍZŰ", "ÍZESÍTETLEN", "BANÁN ÍZŰ", "KÁVÉ ÍZŰ",
};

// Indications by anatomical group (T and X included).
std::vector<const char*> indicationsOf(char group)
{
    switch (group) {
        case 'A':
            return {"Gastrooesophagealis reflux betegség kezelése.", "Gyomor- és nyombélfekély kezelése.",
                    "2-es típusú cukorbetegség kezelése diéta és testmozgás mellett.",
                    "Székrekedés rövid távú kezelése.", "Vitamin- és ásványianyag-hiány megelőzése."};
        case 'B':
            return {"Vénás thromboembolia megelőzése.", "Vashiányos vérszegénység kezelése.",
                    "Szívinfarktus utáni másodlagos megelőzés."};
        case 'C':
            return {"Esszenciális magas vérnyomás kezelése.", "Stabil angina pectoris kezelése.",
                    "Primer hypercholesterinaemia kezelése diéta kiegészítéseként.",
                    "Krónikus szívelégtelenség kezelése.", "Szívritmuszavarok megelőzése."};
        case 'D':
            return {"Ekcéma és bőrgyulladás helyi kezelése.", "Bőrgombásodás kezelése.",
                    "Pattanásos bőr kezelése.", "Felületi sebek fertőtlenítése."};
        case 'G':
            return {"Fogamzásgátlás.", "Jóindulatú prosztata-megnagyobbodás tüneteinek kezelése.",
                    "Hüvelyi gombás fertőzés kezelése.", "Változókori panaszok enyhítése."};
        case 'H':
            return {"Pajzsmirigy-alulműködés kezelése.", "Mellékvesekéreg-elégtelenség pótló kezelése.",
                    "Gyulladásos és allergiás állapotok kezelése."};
        case 'J':
            return {"Érzékeny kórokozók okozta légúti fertőzések kezelése.", "Húgyúti fertőzések kezelése.",
                    "Övsömör kezelése.", "Bőr- és lágyrészfertőzések kezelése."};
        case 'L':
            return {"Emlőrák kiegészítő kezelése.", "Krónikus myeloid leukaemia kezelése.",
                    "Közepesen súlyos és súlyos rheumatoid arthritis kezelése.",
                    "Sclerosis multiplex relapszusainak megelőzése."};
        case 'M':
            return {"Rheumatoid arthritis és arthrosis tüneti kezelése.", "Csontritkulás kezelése.",
                    "Köszvény kezelése.", "Izomgörcsök enyhítése."};
        case 'N':
            return {"Közepesen erős és erős fájdalom csillapítása.",
                    "Major depressziós epizód kezelése.",
                    "Generalizált szorongásos zavar kezelése.",
                    "Epilepszia kezelése.",
                    "Alvászavar rövid távú kezelése.",
                    "Parkinson-kór kezelése."};
        case 'P':
            return {"Bélférgesség kezelése.", "Malária megelőzése és kezelése."};
        case 'R':
            return {"Asztma fenntartó kezelése.", "Allergiás nátha tüneteinek enyhítése.",
                    "Hurutos köhögés kezelése.", "Orrdugulás rövid távú enyhítése."};
        case 'S':
            return {"Zöldhályog kezelése.", "Bakteriális kötőhártya-gyulladás kezelése.",
                    "Szemszárazság tüneteinek enyhítése."};
        case 'T':
            return {"Fenilketonuriás betegek diétás kezelése.", "Alultápláltság kiegészítő táplálása.",
                    "Tehéntejfehérje-allergiás csecsemők táplálása.",
                    "Betegség miatti fokozott fehérjeigény."};
        case 'X':
            return {"Sebellátás és sebkötözés.", "Vércukorszint önellenőrzése.",
                    "Enyhe emésztési panaszok enyhítése.", "Általános közérzet javítása."};
        default:
            return {"Mérgezések kezelése.", "Diagnosztikai célú alkalmazás."};
    }
}

constexpr std::array<const char*, 6> kPatientNotes = {
    "A gyógyszer befolyásolhatja a gépjárművezetéshez és a gépek kezeléséhez szükséges képességeket.",
    "A kezelés alatt alkoholt fogyasztani tilos.",
    "A tablettát szétrágás nélkül, elegendő folyadékkal kell bevenni.",
    "A kezelés alatt kerülni kell az erős napfényt és a szoláriumot.",
    "A kezelést orvosi utasítás nélkül nem szabad abbahagyni.",
    "Étkezés előtt fél órával, éhgyomorra ajánlott bevenni.",
};
constexpr std::array<const char*, 5> kPoisoning = {
    "Túladagolás esetén tüneti és támogató kezelés szükséges.",
    "Gyomormosás és aktív szén adása mérlegelendő.",
    "Specifikus ellenszere nem ismert.",
    "A beteget kórházban, a keringés és a légzés folyamatos ellenőrzése mellett kell megfigyelni.",
    "Súlyos mérgezés esetén forduljon az Egészségügyi Toxikológiai Tájékoztató Szolgálathoz.",
};
constexpr std::array<const char*, 6> kWarnings = {
    "Vesekárosodásban a vesefunkció rendszeres ellenőrzése szükséges.",
    "A készítmény laktózt tartalmaz.",
    "Időseknél fokozott óvatosság szükséges.",
    "Terhesség alatt csak az előny és a kockázat gondos mérlegelése után alkalmazható.",
    "Hosszan tartó alkalmazás esetén a vérkép rendszeres ellenőrzése javasolt.",
    "Hirtelen elhagyása elvonási tüneteket okozhat, az adagot fokozatosan kell csökkenteni.",
};
constexpr std::array<const char*, 4> kContraindicationTexts = {
    "* A készítmény bármely segédanyagával szembeni túlérzékenység.",
    "* Egyidejű alkalmazás más, azonos hatóanyagú készítménnyel.",
    "* Ritka, örökletes galaktózintolerancia.",
    "* Súlyos, nem kezelt elektrolitzavar.",
};

// Indication points of the increased and highlighted supports (rend.dat): condition texts.
constexpr std::array<const char*, 24> kRegulationConditions = {
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

constexpr std::array<const char*, 4> kIncreasedPrefixes = {"_", "_", "&", "*"};

// ---------------------------------------------------------------------------------------------------
// Codes and names

// "C08CA01" -> "C08CA-01"; "C08CA" -> "C08CA-"; shorter codes unchanged.
std::string rovanelCode(std::string_view international)
{
    std::string code(international.substr(0, std::min<std::size_t>(5, international.size())));
    if (international.size() >= 5) code += '-';
    if (international.size() > 5) code += international.substr(5);
    return code;
}

// The product code serials: 00..99, then A0..Z9, then AA..ZZ.
constexpr int kSerialsPerSubstance = 100 + 260 + 676;
std::string serialText(int serial)
{
    std::string text(2, '0');
    if (serial < 100) {
        text[0] = static_cast<char>('0' + serial / 10);
        text[1] = static_cast<char>('0' + serial % 10);
    } else if (serial < 360) {
        text[0] = static_cast<char>('A' + (serial - 100) / 10);
        text[1] = static_cast<char>('0' + (serial - 100) % 10);
    } else {
        text[0] = static_cast<char>('A' + (serial - 360) / 26);
        text[1] = static_cast<char>('A' + (serial - 360) % 26);
    }
    return text;
}

std::string number(long long value) { return std::to_string(value); }

}  // namespace

namespace
{

struct Group {
    std::string code;           // Rovanel form
    std::string international;  // as printed
    std::string name;           // Windows-1250
};

struct Substance {
    std::string international;
    std::string code;  // 8 characters
    std::string name;  // Windows-1250
    char anatomical = 0;
    int serials = 0;  // product codes handed out
};

enum class Kind { Medicine, Nutrition, Other };

struct Regulation {
    std::string code;
    bool separateBudget = false;
    bool increased = false;  // emelt (prefixed code) rather than kiemelt
    int rate = 100;          // per cent of the price the support covers
    std::string text;
};

struct Product {
    Kind kind = Kind::Medicine;
    std::vector<int> substances;  // [0] is the product's own ATC substance
    std::string code;
    std::string name;
    std::string sortKey;
    int form = 0;
    std::string strength;  // "5 mg", Windows-1250, lower case
    int packAmount = 0;
    std::string holder;
    int price = 0, support = 0;
    std::string supportLine;
    bool combination = false;
    bool deleted = false;  // TT flag
    std::vector<std::string> careful, avoid, contraindications, sideEffects;
    std::vector<std::string> terLines, indication, dosage, patient, contraText, poisoning, warnings,
        otherNames;
};

// Everything one generation run builds before it writes.
class Generator
{
public:
    explicit Generator(const GeneratorOptions& options)
        : m_random(options.seed ^ 0x526F76616E656CULL), m_options(options)
    {
    }
    bool build(std::string* error);
    bool write(const std::filesystem::path& directory, std::string* error);
    PlantedCases planted;

private:
    void buildCatalogues();
    int pickMedicineSubstance();
    void makeMedicine(Product& product, int substance);
    void makeNutrition(Product& product, int substance);
    void makeOther(Product& product, int substance);
    bool assignCode(Product& product);
    void makeUniqueName(Product& product, const std::string& stem, const std::string& tail);
    void makeTexts(Product& product);
    void makeSupportLine(Product& product, int ttt);
    std::string interactionCode(const Product& self);
    void plantCases();
    void sortAndIndex();
    std::string productBlock(const Product& product) const;
    std::string regulationTree() const;
    std::string ownCode(const Product& product, std::size_t i) const
    {
        return m_substances[static_cast<std::size_t>(product.substances[i])].code;
    }

    Random m_random;
    GeneratorOptions m_options;
    std::map<std::string, Group> m_groups;  // by Rovanel code: sorted order is the tree's pre-order
    std::vector<Substance> m_substances;
    std::vector<int> m_medicineSubstances, m_nutritionSubstances, m_otherSubstances;
    std::vector<long long> m_cumulativeWeights;
    std::vector<int> m_bigGroupSubstances;
    std::set<int> m_reserved;
    std::vector<Regulation> m_regulations;
    std::vector<Product> m_products;       // generation order
    std::vector<std::size_t> m_order;      // record number -> generation index
    std::vector<std::int32_t> m_recordOf;  // generation index -> record number
    std::set<std::string> m_names;
    std::vector<std::string> m_formAbbreviations;
    std::array<int, 6> m_plantedGeneration{};    // avoid pair, careful pair, contraindicated, long line
    std::array<std::string, 2> m_reservedNames;  // the 600- and 601-product ingredients
};

void Generator::buildCatalogues()
{
    for (const AtcBookEntry& entry : atcBook()) {
        const std::string international = entry.code;
        Group group{rovanelCode(international), international, cp(entry.name)};
        if (international.size() == 7) {
            m_medicineSubstances.push_back(static_cast<int>(m_substances.size()));
            m_substances.push_back({international, group.code, group.name, international[0], 0});
        }
        m_groups.emplace(group.code, std::move(group));
    }
    for (const CodeEntry& entry : kPseudoGroups) {
        const std::string international = entry.code;
        Group group{rovanelCode(international), international, cp(entry.name)};
        if (international.size() == 7) {
            (international[0] == 'T' ? m_nutritionSubstances : m_otherSubstances)
                .push_back(static_cast<int>(m_substances.size()));
            m_substances.push_back({international, group.code, group.name, international[0], 0});
        }
        m_groups.emplace(group.code, std::move(group));
    }
    // One level-2 group is made large on purpose (C09 when the book has it).
    std::string big = "C09";
    if (!m_groups.count(big))
        big = m_substances[static_cast<std::size_t>(m_medicineSubstances.front())].code.substr(0, 3);
    long long total = 0;
    for (int s : m_medicineSubstances) {
        const Substance& substance = m_substances[static_cast<std::size_t>(s)];
        total += weightOfGroup(substance.anatomical);
        m_cumulativeWeights.push_back(total);
        if (substance.code.compare(0, 3, big) == 0) m_bigGroupSubstances.push_back(s);
    }
    for (const FormEntry& form : kForms) m_formAbbreviations.push_back(cp(form.abbreviation));

    for (std::size_t j = 0; j < kRegulationConditions.size(); ++j) {
        Regulation regulation;
        const int pointNumber = 10 + static_cast<int>(j) * 3;
        regulation.increased = j % 3 != 0;
        if (regulation.increased) {
            const std::string prefix = kIncreasedPrefixes[j % kIncreasedPrefixes.size()];
            regulation.code = prefix + "EU" + number(pointNumber) + "/" + static_cast<char>('a' + j % 2);
            regulation.rate = prefix == "_" ? 90 : prefix == "&" ? 70 : 50;
        } else {
            regulation.code = "EU" + number(pointNumber);
        }
        regulation.separateBudget = j % 7 == 3;
        regulation.text = cp(std::string(regulation.increased ? "Emelt " : "Kiemelt ") +
                             number(regulation.rate) + " %: " + kRegulationConditions[j] + ".");
        m_regulations.push_back(std::move(regulation));
    }
}

int Generator::pickMedicineSubstance()
{
    for (;;) {
        int s = 0;
        if (m_random.percent(8) && !m_bigGroupSubstances.empty()) {
            s = m_random.pick(m_bigGroupSubstances);
        } else {
            const long long target = static_cast<long long>(
                m_random.next() % static_cast<std::uint64_t>(m_cumulativeWeights.back()));
            const auto at = std::upper_bound(m_cumulativeWeights.begin(), m_cumulativeWeights.end(), target);
            s = m_medicineSubstances[static_cast<std::size_t>(at - m_cumulativeWeights.begin())];
        }
        if (!m_reserved.count(s) && m_substances[static_cast<std::size_t>(s)].serials < kSerialsPerSubstance)
            return s;
    }
}

bool Generator::assignCode(Product& product)
{
    Substance& substance = m_substances[static_cast<std::size_t>(product.substances.front())];
    if (substance.serials >= kSerialsPerSubstance) return false;
    product.code = substance.code + serialText(substance.serials++);
    return true;
}

void Generator::makeUniqueName(Product& product, const std::string& stem, const std::string& tail)
{
    // Names are at most 48 bytes: the stem gives way to the strength, form and package.
    const std::size_t room = tail.size() + 1 < 48 ? 48 - tail.size() - 1 : 0;
    std::string name = stem.substr(0, room);
    while (!name.empty() && (name.back() == ' ' || name.back() == '-')) name.pop_back();
    name += ' ' + tail;
    for (int attempt = 0; m_names.count(name) && attempt < 100; ++attempt) {
        // A second package of the same product: another pack size, then a letter after the stem.
        std::string variant = stem.substr(0, room > 3 ? room - 3 : room);
        while (!variant.empty() && (variant.back() == ' ' || variant.back() == '-')) variant.pop_back();
        name = variant + " " + static_cast<char>('A' + attempt % 26) +
               (attempt >= 26 ? number(attempt / 26) : "") + " " + tail;
        if (name.size() > 48) name.resize(48);
    }
    m_names.insert(name);
    product.name = name;
    product.sortKey = hungarianSortKey(name);
}

void Generator::makeMedicine(Product& product, int substanceIndex)
{
    product.kind = Kind::Medicine;
    product.substances = {substanceIndex};
    const Substance& substance = m_substances[static_cast<std::size_t>(substanceIndex)];
    if (!m_reserved.count(substanceIndex) && m_random.percent(8)) {
        // A combination: one or two further substances, preferably of the same therapeutic subgroup.
        product.combination = true;
        const int extra = m_random.between(1, 2);
        for (int e = 0; e < extra; ++e) {
            int other = pickMedicineSubstance();
            for (int tries = 0; tries < 8; ++tries) {
                const int candidate = m_medicineSubstances[static_cast<std::size_t>(
                    m_random.below(static_cast<int>(m_medicineSubstances.size())))];
                if (!m_reserved.count(candidate) &&
                    m_substances[static_cast<std::size_t>(candidate)].code.compare(0, 3, substance.code, 0,
                                                                                   3) == 0) {
                    other = candidate;
                    break;
                }
            }
            if (std::find(product.substances.begin(), product.substances.end(), other) ==
                product.substances.end())
                product.substances.push_back(other);
        }
    }
    product.form = m_random.pick(formsOfGroup(substance.anatomical));
    const FormEntry& form = kForms[product.form];
    std::string stem;
    const std::string generic = upperCaseCp1250(substance.name) + "-" + m_random.pick(kCompanies);
    // A generic name that would have to be cut gives way to a brand name.
    if (m_random.percent(55) && generic.size() <= 30) {
        stem = generic;
    } else {
        const int syllables = m_random.between(2, 3);
        for (int s = 0; s < syllables; ++s) stem += cp(m_random.pick(kSyllables));
        stem += cp(m_random.pick(kBrandEndings));
        stem += m_random.pick(kBrandAdditions);
    }
    std::string strength = m_random.pick(kStrengths);
    std::string pack;
    switch (form.pack) {
        case PackKind::Pieces:
            product.packAmount = m_random.pick(kPieces);
            pack = number(product.packAmount) + "X";
            break;
        case PackKind::Doses:
            product.packAmount = m_random.pick(std::array<int, 5>{1, 5, 10, 30, 60});
            pack = number(product.packAmount) + "X";
            break;
        case PackKind::Millilitres:
            product.packAmount = m_random.pick(std::array<int, 5>{5, 10, 100, 150, 200});
            pack = "1X" + number(product.packAmount) + " ML";
            strength =
                m_random.pick(std::array<const char*, 4>{"1 MG/ML", "5 MG/ML", "10 MG/ML", "20 MG/ML"});
            break;
        case PackKind::Grams:
            product.packAmount = m_random.pick(std::array<int, 4>{15, 30, 50, 100});
            pack = "1X" + number(product.packAmount) + " G";
            strength = m_random.pick(std::array<const char*, 4>{"0,1%", "0,5%", "1%", "2%"});
            break;
    }
    product.strength = cp(strength);
    for (char& c : product.strength)
        c = static_cast<char>(c == 'M' ? 'm' : c == 'G' ? 'g' : c == 'L' ? 'l' : c);
    makeUniqueName(product, stem, strength + " " + cp(form.upper) + " " + pack);
    product.holder = cp(m_random.pick(kHolders));
}

void Generator::makeNutrition(Product& product, int substanceIndex)
{
    product.kind = Kind::Nutrition;
    product.substances = {substanceIndex};
    const bool powder = m_random.percent(40);
    product.form = powder ? 18 : 19;
    product.packAmount = powder ? m_random.pick(std::array<int, 3>{400, 500, 800}) : 200;
    const std::string tail = cp(m_random.pick(kFlavours)) + (powder ? " POR " : " ITAL ") +
                             (powder ? number(product.packAmount) + " G"
                                     : number(m_random.pick(std::array<int, 3>{4, 24, 32})) + "X200 ML");
    product.strength = "-";
    makeUniqueName(product, cp(m_random.pick(kNutritionBrands)), tail);
    product.holder = cp(m_random.pick(
        std::array<const char*, 3>{"Nutricia Zrt.", "Fresenius Kabi Hungary Kft.", "Nestlé Hungária Kft."}));
}

void Generator::makeOther(Product& product, int substanceIndex)
{
    product.kind = Kind::Other;
    product.substances = {substanceIndex};
    const Substance& substance = m_substances[static_cast<std::size_t>(substanceIndex)];
    const std::string_view code = substance.international;
    product.form = code.starts_with("X01BA01") ? 20 : code.starts_with("X02AA") ? 22 : 21;
    product.packAmount = m_random.pick(std::array<int, 4>{10, 25, 50, 100});
    product.strength = "-";
    makeUniqueName(product, upperCaseCp1250(substance.name) + " " + m_random.pick(kCompanies),
                   number(product.packAmount) + "X");
    product.holder = cp(m_random.pick(kHolders));
}

// A careful or avoid code: a prefix (1 to 8 characters) of another medicine's own code.
std::string Generator::interactionCode(const Product& self)
{
    for (;;) {
        const Product& other =
            m_products[static_cast<std::size_t>(m_random.below(static_cast<int>(m_products.size())))];
        if (&other == &self || other.kind != Kind::Medicine) continue;
        const std::string code = ownCode(other, 0);
        const int roll = m_random.below(100);
        const std::size_t length = roll < 2 ? 1 : roll < 15 ? 3 : roll < 40 ? 4 : roll < 70 ? 6 : 8;
        if (length < 8 && self.code.compare(0, length, code, 0, length) == 0) continue;
        return code.substr(0, length);
    }
}

void Generator::makeTexts(Product& product)
{
    const Substance& substance = m_substances[static_cast<std::size_t>(product.substances.front())];
    const FormEntry& form = kForms[product.form];
    const char group = substance.anatomical;
    const std::string formText = cp(form.text);

    // #ter: product data, "label: value".
    std::string ingredients;
    for (std::size_t i = 0; i < product.substances.size(); ++i) {
        if (i) ingredients += ", ";
        ingredients += m_substances[static_cast<std::size_t>(product.substances[i])].name;
    }
    product.terLines.push_back(cp("Hatóanyag: ") + ingredients +
                               (product.strength != "-" ? " " + product.strength : ""));
    product.terLines.push_back(cp("Gyógyszerforma: ") + formText);
    std::string packText;
    switch (form.pack) {
        case PackKind::Pieces:
        case PackKind::Doses:
            packText = number(product.packAmount) + " db";
            break;
        case PackKind::Millilitres:
            packText = number(product.packAmount) + " ml";
            break;
        case PackKind::Grams:
            packText = number(product.packAmount) + " g";
            break;
    }
    product.terLines.push_back(cp("Kiszerelés: ") + packText);
    product.terLines.push_back(cp("Forgalomba hozatali engedély jogosultja: ") + product.holder);
    if (product.kind == Kind::Medicine) {
        product.terLines.push_back(cp("Törzskönyvi szám: OGYI-T-") + number(m_random.between(1000, 23999)) +
                                   "/" + (m_random.percent(50) ? "0" : "") + number(m_random.between(1, 30)));
    } else {
        product.terLines.push_back(cp("Nyilvántartási szám: OGYÉI/") +
                                   number(m_random.between(10000, 99999)) + "/" +
                                   number(m_random.between(2015, 2026)));
    }

    const std::vector<const char*> indications = indicationsOf(group);
    const int indicationCount = m_random.between(1, std::min<int>(2, static_cast<int>(indications.size())));
    const int firstIndication = m_random.below(static_cast<int>(indications.size()));
    for (int i = 0; i < indicationCount; ++i)
        product.indication.push_back(cp(indications[static_cast<std::size_t>(
            (firstIndication + i) % static_cast<int>(indications.size()))]));

    if (product.kind == Kind::Medicine) {
        const int perDay = m_random.between(1, 3);
        const char* times[] = {"", "egyszer", "kétszer", "háromszor"};
        const bool spread = product.form == 9 || product.form == 10 || product.form == 11;
        std::string unit = form.pack == PackKind::Pieces        ? "1 " + formText
                           : form.pack == PackKind::Millilitres ? "5 ml"
                           : spread                             ? cp("vékony rétegben")
                                                                : "1 adag";
        product.dosage.push_back(cp("Felnőttek: naponta ") + cp(times[perDay]) + " " + unit +
                                 cp(", lehetőleg mindig ugyanabban az időpontban."));
        product.dosage.push_back(m_random.percent(50)
                                     ? cp("Gyermekek: 12 éves kor alatt alkalmazása nem javasolt.")
                                     : cp("Gyermekek: az adagot testtömeg alapján az orvos határozza meg."));
        if (m_random.percent(40))
            product.dosage.push_back(cp("Vese- vagy májkárosodásban az adag csökkentése szükséges."));
        product.patient.push_back(cp(m_random.pick(kPatientNotes)));
        if (m_random.percent(40)) product.patient.push_back(cp(m_random.pick(kPatientNotes)));
        product.poisoning.push_back(cp(m_random.pick(kPoisoning)));
        if (m_random.percent(50)) product.poisoning.push_back(cp(kPoisoning[1]));
        if (m_random.percent(70)) product.warnings.push_back(cp(m_random.pick(kWarnings)));
        product.otherNames.push_back(cp("Nemzetközi szabadnév: ") + substance.name);
        if (m_random.percent(30))
            product.otherNames.push_back(cp("Azonos hatóanyagú készítmények is kaphatók."));
    } else {
        product.dosage.push_back(
            product.kind == Kind::Nutrition
                ? cp("Az orvos vagy dietetikus által meghatározott mennyiségben, naponta többször.")
                : cp("A használati útmutató szerint."));
        product.patient.push_back(cp("Gyermekektől elzárva, száraz helyen tartandó."));
    }

    // Contraindications and side effects: codes of the tables (E0101 and M0101 are common on purpose).
    std::set<std::string> contra;
    const int contraCount = product.kind == Kind::Medicine ? m_random.between(0, 3) : m_random.between(0, 1);
    for (int i = 0; i < contraCount; ++i) {
        const CodeEntry& entry =
            kContraindications[m_random.below(static_cast<int>(std::size(kContraindications)))];
        contra.insert(entry.code);
    }
    if (product.kind == Kind::Medicine && m_random.percent(15)) contra.insert("E0101");
    product.contraindications.assign(contra.begin(), contra.end());
    if (!contra.empty()) product.contraText.push_back(cp(m_random.pick(kContraindicationTexts)));

    std::set<std::string> effects;
    const int effectCount = product.kind == Kind::Medicine ? m_random.between(1, 5) : m_random.between(0, 1);
    for (int i = 0; i < effectCount; ++i) {
        // Leaves mostly; a group code now and then.
        const CodeEntry& entry = kSideEffects[m_random.below(static_cast<int>(std::size(kSideEffects)))];
        effects.insert(entry.code);
    }
    if (m_random.percent(12)) effects.insert("M0101");
    product.sideEffects.assign(effects.begin(), effects.end());
}

void Generator::makeSupportLine(Product& product, int ttt)
{
    const Substance& substance = m_substances[static_cast<std::size_t>(product.substances.front())];
    const FormEntry& form = kForms[product.form];
    const bool medicine = product.kind == Kind::Medicine;

    // Price and normative support in whole forints.
    if (medicine) {
        const char group = substance.anatomical;
        const int low = group == 'L' ? 40000 : (group == 'J' || group == 'B' || group == 'V') ? 800 : 450;
        const int high = group == 'L'                                     ? 600000
                         : (group == 'J' || group == 'B' || group == 'V') ? 40000
                                                                          : 15000;
        product.price = m_random.between(low, high);
    } else if (product.kind == Kind::Nutrition) {
        product.price = m_random.between(3000, 45000);
    } else {
        product.price = m_random.between(300, 9000);
    }
    const int dispensing =
        !medicine ? 3 : m_random.pick(std::array<int, 16>{2, 2, 2, 2, 2, 2, 2, 2, 1, 1, 3, 3, 4, 6, 7, 8});
    const bool supported = product.kind == Kind::Nutrition ? m_random.percent(80)
                           : medicine                      ? dispensing != 3 && m_random.percent(80)
                                                           : m_random.percent(20);
    std::string categories = "---";
    std::string normativeGroup = "0", increasedGroup = "0", highlightedGroup = "0";
    std::vector<std::pair<const Regulation*, int>> indicationSupports;
    if (supported) {
        categories = m_random.pick(std::array<const char*, 5>{"155", "255", "355", "455", "155"});
        const int rate = categories[0] == '1' ? 80 : categories[0] == '4' ? 25 : 55;
        product.support = product.price * rate / 100;
        if (categories[0] == '3') normativeGroup = number(1000 + product.substances.front());
        if (medicine && m_random.percent(19)) {
            const int count = m_random.between(1, 2);
            for (int i = 0; i < count; ++i) {
                const Regulation& regulation = m_regulations[static_cast<std::size_t>(
                    m_random.below(static_cast<int>(m_regulations.size())))];
                bool duplicate = false;
                for (const auto& [r, amount] : indicationSupports) duplicate = duplicate || r == &regulation;
                if (duplicate) continue;
                const int amount = regulation.increased ? product.price * regulation.rate / 100
                                                        : std::max(0, product.price - 300);
                indicationSupports.emplace_back(&regulation, amount);
                if (regulation.increased) {
                    categories[1] = m_random.percent(20) ? '3' : '2';
                    if (categories[1] == '3') increasedGroup = number(2000 + product.substances.front());
                } else {
                    categories[2] = m_random.percent(20) ? '3' : '4';
                    if (categories[2] == '3') highlightedGroup = number(3000 + product.substances.front());
                }
            }
        }
    }
    std::string supports, increasedCodes, highlightedCodes;
    for (const auto& [regulation, amount] : indicationSupports) {
        if (!supports.empty()) supports += ',';
        supports += regulation->code + " " + number(amount);
        std::string& codes = regulation->increased ? increasedCodes : highlightedCodes;
        if (!codes.empty()) codes += ',';
        codes += regulation->code;
    }

    // Daily doses in the package, with a decimal comma when it is not whole.
    std::string doses = "0";
    if (medicine) {
        int tenths = 0;
        const int perDay = m_random.between(1, 3);
        switch (form.pack) {
            case PackKind::Pieces:
            case PackKind::Doses:
                tenths = product.packAmount * 10 / perDay;
                break;
            case PackKind::Millilitres:
                tenths = product.packAmount * 10 / (5 * perDay);
                break;
            case PackKind::Grams:
                tenths = product.packAmount * 10 / (2 * perDay);
                break;
        }
        tenths = std::max(tenths, 10);
        doses = number(tenths / 10) + (tenths % 10 ? "," + number(tenths % 10) : "");
    } else if (product.kind == Kind::Nutrition) {
        doses = number(m_random.between(4, 30));
    }

    const std::string fields[22] = {
        doses,
        normativeGroup,
        increasedGroup,
        highlightedGroup,
        categories,
        supports.empty() ? "-" : supports,
        number(dispensing),
        supported && m_random.percent(45) ? "1" : "0",
        (product.deleted = m_random.percent(3)) ? "1" : "0",
        m_random.percent(5) ? "0" : "1",
        number(ttt),
        increasedCodes.empty() ? "-" : increasedCodes,
        highlightedCodes.empty() ? "-" : highlightedCodes,
        "-",
        number(product.form),
        number(100000 + m_random.below(900000)),
        m_random.percent(10) ? number(m_random.between(1, 9999)) : "0",
        m_random.percent(10) ? number(m_random.between(1, 99)) : "0",
        m_random.percent(10) ? number(m_random.between(1, 9)) : "0",
        medicine ? m_random.pick(std::array<const char*, 4>{"-", "napi 1x1", "napi 2x1", "napi 3x1"}) : "-",
        medicine ? m_random.pick(std::array<const char*, 3>{"-1", "0", "1"}) : "0",
        substance.international,
    };
    static constexpr char kDelimiters[21] = {';', ';', ';', ';', ';', ';', ';', ';', '^',    '@', '#',
                                             '$', '*', '[', ']', '{', '}', '(', ')', '\xB3', '@'};
    product.supportLine = fields[0];
    for (int i = 1; i < 22; ++i) product.supportLine += kDelimiters[i - 1] + fields[i];
}

void Generator::plantCases()
{
    const int medicines = planted.medicines;
    std::set<int> used;
    const auto candidate = [&](char otherThan) {
        for (;;) {
            const int i = m_random.below(medicines);
            const Product& product = m_products[static_cast<std::size_t>(i)];
            const Substance& substance = m_substances[static_cast<std::size_t>(product.substances.front())];
            if (product.combination || product.deleted || used.count(i) ||
                m_reserved.count(product.substances.front()) || substance.anatomical == otherThan)
                continue;
            used.insert(i);
            return i;
        }
    };
    const auto code8 = [&](int i) { return ownCode(m_products[static_cast<std::size_t>(i)], 0); };
    const auto anatomical = [&](int i) { return code8(i)[0]; };

    // The avoid pair: each avoid section holds a prefix of the other's own code (6 and 8 characters).
    const int a = candidate(0), b = candidate(anatomical(a));
    m_products[static_cast<std::size_t>(a)].careful.clear();
    m_products[static_cast<std::size_t>(a)].avoid = {code8(b).substr(0, 6)};
    m_products[static_cast<std::size_t>(b)].careful.clear();
    m_products[static_cast<std::size_t>(b)].avoid = {code8(a)};
    // The careful pair: one careful line (4 characters) of c matches d; nothing else between them.
    const int c = candidate(0), d = candidate(anatomical(c));
    m_products[static_cast<std::size_t>(c)].careful = {code8(d).substr(0, 4)};
    m_products[static_cast<std::size_t>(c)].avoid.clear();
    m_products[static_cast<std::size_t>(d)].careful.clear();
    m_products[static_cast<std::size_t>(d)].avoid.clear();
    // The contraindicated medicine.
    const int e = candidate(0);
    Product& contraindicated = m_products[static_cast<std::size_t>(e)];
    if (std::find(contraindicated.contraindications.begin(), contraindicated.contraindications.end(),
                  "E0101") == contraindicated.contraindications.end()) {
        contraindicated.contraindications.push_back("E0101");
        std::sort(contraindicated.contraindications.begin(), contraindicated.contraindications.end());
    }
    if (contraindicated.contraText.empty())
        contraindicated.contraText.push_back(cp(kContraindicationTexts[0]));
    // The over-long careful line: another medicine's product code with one digit too many.
    const int f = candidate(0);
    const std::string longLine = m_products[static_cast<std::size_t>(candidate(0))].code + "1";
    m_products[static_cast<std::size_t>(f)].careful.push_back(longLine);

    m_plantedGeneration = {a, b, c, d, e, f};
    planted.avoidFirstCode = m_products[static_cast<std::size_t>(a)].avoid.front();
    planted.avoidSecondCode = m_products[static_cast<std::size_t>(b)].avoid.front();
    planted.carefulCode = m_products[static_cast<std::size_t>(c)].careful.front();
    planted.contraindicationCode = "E0101";
    planted.longCodeLine = longLine;
}

bool Generator::build(std::string* error)
{
    const int n = m_options.products;
    if (n < kMinimumProducts || n > kMaximumProducts) {
        if (error)
            *error = "the number of products must be between " + number(kMinimumProducts) + " and " +
                     number(kMaximumProducts);
        return false;
    }
    buildCatalogues();
    planted.products = n;
    planted.nutrition = (n * 6 + 50) / 100;
    planted.others = (n * 4 + 50) / 100;
    planted.medicines = n - planted.nutrition - planted.others;

    // From 5,000 products on, two ingredients of their own name get exactly 600 and 601 products.
    int reserved600 = -1, reserved601 = -1;
    if (n >= 5000) {
        std::map<std::string, int> nameCount;
        for (int s : m_medicineSubstances) ++nameCount[m_substances[static_cast<std::size_t>(s)].name];
        std::vector<int> unique;
        for (int s : m_medicineSubstances) {
            const Substance& substance = m_substances[static_cast<std::size_t>(s)];
            if (nameCount[substance.name] == 1 &&
                substance.code.compare(
                    0, 3,
                    m_bigGroupSubstances.empty()
                        ? ""
                        : m_substances[static_cast<std::size_t>(m_bigGroupSubstances.front())].code.substr(
                              0, 3)) != 0)
                unique.push_back(s);
        }
        reserved600 = m_random.pick(unique);
        do reserved601 = m_random.pick(unique);
        while (reserved601 == reserved600);
        m_reserved = {reserved600, reserved601};
    }

    m_products.resize(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        Product& product = m_products[static_cast<std::size_t>(i)];
        if (i < planted.medicines) {
            const int substance = reserved600 >= 0 && i < 600    ? reserved600
                                  : reserved601 >= 0 && i < 1201 ? reserved601
                                                                 : pickMedicineSubstance();
            makeMedicine(product, substance);
        } else if (i < planted.medicines + planted.nutrition) {
            makeNutrition(product, m_random.pick(m_nutritionSubstances));
        } else {
            makeOther(product, m_random.pick(m_otherSubstances));
        }
        if (!assignCode(product)) {
            if (error) *error = "too many products for one substance";
            return false;
        }
    }
    for (int i = 0; i < n; ++i) {
        Product& product = m_products[static_cast<std::size_t>(i)];
        makeTexts(product);
        makeSupportLine(product, 200000000 + i * 83 + m_random.below(83));
    }
    for (Product& product : m_products) {
        if (product.kind != Kind::Medicine) continue;
        const int careful = m_random.between(0, 4), avoid = m_random.percent(50) ? m_random.between(1, 2) : 0;
        for (int i = 0; i < careful; ++i) product.careful.push_back(interactionCode(product));
        for (int i = 0; i < avoid; ++i) product.avoid.push_back(interactionCode(product));
    }
    plantCases();

    // Record numbers: each group sorted by name in Hungarian order.
    std::vector<std::size_t> order(m_products.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    const auto groupOf = [&](std::size_t i) { return static_cast<int>(m_products[i].kind); };
    std::sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
        if (groupOf(x) != groupOf(y)) return groupOf(x) < groupOf(y);
        if (m_products[x].sortKey != m_products[y].sortKey)
            return m_products[x].sortKey < m_products[y].sortKey;
        return x < y;
    });
    m_order = order;
    m_recordOf.assign(order.size(), -1);
    for (std::size_t r = 0; r < order.size(); ++r) m_recordOf[order[r]] = static_cast<std::int32_t>(r);
    const auto record = [&](int generation) { return m_recordOf[static_cast<std::size_t>(generation)]; };
    planted.avoidFirst = record(m_plantedGeneration[0]);
    planted.avoidSecond = record(m_plantedGeneration[1]);
    planted.carefulFirst = record(m_plantedGeneration[2]);
    planted.carefulSecond = record(m_plantedGeneration[3]);
    planted.contraindicated = record(m_plantedGeneration[4]);
    planted.longCodeLineDrug = record(m_plantedGeneration[5]);
    m_reservedNames[0] = reserved600 >= 0 ? m_substances[static_cast<std::size_t>(reserved600)].name : "";
    m_reservedNames[1] = reserved601 >= 0 ? m_substances[static_cast<std::size_t>(reserved601)].name : "";
    return true;
}

std::string Generator::productBlock(const Product& product) const
{
    std::string block;
    const auto line = [&](std::string_view text) {
        block += text;
        block += "\r\n";
    };
    const auto lines = [&](const char* marker, const std::vector<std::string>& items) {
        line(marker);
        for (const std::string& item : items) line(item);
    };
    line(product.code);
    for (std::size_t i = 0; i < product.substances.size(); ++i) line(ownCode(product, i));
    line("#ar");
    line(number(product.price));
    line(number(product.support));
    line("#ha");
    line(product.supportLine);
    lines("#ter", product.terLines);
    lines("#jav", product.indication);
    lines("#adag", product.dosage);
    lines("#bet", product.patient);
    lines("#ell", product.contraindications);
    for (const std::string& text : product.contraText) line(text);
    lines("#mh", product.sideEffects);
    lines("#ov", product.careful);
    lines("#til", product.avoid);
    lines("#mer", product.poisoning);
    lines("#fig", product.warnings);
    lines("#nev", product.otherNames);
    line("#vege");
    return block;
}

// Directory and list files of one index pair from the record lists of its keys.
void indexPair(const std::vector<std::vector<std::int32_t>>& lists, bool sentinel, bool commaAfterEach,
               std::string& directory, std::string& list)
{
    for (const auto& records : lists) {
        const std::size_t offset = records.empty() ? 0 : list.size();
        directory += encodeDirectoryRecord(
            {static_cast<std::int64_t>(offset), static_cast<std::int32_t>(records.size())});
        for (std::int32_t r : records) list += encodeListEntry(r, commaAfterEach);
    }
    if (sentinel) directory += encodeDirectoryRecord({0, 0});
}

// A tree of table codes: groups (3 characters) at depth 0, leaves at depth 1.
std::string codeTree(std::span<const CodeEntry> entries)
{
    std::string tree;
    for (const CodeEntry& entry : entries)
        tree += std::string(std::string_view(entry.code).size() > 3 ? "\t" : "") + cp(entry.name) + "\r\n";
    return tree;
}

// Record lists of a code table: products whose section holds a code beginning with the table's code.
std::vector<std::vector<std::int32_t>> codeLists(std::span<const CodeEntry> entries,
                                                 const std::vector<const std::vector<std::string>*>& sections)
{
    std::vector<std::vector<std::int32_t>> lists(entries.size());
    for (std::size_t k = 0; k < entries.size(); ++k) {
        const std::string_view key = entries[k].code;
        for (std::size_t r = 0; r < sections.size(); ++r)
            for (const std::string& code : *sections[r])
                if (code.starts_with(key)) {
                    lists[k].push_back(static_cast<std::int32_t>(r));
                    break;
                }
    }
    return lists;
}

bool Generator::write(const std::filesystem::path& directory, std::string* error)
{
    std::error_code ec;
    std::filesystem::create_directories(directory, ec);
    if (ec || !std::filesystem::is_directory(directory)) {
        if (error) *error = "cannot create the directory " + directory.string();
        return false;
    }
    std::vector<std::pair<std::string, std::string>> files;
    const std::size_t n = m_order.size();

    // Products: names, blocks and their offsets, product codes.
    std::string nevrend, nevpos, gyful, kod;
    for (std::size_t r = 0; r < n; ++r) {
        const Product& product = m_products[m_order[r]];
        nevrend += encodeFixedLine(product.name, kNameLineLength);
        nevpos += encodePositionRecord(gyful.size());
        gyful += productBlock(product);
        kod += encodeCodeField(product.code, kProductCodeWidth);
    }
    if (gyful.size() >= 100'000'000) {
        if (error) *error = "gy.ful would need offsets of more than 8 digits";
        return false;
    }

    // ATC groups in use: every level prefix of every own code, in pre-order (sorted codes).
    std::map<std::string, int> groupIndex;
    for (const Product& product : m_products)
        for (std::size_t i = 0; i < product.substances.size(); ++i) {
            const std::string code = ownCode(product, i);
            for (std::size_t length : {1, 3, 4, 6, 8}) groupIndex.emplace(code.substr(0, length), 0);
        }
    std::vector<std::string> groups;
    for (auto& [code, index] : groupIndex) {
        index = static_cast<int>(groups.size());
        groups.push_back(code);
    }
    std::string atcTree, atcNames, atcLevels;
    std::vector<std::vector<std::int32_t>> atcLists(groups.size());
    for (const std::string& code : groups) {
        const Group& group = m_groups.at(code);
        kod += encodeCodeField(code, kAtcGroupCodeWidth);
        const int depth = code.size() == 1   ? 0
                          : code.size() == 3 ? 1
                          : code.size() == 4 ? 2
                          : code.size() == 6 ? 3
                                             : 4;
        atcTree += std::string(static_cast<std::size_t>(depth), '\t') + group.name + " (" +
                   group.international + ")\r\n";
        atcNames += encodeFixedLine(group.name, kNameFileLineLength);
        atcLevels += encodeFixedLine(group.international + "  " + group.name, kNameFileLineLength);
    }
    for (std::size_t r = 0; r < n; ++r) {
        const std::string& code = m_products[m_order[r]].code;
        for (std::size_t length : {1, 3, 4, 6, 8})
            atcLists[static_cast<std::size_t>(groupIndex.at(code.substr(0, length)))].push_back(
                static_cast<std::int32_t>(r));
    }
    for (const CodeEntry& entry : kContraindications)
        kod += encodeCodeField(entry.code, kContraindicationCodeWidth);
    for (const CodeEntry& entry : kSideEffects) kod += encodeCodeField(entry.code, kSideEffectCodeWidth);

    // Contraindication and side-effect indexes.
    std::vector<const std::vector<std::string>*> contraSections, effectSections;
    for (std::size_t r = 0; r < n; ++r) {
        contraSections.push_back(&m_products[m_order[r]].contraindications);
        effectSections.push_back(&m_products[m_order[r]].sideEffects);
    }
    const auto contraLists = codeLists(kContraindications, contraSections);
    const auto effectLists = codeLists(kSideEffects, effectSections);
    std::string contraNames, effectNames;
    for (const CodeEntry& entry : kContraindications)
        contraNames += encodeFixedLine(cp(entry.name), kNameFileLineLength);
    for (const CodeEntry& entry : kSideEffects)
        effectNames += encodeFixedLine(cp(entry.name), kNameFileLineLength);

    // Active ingredients: the names of the medicine substances among the own codes, in Hungarian order.
    std::map<std::string, std::string> ingredientKeys;  // name -> sort key
    for (const Product& product : m_products)
        for (int s : product.substances) {
            const Substance& substance = m_substances[static_cast<std::size_t>(s)];
            if (substance.anatomical != 'T' && substance.anatomical != 'X')
                ingredientKeys.emplace(substance.name, hungarianSortKey(substance.name));
        }
    std::vector<std::string> ingredients;
    for (const auto& [name, key] : ingredientKeys) ingredients.push_back(name);
    std::sort(ingredients.begin(), ingredients.end(), [&](const std::string& x, const std::string& y) {
        return ingredientKeys[x] < ingredientKeys[y];
    });
    std::map<std::string, int> ingredientIndex;
    std::string harend;
    for (std::size_t k = 0; k < ingredients.size(); ++k) {
        ingredientIndex[ingredients[k]] = static_cast<int>(k);
        harend += ingredients[k] + "\r\n";
    }
    std::vector<std::vector<std::int32_t>> ingredientLists(ingredients.size());
    for (std::size_t r = 0; r < n; ++r) {
        std::set<int> mine;
        for (int s : m_products[m_order[r]].substances) {
            const auto found = ingredientIndex.find(m_substances[static_cast<std::size_t>(s)].name);
            if (found != ingredientIndex.end()) mine.insert(found->second);
        }
        for (int k : mine)
            ingredientLists[static_cast<std::size_t>(k)].push_back(static_cast<std::int32_t>(r));
    }

    std::string atcDirectory, atcList, contraDirectory, contraList, effectDirectory, effectList,
        ingredientDirectory, ingredientList;
    indexPair(atcLists, true, false, atcDirectory, atcList);
    indexPair(contraLists, false, false, contraDirectory, contraList);
    indexPair(effectLists, false, true, effectDirectory, effectList);
    indexPair(ingredientLists, false, false, ingredientDirectory, ingredientList);

    // Forms: x.dat and the number of products of each (xd.dat).
    std::vector<int> formProducts(static_cast<std::size_t>(kFormCount), 0);
    for (const Product& product : m_products) ++formProducts[static_cast<std::size_t>(product.form)];
    std::string shortTexts, pairs;
    for (int k = 0; k < kFormCount; ++k) {
        shortTexts += m_formAbbreviations[static_cast<std::size_t>(k)] + "\r\n";
        pairs += number(k) + "," + number(formProducts[static_cast<std::size_t>(k)]) + "\r\n";
    }

    // Regulations: rend.dat and the rend2.ful tree.
    std::string rend;
    for (const Regulation& regulation : m_regulations)
        rend += regulation.code + "\t" + (regulation.separateBudget ? "K" : "-") + "\t" + regulation.text +
                "\r\n";
    std::string rend2 = regulationTree();

    std::string messages;
    for (const std::string& line : messageCatalogLines()) messages += line + "\r\n";

    planted.atcGroups = static_cast<int>(groups.size());
    planted.contraindications = static_cast<int>(std::size(kContraindications));
    planted.sideEffects = static_cast<int>(std::size(kSideEffects));
    planted.ingredients = static_cast<int>(ingredients.size());
    planted.regulations = static_cast<int>(m_regulations.size());
    const std::string counts = number(planted.products) + "," + number(planted.atcGroups) + "," +
                               number(planted.sideEffects) + "," + number(planted.contraindications) + "," +
                               number(planted.ingredients) + ",0,0," + number(kFormCount) + "," +
                               number(kFormCount) + "," + number(planted.regulations) + "," +
                               number(planted.nutrition) + "," + number(planted.others) + ",1\r\n";

    // Planted cases that depend on the lists.
    for (std::size_t k = 0; k < groups.size(); ++k) {
        const int size = static_cast<int>(atcLists[k].size());
        if (groups[k].size() == 1 && size > 600 && size > planted.largeLevel1Products) {
            planted.largeLevel1Node = static_cast<std::int32_t>(k), planted.largeLevel1Code = groups[k];
            planted.largeLevel1Products = size;
        }
        if (groups[k].size() == 3 && size > 600 && size > planted.largeLevel2Products) {
            planted.largeLevel2Node = static_cast<std::int32_t>(k), planted.largeLevel2Code = groups[k];
            planted.largeLevel2Products = size;
        }
    }
    for (std::size_t k = 0; k < std::size(kContraindications); ++k)
        if (std::string_view(kContraindications[k].code) == "E0101")
            planted.contraindicationIndex = static_cast<std::int32_t>(k);
    planted.contraindicatedGroupNode = groupIndex.at(
        m_products[m_order[static_cast<std::size_t>(planted.contraindicated)]].code.substr(0, 6));
    for (std::size_t k = 0; k < std::size(kSideEffects); ++k)
        if (std::string_view(kSideEffects[k].code) == "M0101" && effectLists[k].size() > 600) {
            planted.commonSideEffect = static_cast<std::int32_t>(k);
            planted.commonSideEffectCode = "M0101";
            planted.commonSideEffectProducts = static_cast<int>(effectLists[k].size());
        }
    for (int which = 0; which < 2; ++which) {
        const auto found = ingredientIndex.find(m_reservedNames[static_cast<std::size_t>(which)]);
        if (m_reservedNames[static_cast<std::size_t>(which)].empty() || found == ingredientIndex.end() ||
            ingredientLists[static_cast<std::size_t>(found->second)].size() !=
                static_cast<std::size_t>(600 + which))
            continue;
        (which == 0 ? planted.ingredient600 : planted.ingredient601) = found->second;
        (which == 0 ? planted.ingredient600Name : planted.ingredient601Name) = found->first;
    }

    files = {
        {"MSG.DAT", messages},
        {"inf.dat", counts},
        {"KOD.DAT", kod},
        {"xd.dat", pairs},
        {"x.dat", shortTexts},
        {"nevrend.dat", nevrend},
        {"nevpos.dat", nevpos},
        {"gy.ful", gyful},
        {"atcindin.dat", atcDirectory},
        {"atcind.dat", atcList},
        {"ellindin.dat", contraDirectory},
        {"ellind.dat", contraList},
        {"haindinf.dat", ingredientDirectory},
        {"haind.dat", ingredientList},
        {"mhindin.dat", effectDirectory},
        {"mhind.dat", effectList},
        {"ellnrend.dat", contraNames},
        {"mhnrend.dat", effectNames},
        {"atcnrend.dat", atcNames},
        {"atcnren5.dat", atcLevels},
        {"atcnren2.dat", atcTree},
        {"ellnren2.dat", codeTree(kContraindications)},
        {"mhnren2.dat", codeTree(kSideEffects)},
        {"harend2.dat", harend},
        {"rend.dat", rend},
        {"rend2.ful", rend2},
        {"zaras.inf", "20261101\r\n2026.11.01\r\n"},
        {"RV.INI",
         "[Rovanel Beallitasok]\r\nTTNemKellLeirasba=NEM\r\nKgyTxtPath=kgy.txt\r\n"
         "BetegAdatokIniPath=beteg.ini\r\nPathToUpdate=\r\n"},
    };
    for (const auto& [name, content] : files)
        if (!writeGeneratedFile(directory, name, content, error)) return false;
    return true;
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

}  // namespace

std::optional<PlantedCases> generateDatabase(const std::filesystem::path& directory,
                                             const GeneratorOptions& options, std::string* error)
{
    Generator generator(options);
    if (!generator.build(error) || !generator.write(directory, error)) return std::nullopt;
    if (!writePictures(directory, error)) return std::nullopt;
    return generator.planted;
}

}  // namespace rovanel
