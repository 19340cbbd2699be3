// The public-care certificate and the specialist recommendation windows driven by their controls' names;
// what they print is caught as PDF and read back.

#include "certs/forms/Kgy.h"
#include "certs/forms/Szakjav.h"
#include "tests/forms/support/Windows.h"

namespace
{

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

class TestCertificates : public QObject
{
    Q_OBJECT
private slots:
    void certificateListsEveryProductOfTheListAndEmptyingIt()
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

        // Emptying the list is silent; the emptied list gives its message at the next showing.
        click(form, "KgyEmptyList");
        QVERIFY(form.messages.texts().isEmpty());
        QVERIFY(!std::filesystem::exists(form.directory.path() / "kgy.txt"));
        form.hide();
        form.show();
        QCOMPARE(form.messages.texts(), QStringList{"Üres közgyógy lista"});
        QVERIFY(textOf(form, "k").contains("1. Havi rendszerességgel rendelt gyógyszerek:\n2. Gyógyászati"));
    }

    // "Direkt" prints and "PDF" saves what the box holds, edits included.
    void printAndPdfTakeTheBoxAsEdited()
    {
        CertificateFolder fixture;
        PdfPrints printed(fixture.directory.path() / "printed.pdf");
        const PdfPrints saved(fixture.directory.path() / "igazolas.pdf", PdfPrints::Way::AskedFile);
        Shown<TKgyForm> form(fixture.state);
        auto* k = control<QTextEdit>(form, "k");
        k->moveCursor(QTextCursor::End);
        QTest::keyClicks(k, " Budapest");
        click(form, "KgyPrint");
        QCOMPARE(printed.count, 1);
        QVERIFY2(printed.text().contains("Neve: Kiss Éva"), qPrintable(printed.text()));
        QVERIFY(printed.text().contains("háziorvos aláírása Budapest"));
        click(form, "KgyPdf");
        QVERIFY(form.messages.texts().isEmpty());
        QVERIFY2(saved.text().startsWith("Háziorvosi igazolás"), qPrintable(saved.text()));
        QVERIFY(saved.text().contains("háziorvos aláírása Budapest"));
    }

    void fillAddsTheDrugLineAndTheRowButtonsDeleteLines()
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

    // Three drug lines a page: the fourth is printed on the second page.
    void printedRecommendationHoldsTheGridsAsEditedAtTheirPlaces()
    {
        CertificateFolder fixture;
        PdfPrints printed(fixture.directory.path() / "javaslat.pdf");
        Shown<Tszj> form(fixture.state);
        for (const char* title : {"90%  EU1", "90%  EU2", "90%  EU3", "90%  EU4"}) form.fill(handover(title));
        control<QTableWidget>(form, "gg")->item(1, 2)->setText("5 mg");
        click(form, "PrintSzakjav");
        QVERIFY2(!printed.words().empty(), "pdftotext (poppler-utils) is needed");
        // Where each value stands is the layout's (RvcliPrint_test); here the edited cell arrives.
        QCOMPARE((QStringList{printed.at(280, 125), printed.at(200, 455)}),
                 (QStringList{"Kiss Éva", "5 mg"}));
        QCOMPARE(rovanel::testing::textAt(printed.words(), 545 * rovanel::kMillimetresPerLayoutUnit,
                                          455 * rovanel::kMillimetresPerLayoutUnit, 2),
                 std::string("EU4"));
    }
};

QTEST_MAIN(TestCertificates)
#include "tst_Certificates.moc"
