#include "gen/FormularyWriter.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <span>

#include "db/Cp1250.h"
#include "db/HungarianCollation.h"
#include "gen/DatabaseGenerator.h"
#include "gen/GeneratedFile.h"

namespace rovanel
{
namespace
{

struct Preparation {
    const char* latin;    // the item name's first word(s)
    const char* made;     // "M.f." line
    const char* vehicle;  // genitive, the "ad" line
    int total;            // grams
    const char* usage;    // "D.S." line
    int weeks;            // keeps this long
};

struct Substance {
    const char* latin;  // genitive
    const char* hungarian;
    double strengths[3];  // per cent; 0 for none
    const char* indication;
    const char* warning;
    const char* contraindication;
};

struct Chapter {
    const char* title;
    std::span<const Preparation> preparations;
    std::span<const Substance> substances;
};

constexpr Preparation kSkin[] = {
    {"Unguentum", "M.f. unguentum", "Vaselini albi", 100,
     "D.S. Külsőleg, naponta kétszer vékonyan a bőrre kenendő.", 8},
    {"Cremor", "M.f. cremor", "Cremoris basalis", 100,
     "D.S. Külsőleg, naponta egyszer-kétszer bedörzsölendő.", 4},
    {"Pasta", "M.f. pasta", "Pastae zinci oxydati", 50, "D.S. Külsőleg, a bőrfelületre vastagon felkenendő.",
     8},
    {"Solutio", "M.f. solutio", "Alcoholi diluti", 100, "D.S. Külsőleg, naponta kétszer ecsetelendő.", 12},
    {"Lotio", "M.f. lotio. Agita ante usum!", "Lotionis zinci", 100,
     "D.S. Külsőleg, felrázás után naponta háromszor.", 4},
    {"Emulsio", "M.f. emulsio", "Emulsionis basalis", 100, "D.S. Külsőleg, naponta kétszer a bőrre.", 4},
};
const Substance kSkinSubstances[] = {
    {"acidi salicylici",
     "szalicilsav",
     {2, 5, 10},
     "hámlasztás, bőrkeményedés, pikkelysömör",
     "nyálkahártyára és nagy felületre nem kenhető",
     "szalicilátérzékenység"},
    {"ureae",
     "karbamid",
     {5, 10},
     "száraz, hámló bőr, ichthyosis",
     "sérült bőrön csíphet",
     "heveny gyulladt bőr"},
    {"sulfuris praecipitati",
     "kicsapott kén",
     {5, 10},
     "acne vulgaris, seborrhoeás dermatitis",
     "higanytartalmú készítménnyel együtt nem alkalmazható",
     "kénérzékenység"},
    {"ichthammoli",
     "ichtammol",
     {5, 10},
     "furunculus, gyulladt bőrterületek",
     "ruhát szennyezhet",
     "ichtammol-túlérzékenység"},
    {"hydrocortisoni acetatis",
     "hidrokortizon-acetát",
     {0.5, 1},
     "ekcéma, rovarcsípés, allergiás bőrgyulladás",
     "arcon legfeljebb egy hétig",
     "bakteriális, vírusos vagy gombás bőrfertőzés"},
    {"clotrimazoli",
     "klotrimazol",
     {1, 2},
     "bőrgombásodás, candidiasis",
     "szembe nem kerülhet",
     "klotrimazol-túlérzékenység"},
    {"metronidazoli",
     "metronidazol",
     {1, 2},
     "rosacea, perioralis dermatitis",
     "napfény kerülendő",
     "metronidazol-túlérzékenység"},
    {"mentholi",
     "mentol",
     {1, 2},
     "viszketés, csalánkiütés",
     "csecsemőnél arcra nem kenhető",
     "két év alatti életkor"},
    {"resorcini",
     "rezorcin",
     {2, 5},
     "acne, seborrhoea",
     "nagy felületen nem alkalmazható",
     "rezorcin-túlérzékenység"},
    {"erythromycini",
     "eritromicin",
     {2, 4},
     "acne vulgaris",
     "legfeljebb 12 hétig alkalmazható",
     "makrolid-túlérzékenység"},
    {"lidocaini hydrochloridi",
     "lidokain-hidroklorid",
     {2, 5},
     "helyi fájdalom, viszketés",
     "nagy felületen nem alkalmazható",
     "amid típusú helyi érzéstelenítő iránti túlérzékenység"},
    {"tannini",
     "tannin",
     {2, 5},
     "nedvedző bőrgyulladás, intertrigo",
     "fémedényben nem tárolható",
     "tannin-túlérzékenység"},
};

constexpr Preparation kDrops[] = {
    {"Oculoguttae", "M.f. oculoguttae steriles", "Aquae pro injectione", 10,
     "D.S. Naponta háromszor 1 cseppet a kötőhártyazsákba.", 4},
    {"Naristillae", "M.f. naristillae", "Solutionis natrii chloridi isotonicae", 10,
     "D.S. Naponta háromszor 2 cseppet orrnyílásonként.", 4},
    {"Auriguttae", "M.f. auriguttae", "Glyceroli", 10, "D.S. Naponta kétszer 3 cseppet a hallójáratba.", 6},
};
const Substance kDropSubstances[] = {
    {"zinci sulfatis",
     "cink-szulfát",
     {0.25, 0.5},
     "kötőhártya-gyulladás",
     "kontaktlencse viselése alatt nem alkalmazható",
     "cinkérzékenység"},
    {"ephedrini hydrochloridi",
     "efedrin-hidroklorid",
     {1, 2},
     "orrnyálkahártya-duzzanat",
     "legfeljebb 5 napig alkalmazható",
     "zárt zugú glaukóma"},
    {"chloramphenicoli",
     "klóramfenikol",
     {0.5, 1},
     "bakteriális fertőzés",
     "legfeljebb 10 napig alkalmazható",
     "csontvelő-károsodás a kórelőzményben"},
    {"dexamethasoni",
     "dexametazon",
     {0.1},
     "allergiás gyulladás",
     "szemnyomás ellenőrzendő",
     "vírusos fertőzés"},
    {"natrii chloridi",
     "nátrium-klorid",
     {0.9, 3},
     "száraz nyálkahártya",
     "felbontás után egy hétig használható",
     "nincs ismert"},
    {"lidocaini hydrochloridi",
     "lidokain-hidroklorid",
     {2},
     "fülfájdalom ép dobhártya mellett",
     "dobhártya-sérülésben nem alkalmazható",
     "dobhártya-perforáció"},
};

constexpr Preparation kInternal[] = {
    {"Solutio", "M.f. solutio", "Aquae purificatae", 200, "D.S. Naponta háromszor 1 evőkanállal.", 2},
    {"Sirupus", "M.f. sirupus", "Sirupi simplicis", 100, "D.S. Naponta háromszor 1 kávéskanállal.", 4},
    {"Pulvis", "M.f. pulvis. Div. in dos. aeq. No. X", "Lactosi monohydrici", 10,
     "D.S. Naponta kétszer 1 port.", 26},
};
const Substance kInternalSubstances[] = {
    {"kalii citratis",
     "kálium-citrát",
     {5, 10},
     "húgysavkő megelőzése",
     "vesefunkció ellenőrzendő",
     "hyperkalaemia"},
    {"natrii hydrogenocarbonatis",
     "nátrium-hidrogén-karbonát",
     {5, 10},
     "gyomorégés, savtúltengés",
     "tartósan nem szedhető",
     "alkalosis"},
    {"magnesii sulfatis",
     "magnézium-szulfát",
     {10, 20},
     "székrekedés, magnéziumhiány",
     "vesebetegségben az adag csökkentendő",
     "bélelzáródás"},
    {"acidi ascorbici", "aszkorbinsav", {1, 5}, "C-vitamin-hiány", "vesekő esetén óvatosan", "oxalátkő"},
    {"kalii iodidi",
     "kálium-jodid",
     {1, 2},
     "köptetés, jódpótlás",
     "pajzsmirigyműködés ellenőrzendő",
     "pajzsmirigy-túlműködés"},
    {"codeini phosphatis",
     "kodein-foszfát",
     {0.2, 0.5},
     "száraz, izgató köhögés",
     "gépjárművezetés kerülendő",
     "12 év alatti életkor, légzési elégtelenség"},
    {"paracetamoli",
     "paracetamol",
     {2, 5},
     "láz, fájdalom",
     "napi adag legfeljebb 60 mg/ttkg",
     "súlyos májbetegség"},
    {"coffeini", "koffein", {1}, "fejfájás, vérnyomásesés", "este nem szedhető", "szívritmuszavar"},
};

constexpr Preparation kSuppositories[] = {
    {"Suppositorium", "M.f. suppositoria No. X", "Massae suppositorii", 20,
     "D.S. Naponta egyszer-kétszer 1 kúpot a végbélbe.", 12},
    {"Globulus vaginalis", "M.f. globuli vaginales No. X", "Massae gelatinosae", 30,
     "D.S. Este 1 hüvelygolyót mélyen a hüvelybe.", 12},
};
const Substance kSuppositorySubstances[] = {
    {"paracetamoli",
     "paracetamol",
     {5, 10},
     "láz, fájdalom csecsemő- és gyermekkorban",
     "adagolás testtömeg szerint",
     "súlyos májbetegség"},
    {"bisacodyli", "biszakodil", {0.5}, "székrekedés", "tartósan nem alkalmazható", "bélelzáródás"},
    {"metronidazoli",
     "metronidazol",
     {10},
     "bakteriális vaginosis, trichomoniasis",
     "alkohol kerülendő",
     "az első trimeszter"},
    {"ichthammoli",
     "ichtammol",
     {10},
     "aranyér, végbéltáji gyulladás",
     "ruhát szennyezhet",
     "ichtammol-túlérzékenység"},
    {"hydrocortisoni acetatis",
     "hidrokortizon-acetát",
     {1},
     "végbéltáji ekcéma, aranyér",
     "legfeljebb két hétig",
     "fertőzéses végbélgyulladás"},
};

constexpr Preparation kMouth[] = {
    {"Solutio ad gargarisma", "M.f. solutio", "Aquae purificatae", 200,
     "D.S. Naponta háromszor öblögetésre, lenyelni nem szabad.", 4},
    {"Gel oralis", "M.f. gel", "Geli carbomeri", 20, "D.S. Naponta háromszor a szájnyálkahártyára kenendő.",
     4},
};
const Substance kMouthSubstances[] = {
    {"chlorhexidini digluconatis",
     "klórhexidin-diglükonát",
     {0.1, 0.2},
     "fogínygyulladás, szájnyálkahártya-fertőzés",
     "a fogakat elszínezheti",
     "klórhexidin-túlérzékenység"},
    {"lidocaini hydrochloridi",
     "lidokain-hidroklorid",
     {2},
     "szájüregi fájdalom, aphtha",
     "étkezés előtt egy órával nem alkalmazható",
     "amid típusú helyi érzéstelenítő iránti túlérzékenység"},
    {"natrii hydrogenocarbonatis",
     "nátrium-hidrogén-karbonát",
     {2},
     "szájpenész, szájszárazság",
     "nincs különleges figyelmeztetés",
     "nincs ismert"},
    {"tannini",
     "tannin",
     {1},
     "fogínyvérzés, gyulladt íny",
     "fémedényben nem tárolható",
     "tannin-túlérzékenység"},
    {"mentholi", "mentol", {0.5}, "torokfájás", "két év alatt nem alkalmazható", "két év alatti életkor"},
};

// "5,0" for 5, "0,05" for 0.05: the Hungarian decimal comma.
std::string grams(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, value >= 1 ? "%.1f" : "%.2f", value);
    std::string result = text;
    std::replace(result.begin(), result.end(), '.', ',');
    return result;
}

std::string percent(double value)
{
    std::string text = grams(value);
    while (text.back() == '0') text.pop_back();
    if (text.back() == ',') text.pop_back();
    return text + "%";
}

std::string capitalised(std::string text)
{
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string column(std::string text, std::size_t width)
{
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

struct Item {
    std::string name;  // UTF-8
    std::string block;
};

}  // namespace

std::vector<std::pair<std::string, std::string>> formularyFiles(const GeneratorOptions&)
{
    const Chapter chapters[] = {
        {"I. Bőrgyógyászati készítmények", kSkin, kSkinSubstances},
        {"II. Szem-, orr- és fülcseppek", kDrops, kDropSubstances},
        {"III. Belsőleges oldatok, szirupok és porok", kInternal, kInternalSubstances},
        {"IV. Végbél- és hüvelykúpok", kSuppositories, kSuppositorySubstances},
        {"V. Szájüregi készítmények", kMouth, kMouthSubstances},
    };
    std::string tree, fono;
    std::vector<std::pair<std::string, std::size_t>> named;  // name (Windows-1250), offset of "#1"
    std::set<std::string> seen;
    int chapterNumber = 0;
    for (const Chapter& chapter : chapters) {
        ++chapterNumber;
        tree += utf8ToCp1250(chapter.title) + "\r\n";
        int itemNumber = 0;
        for (const Substance& substance : chapter.substances)
            for (const Preparation& preparation : chapter.preparations)
                for (const double strength : substance.strengths) {
                    if (strength == 0) continue;
                    const std::string name =
                        std::string(preparation.latin) + " " + substance.latin + " " + percent(strength);
                    if (!seen.insert(name).second) continue;
                    ++itemNumber;
                    std::string text;
                    text += "#1\n" + name + "\nFoNo VII. " + std::to_string(chapterNumber) + "." +
                            std::to_string(itemNumber) + "\n#2\n";
                    text += name + "\nRp.\n";
                    text += column(capitalised(substance.latin), 40) +
                            grams(strength * preparation.total / 100) + "\n";
                    text += column(preparation.vehicle, 34) + "ad    " + grams(preparation.total) + "\n";
                    text += std::string(preparation.made) + "\n" + preparation.usage + "\n";
                    text += std::string("Javallat: ") + substance.indication + "\n";
                    text += std::string("Hatóanyagok: ") + substance.hungarian + "\n";
                    text += "Megjegyzés: Eltartható " + std::to_string(preparation.weeks) +
                            " hétig, hűvös, fénytől védett helyen.\n";
                    text += std::string("Figyelmeztetés: ") + substance.warning + "\n";
                    text += std::string("Ellenjavallat: ") + substance.contraindication + "\n\n";
                    std::string bytes;
                    for (const char c : utf8ToCp1250(text))
                        bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
                    named.emplace_back(utf8ToCp1250(name), fono.size());
                    fono += bytes;
                    tree += "\t" + utf8ToCp1250(name) + "\r\n";
                }
    }
    std::stable_sort(named.begin(), named.end(), [](const auto& a, const auto& b) {
        return hungarianSortKey(a.first) < hungarianSortKey(b.first);
    });
    std::string names, offsets;
    for (const auto& [name, offset] : named) {
        names += name + "\r\n";
        offsets += std::to_string(offset) + "\r\n";
    }
    return {{"fononr.txt", tree}, {"fononev.dat", names}, {"fonoidx.dat", offsets}, {"fono.dat", fono}};
}

bool writeFormulary(const std::filesystem::path& directory, const GeneratorOptions& options,
                    std::string* error)
{
    for (const auto& [name, content] : formularyFiles(options))
        if (!writeGeneratedFile(directory, name, content, error)) return false;
    return true;
}

}  // namespace rovanel
