// The prescription window driven by its controls' names on the demo database, with the patient data file
// and the dosage list in a scratch folder and every message box recorded.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <fstream>

#include "app/IniFile.h"
#include "app/RegistrySettings.h"
#include "certs/forms/Szakjav.h"
#include "db/Cp1250.h"
#include "db/SharedState.h"
#include "rx/PackageData.h"
#include "rx/PatientData.h"
#include "rx/forms/PrintRenderer.h"
#include "rx/forms/Rvrp.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/PdfWords.h"

namespace
{

const std::filesystem::path kDemo = ROVANEL_DEMO_DB;

// A radio button is clicked on its indicator: a short caption leaves the middle of a wide button empty.
void clickRadio(QRadioButton* radio)
{
    QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(6, radio->height() / 2));
}

template <typename T>
T* child(QWidget& form, const char* name)
{
    T* found = form.findChild<T*>(name);
    if (!found) qFatal("control %s is missing", name);
    return found;
}

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

// The first medicine with an increased (fee-paying) support and no highlighted one.
std::int32_t packageWithFeeKey(const rovanel::SharedState& state)
{
    for (std::int32_t record = 0; record < state.tables.counts.medicines(); ++record) {
        const auto package = rovanel::packageData(state.tables, kDemo, record);
        if (package && !package->keys.feeKey.empty() && package->keys.freeKey.empty() &&
            package->daysPerPackage > 0)
            return record;
    }
    return -1;
}

}  // namespace

class TestRvrp : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cursorOnNoPackageIsRefused();
    void prescriptionForAPackageIsWrittenCheckedAndSaved();
    void recordCheckStopsAtTheFirstFailure();
    void permanentDrugWithoutEntryAllowsOnlyThreeTitles();
    void titleShownAsDashIsRefused();
    void dosageListIsNeverOverwrittenByTheTemplate();
    void regulationTextOfACodeLineOnRightClick();
    void magistralItemIsAddedWithItsCode();
    void printingChecksSavesAndPrintsTheForm();
    void formatModeAndMarginsAreKeptInTheUserSettings();
    void specialistRecommendationTakesTheDrugAndItsSupport();

private:
    std::unique_ptr<TRp> makeForm();
    rovanel::SharedState m_state;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::filesystem::path m_ini, m_dosageList;
};

void TestRvrp::initTestCase()
{
    m_state.tables = rovanel::loadStartupTables(kDemo, kDemo / "no-user.ini");
    QVERIFY(m_state.tables.counts.products() > 0);
}

void TestRvrp::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_ini = std::filesystem::path(m_folder->path().toStdString()) / "beteg.ini";
    m_dosageList = std::filesystem::path(m_folder->path().toStdString()) / "DsList.txt";
}

std::unique_ptr<TRp> TestRvrp::makeForm()
{
    auto form = std::make_unique<TRp>(m_state, kDemo);
    form->setPatientDataPath(m_ini);
    form->setDosageListPath(m_dosageList);
    form->setToday("20261123");
    form->setSource(3);
    return form;
}

void TestRvrp::cursorOnNoPackageIsRefused()
{
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(!form->openForPackage(-1));
    QCOMPARE(messages.texts(), QStringList{text("A kurzor nem kiszerelést tartalmazó sorban van!")});
    QVERIFY(!form->isVisible());
}

void TestRvrp::prescriptionForAPackageIsWrittenCheckedAndSaved()
{
    const std::int32_t record = packageWithFeeKey(m_state);
    QVERIFY(record >= 0);
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(form->openForPackage(record));
    QCOMPARE(form->windowTitle(), text("Recept"));
    QCOMPARE(child<QLineEdit>(*form, "FelirDat")->text(), QString("20261123"));
    QCOMPARE(child<QPlainTextEdit>(*form, "GyogyszerDs")->toPlainText(), QString("D.S.:"));
    QCOMPARE(child<QLineEdit>(*form, "BetegNev")->text(),
             QString("Beteg neve"));  // no patient file: defaults
    QCOMPARE(child<QLineEdit>(*form, "BetegKora")->text(), text("Kora: 2026 év"));
    auto* emelt = child<QRadioButton>(*form, "JogcimGrp5");
    QCOMPARE(emelt->text(), text("Eü. emelt"));

    // "Eü. emelt" on a prescription from the drug list opens the BNO code list at once.
    auto* codes = child<QPushButton>(*form, "BnoKodok");
    QCOMPARE(codes->text(), text("Kódtábla"));
    clickRadio(emelt);
    auto* list = child<QListWidget>(*form, "BnoEuLst");
    QVERIFY(list->count() > 0);
    QVERIFY(list->item(0)->text().contains(QRegularExpression("\t(90|70|50)%  ")));
    QCOMPARE(codes->text(), text("Beilleszt"));
    QVERIFY(messages.texts().isEmpty());

    // The list filters as one types; the hidden lines stay in it.
    auto* filter = child<QLineEdit>(*form, "BnoEuSzuro");
    const QString firstCode = list->item(0)->text().section(' ', 0, 0);
    QTest::keyClicks(filter, firstCode.toLower());
    QVERIFY(!list->item(0)->isHidden());
    int shown = 0;
    for (int i = 0; i < list->count(); ++i) shown += list->item(i)->isHidden() ? 0 : 1;
    QCOMPARE(shown, 1);
    filter->clear();
    QVERIFY(!list->item(list->count() - 1)->isHidden());

    // Beilleszt without a chosen line asks for one; with a line it takes its code.
    QTest::mouseClick(codes, Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{text("Jelölje ki a BNO kódot a listából!")});
    messages.clear();
    list->setCurrentRow(0);
    QTest::mouseClick(codes, Qt::LeftButton);
    const QString code = list->item(0)->text().section(' ', 0, 0);
    QCOMPARE(child<QLineEdit>(*form, "BetegBNO")->text(), code);
    QCOMPARE(codes->text(), text("Kódtábla"));
    messages.clear();  // a qualification notice, when the point has qualifications

    auto* quantity = child<QLineEdit>(*form, "Mennyiseg");
    QTest::keyClicks(quantity, "30");
    QCOMPARE(child<QLineEdit>(*form, "MennyisegLatinul")->text(), QString("triginta (XXX)"));
    QVERIFY(child<QPlainTextEdit>(*form, "RpE")->toPlainText().contains(text(" hónapos adag")));
    QVERIFY(messages.texts().isEmpty());

    QTest::mouseClick(child<QPushButton>(*form, "RpSaveOnly"), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{text("Recept elmentve.")});
    const std::string history =
        rovanel::readProfileString(m_ini, rovanel::kPatientSection, "Felirt gyogyszerek", "", 100000);
    const auto package = rovanel::packageData(m_state.tables, kDemo, record);
    QVERIFY(history.find(package->name) != std::string::npos);
    QVERIFY(history.find(";triginta (XXX);") != std::string::npos);
    QVERIFY(history.ends_with("~"));
    QVERIFY(child<QTextEdit>(*form, "RpPreview")->toPlainText().contains("triginta (XXX)"));
}

void TestRvrp::recordCheckStopsAtTheFirstFailure()
{
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(form->openForPackage(0));
    auto* bno = child<QLineEdit>(*form, "BetegBNO");
    auto* save = child<QPushButton>(*form, "RpSaveOnly");
    const std::pair<const char*, QStringList> cases[] = {
        {"I10", {text("Rövid BNO kód"), text("Hibás adatok!")}},
        {"I10H0", {text("Adja meg a mennyiséget!"), text("Hibás adatok!")}},
    };
    for (const auto& [typed, expected] : cases) {
        messages.clear();
        bno->setText(typed);
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(messages.texts(), expected);
    }
    child<QLineEdit>(*form, "Mennyiseg")->setText("1");
    messages.clear();
    bno->setText("I1090");  // five characters, but no node of the tree holds it
    QTest::mouseClick(save, Qt::LeftButton);
    QCOMPARE(messages.texts(), (QStringList{text("Hibás BNO kód"), text("Hibás adatok!")}));
    QVERIFY2(!std::filesystem::exists(m_ini), "nothing is saved");
}

void TestRvrp::permanentDrugWithoutEntryAllowsOnlyThreeTitles()
{
    QVERIFY(rovanel::writeProfileString(
        m_ini, rovanel::kPatientSection, "Allando gyogyszerek",
        "900000001;;ELSO 10 MG;3;2;duas (II);D.S.: reggel;;;;~900000009;;MASIK;0;;;;;;;~"));
    MessageRecorder messages;
    auto form = makeForm();
    form->showPermanentDrugs(true);
    QCOMPARE(form->listMode(), 3);
    auto* permanent = child<QListWidget>(*form, "GyChLst");
    QCOMPARE(permanent->count(), 2);

    form->GyChLstClick(0);
    QCOMPARE(form->windowTitle(), QString("900000001"));
    QCOMPARE(child<QLineEdit>(*form, "GyogyszerNev")->text(), QString("ELSO 10 MG"));
    QVERIFY(child<QRadioButton>(*form, "KiszertipGrp3")->isChecked());
    QCOMPARE(child<QRadioButton>(*form, "JogcimGrp4")->text(), text("Eü. rend."));
    QCOMPARE(child<QRadioButton>(*form, "JogcimGrp8")->text(), text("Eü. térítésköt. + közgy"));

    form->GyChLstClick(1);
    QStringList captions;
    for (int i = 0; i < 10; ++i)
        captions << child<QRadioButton>(*form, QString("JogcimGrp%1").arg(i).toLatin1().constData())->text();
    QCOMPARE(captions, (QStringList{text("Normatív"), "-", "-", "-", "-", "-", text("Teljes ár"), "-", "-",
                                    text("Egyedi támogatás")}));
    QVERIFY(child<QRadioButton>(*form, "JogcimGrp0")->isChecked());
    QVERIFY(messages.texts().isEmpty());
}

void TestRvrp::titleShownAsDashIsRefused()
{
    QVERIFY(rovanel::writeProfileString(m_ini, rovanel::kPatientSection, "Allando gyogyszerek",
                                        "900000009;;MASIK~"));
    MessageRecorder messages;
    auto form = makeForm();
    form->showPermanentDrugs(false);
    QCOMPARE(form->listMode(), 0);
    form->GyChLstClick(0);
    auto* hm = child<QRadioButton>(*form, "JogcimGrp1");
    clickRadio(hm);
    QCOMPARE(messages.texts(), QStringList{text("Nem rendelhető ilyen jogcímen")});
    QVERIFY2(hm->isChecked(), "the choice stays as made");
}

void TestRvrp::dosageListIsNeverOverwrittenByTheTemplate()
{
    {
        std::ofstream out(m_dosageList, std::ios::binary);
        out << "Saj\xE1t adagol\xE1s\r\n";  // Windows-1250
    }
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(form->openForPackage(0));
    auto* dosages = child<QComboBox>(*form, "RpDsList");
    QCOMPARE(dosages->count(), 1);
    dosages->setEditText(text("Naponta 2x1"));
    QCOMPARE(child<QPlainTextEdit>(*form, "GyogyszerDs")->toPlainText(), text("D.S.:\nNaponta 2x1"));
    QTest::mouseClick(child<QPushButton>(*form, "DsAd"), Qt::LeftButton);
    QCOMPARE(dosages->count(), 2);

    auto again = makeForm();
    QVERIFY(again->openForPackage(0));
    auto* reread = child<QComboBox>(*again, "RpDsList");
    QCOMPARE(reread->count(), 2);
    QCOMPARE(reread->itemText(0), text("Naponta 2x1"));
    QCOMPARE(reread->itemText(1), text("Saját adagolás"));
}

void TestRvrp::regulationTextOfACodeLineOnRightClick()
{
    const std::int32_t record = packageWithFeeKey(m_state);
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(form->openForPackage(record));
    clickRadio(child<QRadioButton>(*form, "JogcimGrp5"));
    auto* list = child<QListWidget>(*form, "BnoEuLst");
    QCOMPARE(child<QLabel>(*form, "MsgLabel")->text(),
             text("A rendelet szövege a jobb egérgomb lenyomásával megjeleníthető"));
    form->BnoEuLstRightClick();
    QCOMPARE(messages.texts(), QStringList{text("Jelöljön ki egy sort!")});
    messages.clear();
    list->setCurrentRow(0);
    form->BnoEuLstRightClick();
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().front().startsWith(text("Emelt ")));  // the rend.dat text of the point
    messages.clear();
    list->addItem("A0000 \t90%  EU999/z\t");
    list->setCurrentRow(list->count() - 1);
    form->BnoEuLstRightClick();
    QCOMPARE(messages.texts(), QStringList{text("Hibás kód:_EU999/z")});
}

void TestRvrp::magistralItemIsAddedWithItsCode()
{
    MessageRecorder messages;
    auto form = makeForm();
    form->setSource(0);
    form->addItem("Rp. Acidi borici 2,0", "Naponta 2x", std::string(rovanel::kMagistralProductCode));
    QCOMPARE(child<QLineEdit>(*form, "GyogyszerNev")->text(), QString("Rp. Acidi borici 2,0"));
    QCOMPARE(form->prescription().item.productCode, std::string("999999999"));
    child<QLineEdit>(*form, "BetegBNO")->setText("I10H0");
    QTest::mouseClick(child<QPushButton>(*form, "RpSaveOnly"), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{text("Recept elmentve.")});  // no quantity needed for source 0
}

void TestRvrp::printingChecksSavesAndPrintsTheForm()
{
    MessageRecorder messages;
    const auto file = std::filesystem::path(m_folder->path().toStdString()) / "recept.pdf";
    int printed = 0;
    const auto previous = rovanel::forms::setDirectPrintTarget([&](QPrinter& printer, const auto& paint) {
        ++printed;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file.string()));
        paint(printer);
    });
    auto form = makeForm();
    form->setSource(0);
    form->addItem("Rp. Acidi borici 2,0", "Naponta 2x", std::string(rovanel::kMagistralProductCode));
    auto* print = child<QPushButton>(*form, "RpPrint");
    QTest::mouseClick(print, Qt::LeftButton);  // no BNO code: refused, nothing printed
    QCOMPARE(messages.texts(), (QStringList{text("Rövid BNO kód"), text("Hibás adatok!")}));
    QCOMPARE(printed, 0);

    child<QLineEdit>(*form, "BetegBNO")->setText("I10H0");
    QTest::mouseClick(print, Qt::LeftButton);
    rovanel::forms::setDirectPrintTarget(previous);
    QCOMPARE(printed, 1);
    QVERIFY(rovanel::readProfileString(m_ini, rovanel::kPatientSection, "Felirt gyogyszerek", "", 100000)
                .find("Acidi borici") != std::string::npos);
    const auto words = rovanel::testing::pdfWords(file);
    QVERIFY2(!words.empty(), "pdftotext (poppler-utils) is needed");
    QStringList printedWords;
    for (const auto& word : words) printedWords << QString::fromStdString(word.text);
    const QString all = printedWords.join(' ');
    QVERIFY2(all.contains("Rp. Acidi borici 2,0"), qPrintable(all));
    QVERIFY2(all.contains("Naponta 2x"), qPrintable(all));
    QVERIFY2(all.contains(text("I 1 0 H 0")), qPrintable(all));

    // "PDF" saves the same form as the chosen file.
    const auto pdf = std::filesystem::path(m_folder->path().toStdString()) / "masik.pdf";
    const auto chooser = rovanel::forms::setPdfFileChooser(
        [&pdf](QWidget*, const QString&) { return QString::fromStdString(pdf.string()); });
    QTest::mouseClick(child<QPushButton>(*form, "RpPdf"), Qt::LeftButton);
    rovanel::forms::setPdfFileChooser(chooser);
    QVERIFY(std::filesystem::exists(pdf));
}

void TestRvrp::formatModeAndMarginsAreKeptInTheUserSettings()
{
    MessageRecorder messages;
    const auto registry =
        rovanel::openRegistryFile(std::filesystem::path(m_folder->path().toStdString()) / "registry.ini");
    QVERIFY(!rovanel::EnsureRegistryDefaults(*registry));  // as the program's start creates them
    {
        auto form = makeForm();
        form->setRegistry(registry.get());
        QVERIFY(child<QRadioButton>(*form, "RpFormat0")->isChecked());
        form->show();
        clickRadio(child<QRadioButton>(*form, "RpFormat2"));
        QCOMPARE(form->windowTitle(), text("Recept formátum: Új fekvő"));
        clickRadio(child<QRadioButton>(*form, "PrintModeGrp1"));

        // F11 shows and hides the margins in NaploSzam only.
        auto* panel = child<QWidget>(*form, "RpMarginPanel");
        QTest::keyClick(child<QLineEdit>(*form, "SzoAzon"), Qt::Key_F11);
        QVERIFY(!panel->isVisible());
        QTest::keyClick(child<QLineEdit>(*form, "NaploSzam"), Qt::Key_F11);
        QVERIFY(panel->isVisible());
        QCOMPARE(child<QSpinBox>(*form, "LeftFekvo")->value(), 655);
        child<QSpinBox>(*form, "LeftFekvo")->setValue(600);
        child<QSpinBox>(*form, "TopFekvo")->setValue(-12);
        QTest::mouseClick(child<QPushButton>(*form, "SaveNewMargins"), Qt::LeftButton);
        QCOMPARE(rovanel::RegReadInteger(*registry, "\\Software\\Rovanel\\RpData\\TopFekvo").value, 1012);
        QTest::keyClick(child<QLineEdit>(*form, "NaploSzam"), Qt::Key_F11);
        QVERIFY(!panel->isVisible());
        QCOMPARE(messages.texts().join("/"), QString());
    }
    // After a restart: the same format, mode and margins, and the print stands where they put it.
    auto form = makeForm();
    form->setRegistry(registry.get());
    QVERIFY(child<QRadioButton>(*form, "RpFormat2")->isChecked());
    QVERIFY(child<QRadioButton>(*form, "PrintModeGrp1")->isChecked());
    QCOMPARE(child<QSpinBox>(*form, "TopFekvo")->value(), -12);
    const auto file = std::filesystem::path(m_folder->path().toStdString()) / "elokep.pdf";
    int previewed = 0;
    const auto previous = rovanel::forms::setPreviewTarget([&](QPrinter& printer, const auto& paint) {
        ++previewed;
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Landscape);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file.string()));
        paint(printer);
    });
    form->setSource(0);
    form->addItem("Rp. Acidi borici 2,0", "Naponta 2x", std::string(rovanel::kMagistralProductCode));
    child<QLineEdit>(*form, "BetegBNO")->setText("I10H0");
    QTest::mouseClick(child<QPushButton>(*form, "RpPrint"), Qt::LeftButton);
    rovanel::forms::setPreviewTarget(previous);
    QCOMPARE(previewed, 1);
    QVERIFY(messages.texts().isEmpty());
    // RpTxt of the new form stands at 38, 360.
    const auto words = rovanel::testing::pdfWords(file);
    QCOMPARE(QString::fromStdString(
                 rovanel::testing::textAt(words, (38 + 600) * rovanel::kMillimetresPerLayoutUnit,
                                          (360 - 12) * rovanel::kMillimetresPerLayoutUnit)),
             QString("Rp. Acidi borici 2,0"));
}

void TestRvrp::specialistRecommendationTakesTheDrugAndItsSupport()
{
    const std::int32_t record = packageWithFeeKey(m_state);
    QVERIFY(record >= 0);
    const auto package = rovanel::packageData(m_state.tables, kDemo, record);
    MessageRecorder messages;
    auto form = makeForm();
    QVERIFY(!child<QPushButton>(*form, "RpSzakJav")->isEnabled());  // nothing to open
    Tszj recommendation(m_state);
    form->setRecommendationOpener([&recommendation](const rovanel::RecommendationHandover& handover) {
        recommendation.show();
        recommendation.fill(handover);
    });
    QVERIFY(form->openForPackage(record));
    child<QLineEdit>(*form, "BetegBNO")->setText("I10H0");
    child<QLineEdit>(*form, "BetegNev")->setText(text("Kiss Éva"));
    QTest::mouseClick(child<QPushButton>(*form, "RpSzakJav"), Qt::LeftButton);
    QVERIFY(recommendation.isVisible());
    const rovanel::RecommendationGrids grids = recommendation.grids();
    QCOMPARE(grids.bg[0][1], rovanel::utf8ToCp1250("Kiss Éva"));
    const auto& line = grids.gg[1];
    QCOMPARE(line[0], std::string("I10H0"));
    QVERIFY2(line[1] != "a hatoanyag" && line[1] != rovanel::toBeFilledIn(), line[1].c_str());
    QCOMPARE(line[5], package->designation.substr(0, 3));
    QVERIFY(!line[6].empty() && package->designation.find(line[6]) == 5);
    QVERIFY(messages.texts().isEmpty());
}

QTEST_MAIN(TestRvrp)
#include "tst_Rvrp.moc"
