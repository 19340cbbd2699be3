#include "gen/Vocabulary.h"

#include "db/Cp1250.h"

namespace rovanel::generation
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }

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

std::string rovanelCode(std::string_view international)
{
    std::string code(international.substr(0, std::min<std::size_t>(5, international.size())));
    if (international.size() >= 5) code += '-';
    if (international.size() > 5) code += international.substr(5);
    return code;
}

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

}  // namespace rovanel::generation
