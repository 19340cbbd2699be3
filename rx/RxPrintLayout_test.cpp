#include "rx/RxPrintLayout.h"

#include <gtest/gtest.h>

#include <set>

#include "app/RegistrySettings.h"
#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

RxPrintInput sampleInput()
{
    RxPrintInput input;
    input.patientName = utf8ToCp1250("Kiss Éva");
    input.address1 = "1111 Budapest";
    input.address2 = utf8ToCp1250("Fő utca 1.");
    input.birthDate = "1950.03.04.";
    input.eny = "123456789";
    input.eu = "ABCDEFGHIJKLMNOPQRSTUV";
    input.taj = "987654321";
    input.bno = "J4500";
    input.date = "2026.11.23.";
    input.title = 7;
    input.notSubstitutable = true;
    input.specialistStamp = "12345";
    input.recommendationDate = "2026.10.01.";
    input.logNumber = "77";
    input.drugName = "Algopyrin 500 mg tabletta";
    input.packageWord = "Tabl.Orig No.";
    input.quantity = "II";
    input.quantityInLatin = "duo";
    input.dosage = {"D.S.:", "naponta 3x1"};
    input.serialNumber = "AB1234567";
    return input;
}

TEST(PrescriptionLayout, ItemsStandAtTheirBoxesShiftedByTheFormatsMargins)
{
    struct Case {
        RxFormat format;
        const char* item;
        int left, top;
        const char* text;  // UTF-8
    };
    const Case cases[] = {
        // old form: margins 160 / 8 (defaults)
        {RxFormat::Old, "Nev", 198, 164, "Kiss Éva"},
        {RxFormat::Old, "Cim2", 198, 196, "Fő utca 1."},
        {RxFormat::Old, "SzulDat", 407, 158, "1 9 5 0 0 3 0 4"},
        {RxFormat::Old, "Eny", 393, 194, "1 2 3 4 5 6 7 8 9"},
        {RxFormat::Old, "Eu", 240, 226, "A B C D E F G H I J K L M N O P Q R S T"},
        {RxFormat::Old, "Taj", 198, 268, "9 8 7 6 5 4 3 2 1"},
        {RxFormat::Old, "Bno", 336, 268, "J 4 5 0 0"},
        {RxFormat::Old, "Datum", 416, 268, "2 0 2 6 1 1 2 3"},
        {RxFormat::Old, "NemHely", 512, 333, "X"},
        {RxFormat::Old, "Norm", 236, 295, ""},
        {RxFormat::Old, "Egy", 512, 366, ""},
        {RxFormat::Old, "Kgy", 360, 295, "X"},
        {RxFormat::Old, "Euk", 436, 295, "X"},
        {RxFormat::Old, "RpTxt", 198, 314, nullptr},
        {RxFormat::Old, "BarCode", 192, 640, "*AB1234567*"},
        // new form upright: margins 160 / 8
        {RxFormat::NewUpright, "SzulDat", 496, 158, "1 9 5 0 0 3 0 4"},
        {RxFormat::NewUpright, "Eny", 480, 194, "1 2 3 4 5 6 7 8 9"},
        {RxFormat::NewUpright, "Eu", 316, 226, "A B C D E F G H I J K L M N O P Q R S T"},
        {RxFormat::NewUpright, "NemHely", 570, 268, "X"},
        {RxFormat::NewUpright, "Kgy", 388, 302, "X"},
        {RxFormat::NewUpright, "Telj", 595, 302, ""},
        {RxFormat::NewUpright, "Psz", 287, 332, "1 2 3 4 5"},
        {RxFormat::NewUpright, "SzJDatum", 365, 332, "2 0 2 6 1 0 0 1"},
        {RxFormat::NewUpright, "Naploszam", 484, 332, "7 7"},
        {RxFormat::NewUpright, "RpTxt", 198, 368, nullptr},
        {RxFormat::NewUpright, "BarCode", 248, 728, "*AB1234567*"},
        // new form sideways: margins 655 / 8
        {RxFormat::NewSideways, "Nev", 693, 164, "Kiss Éva"},
        {RxFormat::NewSideways, "BarCode", 743, 728, "*AB1234567*"},
    };
    const RxPrintInput input = sampleInput();
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(static_cast<int>(c.format)) + " " + c.item);
        const PrintLayout layout = printedPrescription(c.format, input, RxMargins{});
        const PrintItem* item = findItem(layout, c.item);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->left, c.left);
        EXPECT_EQ(item->top, c.top);
        if (c.text) {
            EXPECT_EQ(cp1250ToUtf8(item->text), c.text);
        }
    }
}

TEST(PrescriptionLayout, FormatChoosesLayoutCaptionAndOrientation)
{
    using Case = std::tuple<RxFormat, const char*, const char*, PageOrientation, bool, const char*>;
    const Case cases[] = {
        {RxFormat::Old, "TRp3", "Recept - régi formátum", PageOrientation::Upright, false,
         "Recept formátum: Régi"},
        {RxFormat::NewUpright, "TRp2", "Recept", PageOrientation::Upright, true, "Recept formátum: Új álló"},
        {RxFormat::NewSideways, "TRp2", "Recept", PageOrientation::Sideways, true,
         "Recept formátum: Új fekvő"},
    };
    for (const auto& [format, name, caption, orientation, hasRecommendationBoxes, formatCaption] : cases) {
        SCOPED_TRACE(name);
        const PrintLayout layout = prescriptionLayout(format, sampleInput());
        EXPECT_EQ(layout.name, name);
        EXPECT_EQ(cp1250ToUtf8(layout.caption), caption);
        EXPECT_EQ(layout.orientation, orientation);
        EXPECT_EQ(findItem(layout, "Psz") != nullptr, hasRecommendationBoxes);
        EXPECT_EQ(layout.pages.size(), 1u);
        EXPECT_EQ(cp1250ToUtf8(rxFormatCaption(format)), formatCaption);
    }
}

TEST(PrescriptionLayout, EachTitleMarksItsBoxesAndOnlyThose)
{
    const char* const boxes[] = {"Norm", "Egy", "Hm", "Kgy", "Ub", "Euk", "Eue", "Telj"};
    const std::vector<std::set<std::string>> marked = {{"Norm"},       {"Hm"},  {"Kgy"},  {"Ub"},
                                                       {"Euk"},        {"Eue"}, {"Telj"}, {"Euk", "Kgy"},
                                                       {"Eue", "Kgy"}, {"Egy"}, {}};
    for (int title = 0; title <= 10; ++title) {
        SCOPED_TRACE(title);
        RxPrintInput input = sampleInput();
        input.title = title;
        for (const RxFormat format : {RxFormat::Old, RxFormat::NewUpright}) {
            const PrintLayout layout = prescriptionLayout(format, input);
            for (const char* box : boxes)
                EXPECT_EQ(findItem(layout, box)->text,
                          marked[static_cast<std::size_t>(title)].count(box) ? "X" : "")
                    << box;
        }
    }
}

TEST(PrescriptionLayout, MemoAndBarCodeAreComposedFromTheForm)
{
    // What the form holds, the format, the change to the sample, and the memo in UTF-8.
    using Case = std::tuple<const char*, RxFormat, void (*)(RxPrintInput&), const char*>;
    const Case cases[] = {
        {"new form: drug, quantity, D.S.", RxFormat::NewUpright, [](RxPrintInput&) {},
         "Algopyrin 500 mg tabletta\nTabl.Orig No. II (duo)\nD.S.:\nnaponta 3x1"},
        {"old form adds the recommendation line", RxFormat::Old, [](RxPrintInput&) {},
         "Algopyrin 500 mg tabletta\nTabl.Orig No. II (duo)\nD.S.:\nnaponta 3x1\n"
         "Szak.jav.psz:12345 D:2026.10.01. Nsz:77"},
        {"the empty date mask is no date", RxFormat::Old,
         [](RxPrintInput& i) { i.recommendationDate = "    .  .  ."; },
         "Algopyrin 500 mg tabletta\nTabl.Orig No. II (duo)\nD.S.:\nnaponta 3x1\nSzak.jav.psz:12345 Nsz:77"},
        {"no recommendation data, no line", RxFormat::Old,
         [](RxPrintInput& i) {
             i.specialistStamp.clear();
             i.recommendationDate = "    .  .  .";
             i.logNumber.clear();
         },
         "Algopyrin 500 mg tabletta\nTabl.Orig No. II (duo)\nD.S.:\nnaponta 3x1"},
        {"copy mark first, extra text last", RxFormat::NewSideways,
         [](RxPrintInput& i) {
             i.copy = true;
             i.extra = {"", rovanel::utf8ToCp1250("Sürgős!")};
         },
         "                              MÁSOLAT\nAlgopyrin 500 mg tabletta\nTabl.Orig No. II (duo)\nD.S.:\n"
         "naponta 3x1\nSürgős!"},
        {"an unmarked package type writes no word", RxFormat::NewUpright,
         [](RxPrintInput& i) {
             i.packageWord = rovanel::utf8ToCp1250("- Nem jelölt -");
             i.quantityInLatin.clear();
         },
         "Algopyrin 500 mg tabletta\nII\nD.S.:\nnaponta 3x1"},
    };
    for (const auto& [what, format, change, memo] : cases) {
        SCOPED_TRACE(what);
        RxPrintInput input = sampleInput();
        change(input);
        EXPECT_EQ(cp1250ToUtf8(findItem(prescriptionLayout(format, input), "RpTxt")->text), memo);
    }
    RxPrintInput noSerial = sampleInput();
    noSerial.serialNumber.clear();
    EXPECT_EQ(barCodeText(noSerial), "");
}

TEST(PrescriptionLayout, PrintingTwicePrintsAtTheSamePlace)
{
    const RxPrintInput input = sampleInput();
    const RxMargins margins{-12, 30, 5, -7, 600, 0};
    const PrintLayout designed = prescriptionLayout(RxFormat::Old, input);
    const PrintLayout first = printedPrescription(RxFormat::Old, input, margins);
    const PrintLayout second = printedPrescription(RxFormat::Old, input, margins);
    EXPECT_EQ(first, second);
    EXPECT_EQ(prescriptionLayout(RxFormat::Old, input), designed);
    EXPECT_EQ(findItem(first, "Nev")->left, 38 - 12);
    EXPECT_EQ(findItem(first, "Nev")->top, 156 + 30);
}

TEST(RxMargins, NegativeShiftsAreStoredAsThousandMinusTheShift)
{
    const std::pair<int, std::uint32_t> cases[] = {{0, 0},     {160, 160},  {1000, 1000},
                                                   {-5, 1005}, {-12, 1012}, {-1, 1001}};
    for (const auto& [shift, stored] : cases) {
        SCOPED_TRACE(shift);
        EXPECT_EQ(storedMargin(shift), stored);
        EXPECT_EQ(marginFromStored(stored), shift);
    }
    // Damaged values stay far outside any page rather than wrap.
    EXPECT_EQ(marginFromStored(4294967295LL), -99000);
}

TEST(RxPrintSettings, AMissingSettingKeepsItsDefaultAndWrittenOnesSurviveARestart)
{
    testing::ScratchDirectory directory;
    const auto file = directory.path() / "registry.ini";
    auto store = openRegistryFile(file);
    const RxPrintSettingsRead missing = readRxPrintSettings(*store);
    ASSERT_TRUE(missing.error);
    EXPECT_EQ(cp1250ToUtf8(missing.error->text), kRegistryNotFoundText);
    EXPECT_EQ(missing.settings.margins, RxMargins{});
    EXPECT_TRUE(writeRxMargins(*store, RxMargins{}));  // a writer never creates a missing setting

    ASSERT_FALSE(EnsureRegistryDefaults(*store));
    const RxPrintSettingsRead defaults = readRxPrintSettings(*store);
    EXPECT_FALSE(defaults.error);
    EXPECT_EQ(defaults.settings.margins, RxMargins{});
    EXPECT_EQ(defaults.settings.format, RxFormat::Old);
    EXPECT_EQ(defaults.settings.printMode, 0);
    EXPECT_FALSE(writeRxMargins(*store, RxMargins{-12, 1000, 0, -1, 655, 8}));
    EXPECT_FALSE(writeRxFormat(*store, RxFormat::NewSideways));
    EXPECT_FALSE(writeRxPrintMode(*store, 1));
    EXPECT_EQ(RegReadInteger(*store, "\\Software\\Rovanel\\RpData\\LeftAlloRegi").value, 1012);
    store.reset();
    const RxPrintSettingsRead read = readRxPrintSettings(*openRegistryFile(file));
    EXPECT_FALSE(read.error);
    EXPECT_EQ(read.settings.margins, (RxMargins{-12, 1000, 0, -1, 655, 8}));
    EXPECT_EQ(read.settings.format, RxFormat::NewSideways);
    EXPECT_EQ(read.settings.printMode, 1);
}

}  // namespace
}  // namespace rovanel
