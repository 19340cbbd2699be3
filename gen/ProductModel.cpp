#include "gen/ProductModel.h"

#include <algorithm>

#include "db/Cp1250.h"
#include "db/HungarianCollation.h"
#include "gen/AtcBook.h"
#include "gen/Vocabulary.h"

namespace rovanel::generation
{

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

}  // namespace rovanel::generation
