// The prescription window driven by its controls' names on the demo database, with the patient data file
// and the dosage list in a scratch folder and every message box recorded; the BNO browser on the demo's
// bno.tre; the public-care certificate and the specialist recommendation windows; and the renderer of the
// printed forms, whose PDF is read back with poppler, each value within 1 mm of its box.

#include "app/IniFile.h"
#include "app/RegistrySettings.h"
#include "certs/forms/Kgy.h"
#include "certs/forms/Szakjav.h"
#include "rx/PackageData.h"
#include "rx/PatientData.h"
#include "rx/RxPrintLayout.h"
#include "rx/forms/Rvbno.h"
#include "rx/forms/Rvrp.h"
#include "tests/forms/support/Windows.h"

namespace
{

const std::filesystem::path kDemo = ROVANEL_DEMO_DB;

// The scratch folder of one test, and what the window leaves in it.
struct Scratch : WindowSurroundings {
    rovanel::testing::ScratchDirectory folder;
    std::filesystem::path ini = folder.path() / "beteg.ini";

    [[nodiscard]] std::string history() const
    {
        return rovanel::readProfileString(ini, rovanel::kPatientSection, "Felirt gyogyszerek", "", 100000);
    }
};

// Hands the window a magistral item for the demo's "from the drug list" source 0, with a BNO code.
void addMagistral(TRp& form)
{
    form.setSource(0);
    form.addItem("Rp. Acidi borici 2,0", "Naponta 2x", std::string(rovanel::kMagistralProductCode));
    control<QLineEdit>(form, "BetegBNO")->setText("I10H0");
}

void search(const QObject& form, const QString& text)
{
    control<QLineEdit>(form, "BnoEdt")->setText(text);
    click(form, "BnoKeres");
}

rovanel::testing::EngineDatabase withAmlodipinGroup()
{
    rovanel::testing::EngineDatabase database;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"C08CA-01", "amlodipin"}};
    return database;
}

// The data folder of both windows: RV.INI names the patient data file and the certificate list in it.
struct CertificateFolder : DatabaseState {
    CertificateFolder() : DatabaseState(withAmlodipinGroup())
    {
        const std::string folder = directory.path().string();
        directory.write("RV.INI", "[Rovanel Beallitasok]\nKgyTxtPath=" + folder +
                                      "/kgy.txt\nBetegAdatokIniPath=" + folder + "/beteg.ini\n");
        directory.write("beteg.ini",
                        rovanel::utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\nOrvosNeve=Dr. Szabo\n"
                                              "OrvosMhTel=1-234\n[OrvosAdatok]\norvnev=Dr. Kovács Béla\n"));
        directory.write("kgy.txt", rovanel::utf8ToCp1250("C08CA01;1234567;Norvasc 5 mg tabletta 30x;tabletta;"
                                                         "amlodipin \r\nA02BC01;7654321;Omeprazol;kapszula;"
                                                         "omeprazol\r\n"));
    }
};

rovanel::RecommendationHandover handover(const char* title)
{
    // BNO code, title, ATC code, patient's name, address (two lines), birth date, TAJ.
    return {"I1000", title, "C08CA01", rovanel::utf8ToCp1250("Kiss Éva"), "", "", "", "123456789"};
}

QString cell(const QObject& form, const char* grid, int row, int column)
{
    const QTableWidgetItem* item = control<QTableWidget>(form, grid)->item(row, column);
    return item ? item->text() : QString();
}

}  // namespace

class TestPrescription : public QObject
{
    Q_OBJECT
    DatabaseState m_demo{kDemo};
    std::unique_ptr<Scratch> m_scratch;

    std::unique_ptr<TRp> makeForm()
    {
        auto form = std::make_unique<TRp>(m_demo.state, kDemo);
        form->setPatientDataPath(m_scratch->ini);
        form->setDosageListPath(m_scratch->folder.path() / "DsList.txt");
        form->setToday("20261123");
        form->setSource(3);
        return form;
    }
    // The messages shown since the last look.
    [[nodiscard]] QStringList messages() const { return m_scratch->messages.take(); }
    // The first medicine with an increased (fee-paying) support and no highlighted one.
    [[nodiscard]] std::int32_t packageWithFeeKey() const
    {
        for (std::int32_t record = 0; record < m_demo.state.tables.counts.medicines(); ++record) {
            const auto package = rovanel::packageData(m_demo.state.tables, kDemo, record);
            if (package && !package->keys.feeKey.empty() && package->keys.freeKey.empty() &&
                package->daysPerPackage > 0)
                return record;
        }
        return -1;
    }

private slots:
    void initTestCase() { QVERIFY(m_demo.state.tables.counts.products() > 0); }
    void init() { m_scratch = std::make_unique<Scratch>(); }
    void cleanup() { m_scratch.reset(); }

    // Written, checked, saved, and handed to the specialist recommendation.
    void prescriptionForAPackageIsWrittenCheckedAndSaved()
    {
        const std::int32_t record = packageWithFeeKey();
        QVERIFY(record >= 0);
        auto form = makeForm();
        QVERIFY(!control<QPushButton>(*form, "RpSzakJav")->isEnabled());  // nothing to open
        Tszj recommendation(m_demo.state);
        form->setRecommendationOpener([&recommendation](const rovanel::RecommendationHandover& handover) {
            recommendation.show();
            recommendation.fill(handover);
        });
        QVERIFY(!form->openForPackage(-1));
        QCOMPARE(messages(), QStringList{"A kurzor nem kiszerelést tartalmazó sorban van!"});
        QVERIFY(!form->isVisible());
        QVERIFY(form->openForPackage(record));
        QCOMPARE(form->windowTitle(), QString("Recept"));
        QCOMPARE(
            textsOf(*form, {"FelirDat", "GyogyszerDs", "BetegNev", "BetegKora", "JogcimGrp5", "BnoKodok"}),
            (QStringList{"20261123", "D.S.:", "Beteg neve", "Kora: 2026 év", "Eü. emelt",
                         "Kódtábla"}));  // no patient file

        // "Eü. emelt" on a prescription from the drug list opens the BNO code list at once.
        click(*form, "JogcimGrp5");
        auto* list = control<QListWidget>(*form, "BnoEuLst");
        QVERIFY(list->count() > 0 && list->item(0)->text().contains(QRegularExpression("\t(90|70|50)%  ")));
        QCOMPARE(
            textsOf(*form, {"BnoKodok", "MsgLabel"}),
            (QStringList{"Beilleszt", "A rendelet szövege a jobb egérgomb lenyomásával megjeleníthető"}));
        form->BnoEuLstRightClick();  // the regulation text of a code line needs a line
        QCOMPARE(messages(), QStringList{"Jelöljön ki egy sort!"});

        // The list filters as one types; the hidden lines stay in it.
        const QString code = list->item(0)->text().section(' ', 0, 0);
        typeInto(*form, "BnoEuSzuro", code.toLower());
        int shown = 0;
        for (int i = 0; i < list->count(); ++i) shown += list->item(i)->isHidden() ? 0 : 1;
        QVERIFY2(shown == 1 && !list->item(0)->isHidden(), "only the first line shows");
        control<QLineEdit>(*form, "BnoEuSzuro")->clear();
        QVERIFY(!list->item(list->count() - 1)->isHidden());

        // Beilleszt without a chosen line asks for one; with a line it takes its code.
        click(*form, "BnoKodok");
        QCOMPARE(messages(), QStringList{"Jelölje ki a BNO kódot a listából!"});
        list->setCurrentRow(0);
        click(*form, "BnoKodok");
        QCOMPARE(textsOf(*form, {"BetegBNO", "BnoKodok"}), (QStringList{code, "Kódtábla"}));
        m_scratch->messages.clear();  // a qualification notice, when the point has qualifications

        typeInto(*form, "Mennyiseg", "30");
        QCOMPARE(textOf(*form, "MennyisegLatinul"), QString("triginta (XXX)"));
        QVERIFY(textOf(*form, "RpE").contains(" hónapos adag"));

        click(*form, "RpSaveOnly");
        QCOMPARE(messages(), QStringList{"Recept elmentve."});
        QVERIFY(m_scratch->history().find(";triginta (XXX);") != std::string::npos);  // the record: core's
        QVERIFY(textOf(*form, "RpPreview").contains("triginta (XXX)"));

        // A right click on a code line shows the rend.dat text of its point.
        form->BnoEuLstRightClick();
        const QStringList regulation = messages();
        QVERIFY(regulation.size() == 1 && regulation.front().startsWith("Emelt "));
        list->addItem("A0000 \t90%  EU999/z\t");
        list->setCurrentRow(list->count() - 1);
        form->BnoEuLstRightClick();
        QCOMPARE(messages(), QStringList{"Hibás kód:_EU999/z"});

        control<QLineEdit>(*form, "BetegNev")->setText("Kiss Éva");
        click(*form, "RpSzakJav");
        QVERIFY(recommendation.isVisible());
        const rovanel::RecommendationGrids grids = recommendation.grids();
        // The cells are SpecialistRecommendation_test's; here the name, the BNO code and the support arrive.
        QCOMPARE(grids.bg[0][1], rovanel::utf8ToCp1250("Kiss Éva"));
        QCOMPARE(grids.gg[1][0], code.toStdString());
        QCOMPARE(grids.gg[1][5],
                 rovanel::packageData(m_demo.state.tables, kDemo, record)->designation.substr(0, 3));
        QVERIFY(messages().isEmpty());
    }

    // Without an entry of the drug's own only three titles are offered; one shown as "-" is refused.
    void permanentDrugWithoutEntryAllowsOnlyThreeTitlesAndTheDosageListIsKept()
    {
        QVERIFY(rovanel::writeProfileString(m_scratch->ini, rovanel::kPatientSection, "Allando gyogyszerek",
                                            "900000001;;ELSO 10 MG;3;2;duas (II);D.S.: reggel;;;;~900000009;;"
                                            "MASIK;0;;;;;;;~"));
        m_scratch->folder.write("DsList.txt", "Saj\xE1t adagol\xE1s\r\n");  // Windows-1250
        auto form = makeForm();
        form->showPermanentDrugs(false);
        QCOMPARE(form->listMode(), 0);
        form->showPermanentDrugs(true);
        QCOMPARE(form->listMode(), 3);
        QCOMPARE(control<QListWidget>(*form, "GyChLst")->count(), 2);
        form->GyChLstClick(0);
        QCOMPARE((QStringList{form->windowTitle(), textOf(*form, "GyogyszerNev")}),
                 (QStringList{"900000001", "ELSO 10 MG"}));
        QVERIFY(control<QRadioButton>(*form, "KiszertipGrp3")->isChecked());
        QCOMPARE(textsOf(*form, {"JogcimGrp4", "JogcimGrp8"}),
                 (QStringList{"Eü. rend.", "Eü. térítésköt. + közgy"}));
        form->GyChLstClick(1);
        QCOMPARE(textsOf(*form, {"JogcimGrp1", "JogcimGrp6"}), (QStringList{"-", "Teljes ár"}));
        QVERIFY(control<QRadioButton>(*form, "JogcimGrp0")->isChecked());
        click(*form, "JogcimGrp1");
        QCOMPARE(messages(), QStringList{"Nem rendelhető ilyen jogcímen"});
        QVERIFY2(control<QRadioButton>(*form, "JogcimGrp1")->isChecked(), "the choice stays as made");

        // The dosage list is never overwritten by the template.
        QVERIFY(form->openForPackage(0));
        auto* dosages = control<QComboBox>(*form, "RpDsList");
        QCOMPARE(dosages->count(), 1);
        dosages->setEditText("Naponta 2x1");
        QCOMPARE(textOf(*form, "GyogyszerDs"), QString("D.S.:\nNaponta 2x1"));
        click(*form, "DsAd");
        QCOMPARE(dosages->count(), 2);
        auto again = makeForm();
        QVERIFY(again->openForPackage(0));
        QCOMPARE(linesOf(*again, "RpDsList"), (QStringList{"Naponta 2x1", "Saját adagolás"}));
    }

    // A magistral item needs no quantity; without a BNO code nothing is printed. "Direkt" saves, then
    // prints; "PDF" saves the same form as the chosen file, or says why it cannot. The format, the print mode
    // and the margins are kept in the user settings.
    void magistralItemIsPrintedAndFormatModeAndMarginsAreKept()
    {
        const auto registry = rovanel::openRegistryFile(m_scratch->folder.path() / "registry.ini");
        QVERIFY(!rovanel::EnsureRegistryDefaults(*registry));  // as the program's start creates them
        {
            PdfPrints printed(m_scratch->folder.path() / "recept.pdf");
            auto form = makeForm();
            form->setRegistry(registry.get());
            QVERIFY(control<QRadioButton>(*form, "RpFormat0")->isChecked());
            addMagistral(*form);
            QCOMPARE(textOf(*form, "GyogyszerNev"), QString("Rp. Acidi borici 2,0"));
            QCOMPARE(form->prescription().item.productCode, std::string("999999999"));
            control<QLineEdit>(*form, "BetegBNO")->clear();
            click(*form, "RpPrint");
            QCOMPARE(messages(), (QStringList{"Rövid BNO kód", "Hibás adatok!"}));
            QCOMPARE(printed.count, 0);
            QVERIFY2(!std::filesystem::exists(m_scratch->ini), "nothing is saved");
            control<QLineEdit>(*form, "BetegBNO")->setText("I10H0");
            click(*form, "RpSaveOnly");
            QCOMPARE(messages(), QStringList{"Recept elmentve."});
            click(*form, "RpPrint");
            QCOMPARE(printed.count, 1);
            QVERIFY(m_scratch->history().find("Acidi borici") != std::string::npos);
            const QString all = printed.text();
            QVERIFY2(!all.isEmpty(), "pdftotext (poppler-utils) is needed");
            for (const char* expected : {"Rp. Acidi borici 2,0", "Naponta 2x", "I 1 0 H 0"})
                QVERIFY2(all.contains(expected), qPrintable(all));
            const PdfPrints saved(m_scratch->folder.path() / "masik.pdf", PdfPrints::Way::AskedFile);
            click(*form, "RpPdf");
            QVERIFY2(saved.text().contains("Rp. Acidi borici 2,0"), qPrintable(saved.text()));
            // A file that cannot be written is refused with the reason.
            const auto unwritable = m_scratch->folder.path() / "recept.pdf" / "rx.pdf";  // under a file
            const PdfPrints refused(unwritable, PdfPrints::Way::AskedFile);
            click(*form, "RpPdf");
            QCOMPARE(messages(),
                     QStringList{"A PDF fájl nem írható: " + QString::fromStdString(unwritable.string())});

            form->show();
            click(*form, "RpFormat2");
            QCOMPARE(form->windowTitle(), QString("Recept formátum: Új fekvő"));
            click(*form, "PrintModeGrp1");

            // F11 shows and hides the margins in NaploSzam only.
            auto* panel = control<QWidget>(*form, "RpMarginPanel");
            QTest::keyClick(control<QLineEdit>(*form, "SzoAzon"), Qt::Key_F11);
            QVERIFY(!panel->isVisible());
            QTest::keyClick(control<QLineEdit>(*form, "NaploSzam"), Qt::Key_F11);
            QVERIFY(panel->isVisible());
            QCOMPARE(control<QSpinBox>(*form, "LeftFekvo")->value(), 655);
            control<QSpinBox>(*form, "LeftFekvo")->setValue(600);
            control<QSpinBox>(*form, "TopFekvo")->setValue(-12);
            click(*form, "SaveNewMargins");
            QTest::keyClick(control<QLineEdit>(*form, "NaploSzam"), Qt::Key_F11);
            QVERIFY(!panel->isVisible());
            QCOMPARE(messages().join("/"), QString());
        }
        // After a restart: the same format, mode and margins, and the print stands where they put it.
        auto form = makeForm();
        form->setRegistry(registry.get());
        QVERIFY(control<QRadioButton>(*form, "RpFormat2")->isChecked());
        QVERIFY(control<QRadioButton>(*form, "PrintModeGrp1")->isChecked());
        QCOMPARE(control<QSpinBox>(*form, "TopFekvo")->value(), -12);
        PdfPrints previewed(m_scratch->folder.path() / "elokep.pdf", PdfPrints::Way::Preview);
        addMagistral(*form);
        click(*form, "RpPrint");
        QCOMPARE(previewed.count, 1);
        QCOMPARE(previewed.orientation, QPageLayout::Landscape);
        QVERIFY(messages().isEmpty());
        QCOMPARE(previewed.at(38 + 600, 360 - 12), QString("Rp. Acidi borici 2,0"));  // RpTxt of the new form
    }

    void bnoSearchStepsFromHitToHitOrListsEveryHit()
    {
        Shown<TBnoForm> form(ROVANEL_DEMO_DB);
        QCOMPARE(form.windowTitle(), QString("Bno kereső"));
        form.hide();
        form.show();
        QCOMPARE(form.treeLoads(), 1);  // once per run
        QCOMPARE(linesOf(form, "BnoTree").size(), 22);
        auto* next = control<QPushButton>(form, "BnoNext");
        search(form, "nincs ilyen betegség");
        QVERIFY2(currentNode(form, "BnoTree").isEmpty(), "no hit selects nothing");
        // "COVID" is written so in the U chapter only: the case box reaches the search.
        control<QCheckBox>(form, "aAChb")->setChecked(true);
        search(form, "covid-19");
        QVERIFY(next->isEnabled());
        QStringList hits{currentNode(form, "BnoTree")};
        for (int i = 0; i < 50 && hits.size() == i + 1; ++i) {
            click(next);
            if (currentNode(form, "BnoTree") != hits.last()) hits << currentNode(form, "BnoTree");
        }
        QVERIFY(hits.size() > 1 && hits.first().startsWith("U"));
        click(next);  // after the last hit the selection stays where it was
        QCOMPARE(currentNode(form, "BnoTree"), hits.last());
        control<QLineEdit>(form, "BnoEdt")->setText("x");
        QVERIFY(!next->isEnabled());

        // List mode lists every hit; a double click selects it in the tree; the list can be copied.
        control<QRadioButton>(form, "FabaListaba1")->setChecked(true);
        search(form, "I10H0");
        QVERIFY(!next->isEnabled());
        const QString hit = "I10H0 Magasvérnyomás-betegség (elsődleges)";
        QCOMPARE(linesOf(form, "FoundBnoLst"), QStringList{hit});
        form.FoundBnoLstDblClick(0);
        QCOMPARE(currentNode(form, "BnoTree"), hit);
        click(form, "CopyToClipboard");
        QCOMPARE(QApplication::clipboard()->text(), hit + "\n");
    }

    void prescriptionValuesStandInTheirBoxes_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("top");
        QTest::newRow("old form, negative left") << 0 << -12 << 20;
        QTest::newRow("new sideways, default margins") << 2 << 655 << 8;
    }

    void prescriptionValuesStandInTheirBoxes()
    {
        QFETCH(int, format);
        QFETCH(int, left);
        QFETCH(int, top);
        rovanel::RxPrintInput input;
        input.patientName = rovanel::utf8ToCp1250("Kovács Dezső");
        input.taj = "987654321";
        input.bno = "J4500";
        input.date = "20261123";
        input.title = 8;
        input.notSubstitutable = true;
        input.drugName = "Algopyrin 500 mg";
        input.serialNumber = "AB1234567";
        rovanel::RxMargins margins{left, top, left, top, left, top};
        const rovanel::PrintLayout layout =
            rovanel::printedPrescription(static_cast<rovanel::RxFormat>(format), input, margins);
        rovanel::testing::ScratchDirectory directory;
        const auto file = directory.path() / "rx.pdf";
        QVERIFY(!rovanel::forms::saveLayoutPdf(QString::fromStdString(file.string()), layout));
        const auto words = rovanel::testing::pdfWords(file);
        QVERIFY2(!words.empty(), "pdftotext (poppler-utils) is needed");
        int checked = 0;
        for (const rovanel::PrintItem& item : layout.pages[0].items) {
            const std::string first(rovanel::itemLines(item.text)[0]);
            if (first.empty()) continue;
            const std::string found =
                rovanel::testing::textAt(words, item.left * rovanel::kMillimetresPerLayoutUnit,
                                         item.top * rovanel::kMillimetresPerLayoutUnit);
            const std::string expected = rovanel::cp1250ToUtf8(first);
            QVERIFY2(found.substr(0, expected.size()) == expected, (item.name + ": " + found).c_str());
            ++checked;
        }
        QVERIFY(checked >= 8);
    }

    void certificateListsEveryProductOfTheListPrintsAsEditedAndEmptiesIt()
    {
        On<TKgyForm, CertificateFolder> form;
        QCOMPARE(form.windowTitle(), QString("Közgyógy igazolás"));
        QVERIFY(form.messages.texts().isEmpty());
        auto* k = control<QTextEdit>(form, "k");
        const QStringList lines = k->toPlainText().split('\n');
        // The whole text is PublicCareCertificate_test's; here the files RV.INI names reach the box.
        QCOMPARE((QStringList{lines.value(2), lines.value(16), lines.value(27), lines.value(39)}),
                 (QStringList{"Neve: Kiss Éva", "ATC: C08CA01", "ATC: A02BC01",
                              "A háziorvos neve: Dr. Kovács Béla"}));
        const QTextBlock title = k->document()->firstBlock();
        QVERIFY(title.charFormat().fontWeight() == QFont::Bold ||
                title.begin().fragment().charFormat().fontWeight() == QFont::Bold);
        HelpRequests help;
        QTest::keyClick(k, Qt::Key_F1);
        QCOMPARE(help.contexts, QList<int>{720});

        // "Direkt" prints and "PDF" saves what the box holds, edits included.
        PdfPrints printed(form.directory.path() / "printed.pdf");
        const PdfPrints saved(form.directory.path() / "igazolas.pdf", PdfPrints::Way::AskedFile);
        k->moveCursor(QTextCursor::End);
        QTest::keyClicks(k, " Budapest");
        click(form, "KgyPrint");
        QCOMPARE(printed.count, 1);
        QVERIFY2(printed.text().contains("Neve: Kiss Éva"), qPrintable(printed.text()));
        QVERIFY(printed.text().contains("háziorvos aláírása Budapest"));
        click(form, "KgyPdf");
        QVERIFY2(saved.text().startsWith("Háziorvosi igazolás"), qPrintable(saved.text()));
        QVERIFY(saved.text().contains("háziorvos aláírása Budapest"));

        // Emptying the list is silent; the emptied list gives its message at the next showing.
        click(form, "KgyEmptyList");
        QVERIFY(form.messages.texts().isEmpty());
        QVERIFY(!std::filesystem::exists(form.directory.path() / "kgy.txt"));
        form.hide();
        form.show();
        QCOMPARE(form.messages.texts(), QStringList{"Üres közgyógy lista"});
        QVERIFY(textOf(form, "k").contains("1. Havi rendszerességgel rendelt gyógyszerek:\n2. Gyógyászati"));
    }

    void recommendationFillAddsTheDrugLineTheRowButtonsDeleteLinesAndItPrintsAsEdited()
    {
        On<Tszj, CertificateFolder> form;
        QCOMPARE(form.windowTitle(), QString("Szakorvosi javaslat készítése"));
        auto* gg = control<QTableWidget>(form, "gg");
        QCOMPARE(QSize(gg->columnCount(), gg->rowCount()), QSize(9, 10));
        QCOMPARE(cell(form, "gg", 0, 0), QString("Üres BNO"));
        for (const char* title : {"90%  EU1", "100% K2", "50%  EU3"}) form.fill(handover(title));
        QVERIFY(form.messages.texts().isEmpty());
        // The cells themselves are SpecialistRecommendation_test's; here each fill lands in the grids.
        const QStringList filled{cell(form, "bg", 0, 1), cell(form, "og", 0, 1), cell(form, "gg", 1, 1),
                                 cell(form, "gg", 2, 7), cell(form, "gg", 3, 6)};
        QCOMPARE(filled, (QStringList{"Kiss Éva", "Dr. Szabo", "amlodipin", "K2", "EU3"}));
        click(form, "DelLine");
        QCOMPARE((QStringList{cell(form, "gg", 1, 7), cell(form, "gg", 2, 6), cell(form, "gg", 3, 0)}),
                 (QStringList{"K2", "EU3", ""}));
        click(form, "DelLastLine");
        QCOMPARE((QStringList{cell(form, "gg", 1, 7), cell(form, "gg", 2, 6)}), (QStringList{"K2", ""}));

        // Printed as edited. Three drug lines a page: the fourth is printed on the second page. Where each
        // value stands is the layout's (RvcliPrint_test); here the edited cell and the page arrive.
        PdfPrints printed(form.directory.path() / "javaslat.pdf");
        for (const char* title : {"90%  EU2", "90%  EU3", "90%  EU4"}) form.fill(handover(title));
        gg->item(1, 2)->setText("5 mg");
        click(form, "PrintSzakjav");
        QVERIFY2(!printed.words().empty(), "pdftotext (poppler-utils) is needed");
        QCOMPARE((QStringList{printed.at(280, 125), printed.at(200, 455)}),
                 (QStringList{"Kiss Éva", "5 mg"}));
        QCOMPARE(rovanel::testing::textAt(printed.words(), 545 * rovanel::kMillimetresPerLayoutUnit,
                                          455 * rovanel::kMillimetresPerLayoutUnit, 2),
                 std::string("EU4"));
        HelpRequests help;
        QTest::keyClick(gg, Qt::Key_F1);
        QCOMPARE(help.contexts, QList<int>{620});
        click(form, "SzjKilep");
        QVERIFY(!form.isVisible());
        // A refused fill (the texts: SpecialistRecommendation_test) is shown once.
        form.directory.remove("atcnrend.dat");
        form.fill(handover("90%  EU1"));
        QCOMPARE(form.messages.texts(), QStringList{"ATC file nyitás hiba."});
    }
};

QTEST_MAIN(TestPrescription)
#include "tst_Prescription.moc"
