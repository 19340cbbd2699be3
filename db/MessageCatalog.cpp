#include "db/MessageCatalog.h"

#include <utility>

#include "db/Cp1250.h"

namespace rovanel
{

std::vector<std::string> messageCatalogLines()
{
    std::vector<std::string> lines(msg::kLineCount, "NULL");
    // Written in UTF-8 here for readability; MSG.DAT holds Windows-1250.
    const std::pair<int, const char*> texts[] = {
        {0, "Rovanel üzenetek"},
        {msg::kDescriptionTitle, "Készítmény:"},
        {msg::kDescPriceHeading, "Ár és támogatás:"},
        {msg::kDescFullPriceLabel, "Fogyasztói ár:"},
        {msg::kDescNormativeLabel, "Normatív támogatás:"},
        {msg::kDescPayableLabel, "Térítési díj:"},
        {msg::kDescSupportLabel, "Támogatás:"},
        {msg::kDescDailyCostLabel, "Napi költség:"},
        {msg::kDescFullPriceBasis, "teljes ár"},
        {msg::kDescPayableBasis, "térítési díj"},
        {msg::kDescBasisWord, "alapján"},
        {msg::kDescIncreasedWord, "Emelt"},
        {msg::kDescHighlightedWord, "Kiemelt"},
        {msg::kDescProductDataHeading, "Termékadatok:"},
        {msg::kDescWarningsHeading, "Figyelmeztetések:"},
        {msg::kDescOtherNamesHeading, "Egyéb nevek:"},
        {msg::kKhCaption72, "Kölcsönhatás - ATC"},
        {msg::kKhCodeLineTooLong, "Hibás kód a gyógyszer leírásában: a kódsor 10 karakternél hosszabb."},
        {msg::kKhCaption70, "Hibás adatbázis"},
        {msg::kKhTooManyFound, "A csoportba 600-nál több gyógyszer tartozik, csak az első 600 látszik!"},
        {msg::kKhCaptionLimits, "Kölcsönhatás vizsgálat"},
        {msg::kKhTooManyCareful, "Egy gyógyszernél 100-nál több óvatossági kód van, a vizsgálat leáll."},
        {msg::kKhTooManyPooledCareful,
         "A szedett gyógyszerek óvatossági kódjai 400-nál többen vannak, a vizsgálat leáll."},
        {msg::kKhTooManyAvoid, "Egy gyógyszernél 100-nál több kerülendő kód van, a vizsgálat leáll."},
        {msg::kKhTooManyPooledAvoid,
         "A szedett gyógyszerek kerülendő kódjai 400-nál többen vannak, a vizsgálat leáll."},
        {msg::kKhReportHeading, "Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:"},
        {msg::kKhCarefulPhrase, "Óvatosan adhatók együtt!"},
        {msg::kKhAvoidPhrase, "Együttadásuk kerülendő!"},
        {msg::kKhNothingFound, "A vizsgálat nem talált kölcsönhatást és ellenjavallatot."},
        {msg::kKhNothingFoundCaption, "Kölcsönhatás vizsgálat"},
        {msg::kAidFullPriceLabel, "Bruttó ár:"},
        {msg::kAidSupportLabel, "Támogatás:"},
        {msg::kAidPayableLabel, "Térítési díj:"},
        {msg::kAidStandardNote,
         "Rendelhető a gyógyászati segédeszközök rendelési szabályai szerint, a jogosultság igazolásával."},
        {msg::kKhNoInteractionData,
         "Ebben az adatbázisban nincsenek kölcsönhatási és ellenjavallati adatok: a vizsgálat nem talált "
         "semmit, de ez nem jelenti, hogy a gyógyszerek együtt adhatók."},
        {msg::kMhTooMany,
         "Ehhez a mellékhatáshoz 600-nál több gyógyszer tartozik. Szűkítse a keresést a szedett "
         "gyógyszerekre!"},
        {msg::kMhTooManyCaption, "Mellékhatás keresés"},
        {msg::kMhNone, "Ehhez a mellékhatáshoz nem tartozik gyógyszer."},
        {msg::kMhCaption, "Mellékhatás keresés"},
        {msg::kMhNoneAmongTaken, "A szedett gyógyszerek közül egyik sem okozhatja ezt a mellékhatást."},
        {msg::kRefTooManyRows, "A csoportba 600-nál több kiszerelés tartozik, csak az első 601 látszik!"},
        {msg::kRefTooManyRowsCaption, "Részletes lista"},
    };
    for (const auto& [line, text] : texts) lines[line] = utf8ToCp1250(text);
    return lines;
}

}  // namespace rovanel
