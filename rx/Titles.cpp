#include "rx/Titles.h"

#include "db/Cp1250.h"

namespace rovanel
{

namespace
{

char flagAt(std::string_view flags, std::size_t position)
{
    return position < flags.size() ? flags[position] : '0';
}

// One row of a relabelling table: when the flag is not '0', `item` gets `caption`; when it is '0',
// every item of `cleared` becomes "-".
struct Rule {
    std::size_t position;
    int item;
    const char* caption;  // UTF-8
    std::array<int, 3> cleared;
};

void apply(TitleCaptions& captions, std::string_view flags, const std::array<Rule, 5>& rules,
           std::size_t publicCare, std::size_t free, std::size_t feePaying, const char* freeWithPublicCare,
           const char* feePayingWithPublicCare)
{
    // In table order, so that a later "-" overrides an earlier caption; the two combinations come last.
    for (const Rule& rule : rules) {
        if (flagAt(flags, rule.position) != '0') {
            captions[static_cast<std::size_t>(rule.item)] = utf8ToCp1250(rule.caption);
        } else {
            for (const int item : rule.cleared)
                if (item >= 0) captions[static_cast<std::size_t>(item)] = std::string(kTitleNotAllowed);
        }
    }
    if (flagAt(flags, publicCare) == '1' && flagAt(flags, free) == '1')
        captions[kTitleKiemeltKozgyogy] = utf8ToCp1250(freeWithPublicCare);
    if (flagAt(flags, publicCare) == '1' && flagAt(flags, feePaying) == '1')
        captions[kTitleEmeltKozgyogy] = utf8ToCp1250(feePayingWithPublicCare);
}

}  // namespace

const TitleCaptions& defaultTitleCaptions()
{
    static const TitleCaptions captions = {
        utf8ToCp1250("Normatív"),           "HM",
        utf8ToCp1250("Közgyógy"),           utf8ToCp1250("Üzemi baleset"),
        utf8ToCp1250("Eü. kiemelt"),        utf8ToCp1250("Eü. emelt"),
        utf8ToCp1250("Teljes ár"),          utf8ToCp1250("Eü. kiem. + közgy"),
        utf8ToCp1250("Eü. emelt.+ közgy."), utf8ToCp1250("Egyedi támogatás"),
    };
    return captions;
}

void relabelLayoutA(TitleCaptions& captions, std::optional<std::string_view> flags)
{
    if (!flags) return;
    static constexpr std::array<Rule, 5> kRules = {{
        {6, 1, "HM", {1, -1, -1}},
        {3, 2, "Közgyógy", {2, 7, 8}},
        {8, 3, "Üzemi baleset", {3, -1, -1}},
        {9, 4, "Eü. kiemelt", {4, 7, -1}},
        {10, 5, "Eü. emelt", {5, 8, -1}},
    }};
    // "Eü. emelt. + közgy" differs from the design-time "Eü. emelt.+ közgy." on purpose (Titles_test).
    apply(captions, *flags, kRules, 3, 9, 10, "Eü. kiem. + közgy", "Eü. emelt. + közgy");
}

void relabelLayoutB(TitleCaptions& captions, std::optional<std::string_view> flags)
{
    if (!flags) return;
    static constexpr std::array<Rule, 5> kRules = {{
        {0, 1, "HM", {1, -1, -1}},
        {5, 2, "Közgyógy", {2, 7, 8}},
        {2, 3, "Üzemi baleset", {3, -1, -1}},
        {3, 4, "Eü. rend.", {4, 7, -1}},
        {4, 5, "Eü. térítésköteles", {5, 8, -1}},
    }};
    apply(captions, *flags, kRules, 5, 3, 4, "Eü. rend. + közgy", "Eü. térítésköt. + közgy");
}

bool isRegulatedTitle(int index)
{
    return index == kTitleKiemelt || index == kTitleEmelt || index == kTitleKiemeltKozgyogy ||
           index == kTitleEmeltKozgyogy;
}

bool isFeePayingTitle(int index) { return index == kTitleEmelt || index == kTitleEmeltKozgyogy; }

TitleChoice titleChosen(const TitleCaptions& captions, int index, int source, bool bnoButtonShowsCodeTable)
{
    TitleChoice choice;
    if (index < 0 || index >= kTitleCount) return choice;
    if (captions[static_cast<std::size_t>(index)] == kTitleNotAllowed) {
        choice.message = Message{utf8ToCp1250("Nem rendelhető ilyen jogcímen"), "", MessageIcon::Warning};
        return choice;
    }
    choice.openBnoCodes = isRegulatedTitle(index) && (source == 2 || source == 3) && bnoButtonShowsCodeTable;
    return choice;
}

}  // namespace rovanel
