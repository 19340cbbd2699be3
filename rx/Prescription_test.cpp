#include "rx/Prescription.h"

#include <gtest/gtest.h>

#include "app/IniFile.h"
#include "db/Cp1250.h"
#include "rx/DsList.h"
#include "rx/PatientData.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

std::string utf8(const std::optional<Message>& message) { return message ? cp1250ToUtf8(message->text) : ""; }

// Name, addresses, birth date, BNO, TAJ, qualification and the permanent drugs, joined by '|' in UTF-8.
std::string fields(const PatientData& data)
{
    return cp1250ToUtf8(data.name + "|" + data.address1 + "|" + data.address2 + "|" + data.birthDate + "|" +
                        data.bno + "|" + data.taj + "|" + data.qualification + "|" + data.permanentDrugs);
}

TEST(PatientData, MissingFileGivesTheDefaultsAndKeysAreRead)
{
    testing::ScratchDirectory folder;
    EXPECT_EQ(fields(readPatientData(folder.path() / "nincs.ini")),
              "Beteg neve|Irsz, Helység|Utca, hsz.|00000000||||");
    folder.write("beteg.ini", utf8ToCp1250("[BetegAdatok]\r\nBeteg neve=Kiss Anna\r\nbeteg BNO=I10H0\r\n"
                                           "Beteg szul=1970.05.06\r\nOrvosSzakkep=00301,kardiológia;\r\n"));
    EXPECT_EQ(fields(readPatientData(folder.path() / "beteg.ini")),
              "Kiss Anna|Irsz, Helység|Utca, hsz.|1970.05.06|I10H0||00301,kardiológia;|");
}

TEST(PatientData, AgeIgnoresMonthAndDay)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"20261123", "19700506", "Kora: 56 év"},
        {"20261123", "00000000", "Kora: 2026 év"},  // no birth date: the age is the year itself
        {"20261123", "1970.05.06", "Kora: 56 év"},
        {"20261123", "197", ""},
        {"20261123", "19x0", ""},
        {"    .  .", "19700506", ""},
    };
    for (const auto& [date, born, expected] : cases)
        EXPECT_EQ(cp1250ToUtf8(ageText(date, born)), expected) << born;
}

TEST(DrugRecord, FieldsSurviveAndNeverSplitTheList)
{
    PrescriptionItem item;
    item.key = "200000001";
    item.productCode = "C08CA-0103";
    item.name = "AMLODIPIN-TEVA 5 MG TABLETTA 30X";
    item.packageForm = 3;
    item.quantity = "2";
    item.quantityLatin = "duas (II)";
    item.dosage = "D.S.:\r\nNaponta 1x1; reggel ~ este";
    item.substitutable = false;
    const std::string record = encodeDrugRecord(item, "20261123", "I10H0", 5);
    EXPECT_EQ(
        record,
        "200000001;C08CA-0103;AMLODIPIN-TEVA 5 MG TABLETTA 30X;3;2;duas (II);D.S.: Naponta 1x1, reggel - "
        "este;;20261123;I10H0;5");
    PrescriptionItem back = decodeDrugRecord(record);
    EXPECT_EQ(back.dosage, "D.S.: Naponta 1x1, reggel - este");
    back.dosage = item.dosage;
    EXPECT_EQ(back, item);

    item.substitutable = true;
    EXPECT_TRUE(decodeDrugRecord(encodeDrugRecord(item)).substitutable);
    EXPECT_EQ(decodeDrugRecord("only-a-key").key, "only-a-key");
    EXPECT_EQ(decodeDrugRecord("k;c;n;99").packageForm, 0);
    EXPECT_EQ(splitDrugRecords("a;b~~c;d~"), (std::vector<std::string>{"a;b", "c;d"}));
}

class RecordCheckTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        folder.write("bnohr.dat", "EU10 I10H0\r\n_EU13/b J4500\r\n");
        prescription.bno = "I10H0";
        prescription.item.quantity = "1";
        prescription.keys = {"EU10", "_EU13/b"};
        tree = parseTreeText("IX.\n\tI10 x\n\t\tI10H0 y\n\tJ4500 z\n");
    }
    std::string check() const { return utf8(checkPrescription(prescription, tree, folder.path()).message); }

    testing::ScratchDirectory folder;
    Prescription prescription;
    std::optional<std::vector<TreeNode>> tree;
};

TEST_F(RecordCheckTest, StepsRunInOrderAndStopAtTheFirstFailure)
{
    EXPECT_EQ(check(), "");
    EXPECT_TRUE(checkPrescription(prescription, tree, folder.path()).passed);

    prescription.bno = "I10";
    prescription.item.quantity.clear();
    EXPECT_EQ(check(), "Rövid BNO kód") << "the BNO length is checked before the quantity";
    EXPECT_EQ(checkPrescription(prescription, tree, folder.path()).focus, RecordCheck::Field::Bno);
    prescription.bno = "K2900";
    EXPECT_EQ(check(), "Adja meg a mennyiséget!") << "the quantity before the tree";
    prescription.source = 0;
    EXPECT_EQ(check(), "Hibás BNO kód") << "an own magistral item needs no quantity";
    prescription.bno = "I10H0";
    tree.reset();
    EXPECT_EQ(check(), "Hibás BNO kód") << "a missing tree holds no code";
}

TEST_F(RecordCheckTest, TheTitleMustAdmitTheDrug)
{
    prescription.title = kTitleKiemelt;
    EXPECT_EQ(check(), "");
    prescription.title = kTitleEmelt;
    EXPECT_EQ(check(), "Hiba: Rendeletben nem szereplő BNO kód");
    prescription.bno = "J4500";
    EXPECT_EQ(check(), "");
    prescription.titleCaptions[kTitleEmelt] = "-";
    EXPECT_EQ(check(), "Nem rendelhető ilyen jogcímen");
    prescription.title = kTitleTeljesAr;
    EXPECT_EQ(check(), "") << "an unregulated title needs no BNO rule";
    EXPECT_EQ(cp1250ToUtf8(invalidDataMessage().text), "Hibás adatok!");
}

TEST(SavePrescription, AppendsToTheHistoryAndKeepsTheOldFileOnAFailedWriteOrAnOverLongHistory)
{
    testing::ScratchDirectory folder;
    const auto ini = folder.path() / "beteg.ini";
    folder.write("beteg.ini", "[BetegAdatok]\r\nBeteg neve=Kiss Anna\r\nFelirt gyogyszerek=old;record~\r\n");
    Prescription prescription;
    prescription.item.key = "200000001";
    prescription.item.name = "AMLO";
    ASSERT_TRUE(savePrescription(ini, prescription).saved);
    const std::string saved = readProfileString(ini, kPatientSection, "Felirt gyogyszerek", "", 100000);
    EXPECT_EQ(saved, "old;record~" + encodeDrugRecord(prescription.item, "", "", 0) + "~");
    EXPECT_EQ(readProfileString(ini, kPatientSection, "Beteg neve", ""), "Kiss Anna");

    // The temporary file cannot be made: nothing of the old file is lost, and the message says why.
    std::string before = folder.read("beteg.ini");
    std::filesystem::create_directory(folder.path() / "beteg.ini.tmp~");
    SaveResult failed = savePrescription(ini, prescription);
    EXPECT_FALSE(failed.saved);
    EXPECT_NE(utf8(failed.message).find("nem írható"), std::string::npos);
    EXPECT_EQ(folder.read("beteg.ini"), before);

    // An over-long history is refused, not cut.
    std::filesystem::remove(folder.path() / "beteg.ini.tmp~");
    folder.write("beteg.ini",
                 "[BetegAdatok]\r\nFelirt gyogyszerek=" + std::string(kPatientValueLimit - 5, 'x') + "\r\n");
    before = folder.read("beteg.ini");
    failed = savePrescription(ini, prescription);
    EXPECT_FALSE(failed.saved);
    EXPECT_EQ(utf8(failed.message),
              "A(z) \"Felirt gyogyszerek\" érték túl hosszú (legfeljebb 65535 karakter), "
              "ezért nem menthető.");
    EXPECT_EQ(folder.read("beteg.ini"), before);
    EXPECT_EQ(utf8(refuseIniValue("Beteg neve", "a\nb")),
              "A(z) \"Beteg neve\" érték sortörést tartalmaz, ezért nem menthető.");
}

TEST(DosageList, TheTemplateIsCopiedOnceAndNeverOverwrites)
{
    testing::ScratchDirectory data, user;
    data.write("DsListT.txt", "Naponta 1x1\r\nNaponta 2x1\r\n\r\n");
    const auto list = user.path() / "DsList.txt";
    EXPECT_EQ(prepareDosageList(data.path(), list), (std::vector<std::string>{"Naponta 1x1", "Naponta 2x1"}));
    ASSERT_FALSE(saveDosageList(list, {"Saját\r\nsor"}));
    data.write("DsListT.txt", "Új sablon\r\n");
    EXPECT_EQ(prepareDosageList(data.path(), list), (std::vector<std::string>{"Saját  sor"}));
    EXPECT_EQ(dosageText("Naponta 1x1"), "D.S.:\nNaponta 1x1");
    testing::ScratchDirectory nothing;
    EXPECT_TRUE(prepareDosageList(nothing.path(), nothing.path() / "DsList.txt").empty());
}

TEST(PatientData, PathComesFromTheSettingsAndStaysOutOfTheDatabase)
{
    testing::ScratchDirectory data, user;
    testing::ScopedEnvironment environment;
    environment.set("ROVANEL_CONFIG_DIR", user.path().string());
    EXPECT_EQ(patientDataPath(data.path()), user.path() / "beteg.ini");
    data.write("RV.INI", "[Rovanel Beallitasok]\r\nBetegAdatokIniPath=c:\\klinora\\klinbeteg.ini\r\n");
#if defined(_WIN32)
    EXPECT_EQ(patientDataPath(data.path()), "c:\\klinora\\klinbeteg.ini");  // a real path there
#else
    EXPECT_EQ(patientDataPath(data.path()), user.path() / "klinbeteg.ini");
#endif
    data.write("RV.INI",
               "[Rovanel Beallitasok]\r\nBetegAdatokIniPath=" + (data.path() / "b.ini").string() + "\r\n");
    EXPECT_EQ(patientDataPath(data.path()), data.path() / "b.ini");
}

}  // namespace
}  // namespace rovanel
