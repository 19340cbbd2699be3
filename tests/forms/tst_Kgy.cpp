// The public-care certificate window driven by its controls' names; what it prints is caught as PDF.
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "app/forms/Help.h"
#include "certs/forms/Kgy.h"
#include "db/Cp1250.h"
#include "rx/forms/PrintRenderer.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/PdfWords.h"

namespace
{

struct CertificateFixture : EngineWindowState {
    CertificateFixture() : EngineWindowState(rovanel::testing::EngineDatabase{})
    {
        const std::string folder = directory.path().string();
        directory.write("RV.INI", "[Rovanel Beallitasok]\nKgyTxtPath=" + folder +
                                      "/kgy.txt\nBetegAdatokIniPath=" + folder + "/beteg.ini\n");
        directory.write("beteg.ini", rovanel::utf8ToCp1250("[BetegAdatok]\nBeteg neve=Kiss Éva\n"
                                                           "[OrvosAdatok]\norvnev=Dr. Kovács Béla\n"));
        directory.write("kgy.txt", rovanel::utf8ToCp1250("C08CA01;1234567;Norvasc 5 mg tabletta 30x;tabletta;"
                                                         "amlodipin \r\nA02BC01;7654321;Omeprazol;kapszula;"
                                                         "omeprazol\r\n"));
    }
};

// Every "Direkt" print goes into a PDF file for the test's life.
class PrintsToPdf
{
public:
    explicit PrintsToPdf(std::filesystem::path file) : m_file(std::move(file))
    {
        m_previous = rovanel::forms::setDirectPrintTarget([this](QPrinter& printer, const auto& paint) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(m_file.string()));
            paint(printer);
            ++m_prints;
        });
    }
    ~PrintsToPdf() { rovanel::forms::setDirectPrintTarget(m_previous); }
    [[nodiscard]] int prints() const { return m_prints; }

private:
    std::filesystem::path m_file;
    rovanel::forms::PrintTarget m_previous;
    int m_prints = 0;
};

}  // namespace

class TestKgy : public QObject
{
    Q_OBJECT
private slots:
    void certificateListsEveryProductOfTheListInOrder();
    void emptiedListGivesTheEmptyListMessageAndEmptyingIsSilent();
    void printPrintsWhatTheBoxHoldsAfterEditing();
    void pdfButtonSavesTheCertificate();
};

void TestKgy::certificateListsEveryProductOfTheListInOrder()
{
    CertificateFixture fixture;
    MessageRecorder messages;
    TKgyForm form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle(), QStringLiteral("Közgyógy igazolás"));
    auto* k = form.findChild<QTextEdit*>("k");
    QVERIFY(k && form.findChild<QPushButton*>("KgyPrint") && form.findChild<QPushButton*>("KgyEmptyList"));
    QVERIFY(messages.texts().isEmpty());
    const QStringList lines = k->toPlainText().split('\n');
    QCOMPARE(lines.value(0), QString(55, ' ') + QStringLiteral("Háziorvosi igazolás"));
    QCOMPARE(lines.value(2), QStringLiteral("Neve: Kiss Éva"));
    QCOMPARE(lines.value(6), QStringLiteral("Tartózkodási helye: tarkózkodási hely"));
    QCOMPARE(lines.value(15), QStringLiteral("BNO: ?????"));
    QCOMPARE(lines.value(16), QStringLiteral("ATC: C08CA01"));
    QCOMPARE(lines.value(20), QStringLiteral("Hatóanyag: amlodipin "));
    QCOMPARE(lines.value(27), QStringLiteral("ATC: A02BC01"));
    QCOMPARE(lines.value(39), QStringLiteral("A háziorvos neve: Dr. Kovács Béla"));
    QCOMPARE(lines.last(), QStringLiteral("              háziorvos aláírása"));

    QList<int> opened;
    const HelpOpener previous = setHelpOpener([&](int context) { opened.append(context); });
    QTest::keyClick(k, Qt::Key_F1);
    setHelpOpener(previous);
    QCOMPARE(opened, QList<int>{720});
    QVERIFY(helpPagePath(720).endsWith("help/720.html"));
    QVERIFY(k->document()->firstBlock().charFormat().fontWeight() == QFont::Bold ||
            k->document()->firstBlock().begin().fragment().charFormat().fontWeight() == QFont::Bold);
}

void TestKgy::emptiedListGivesTheEmptyListMessageAndEmptyingIsSilent()
{
    CertificateFixture fixture;
    MessageRecorder messages;
    TKgyForm form(fixture.state);
    form.show();
    auto* empty = form.findChild<QPushButton*>("KgyEmptyList");
    QTest::mouseClick(empty, Qt::LeftButton);
    QTest::mouseClick(empty, Qt::LeftButton);
    QVERIFY(messages.texts().isEmpty());
    QVERIFY(!std::filesystem::exists(fixture.directory.path() / "kgy.txt"));
    form.hide();
    form.show();
    QCOMPARE(messages.texts(), QStringList{QStringLiteral("Üres közgyógy lista")});
    const QString text = form.findChild<QTextEdit*>("k")->toPlainText();
    QVERIFY(!text.contains(QStringLiteral("ATC: ")));
    QVERIFY(text.contains(QStringLiteral("1. Havi rendszerességgel rendelt gyógyszerek:\n2. Gyógyászati")));
}

void TestKgy::printPrintsWhatTheBoxHoldsAfterEditing()
{
    CertificateFixture fixture;
    MessageRecorder messages;
    PrintsToPdf printed(fixture.directory.path() / "printed.pdf");
    TKgyForm form(fixture.state);
    form.show();
    auto* k = form.findChild<QTextEdit*>("k");
    k->moveCursor(QTextCursor::End);
    QTest::keyClicks(k, QStringLiteral(" Budapest"));
    QTest::mouseClick(form.findChild<QPushButton*>("KgyPrint"), Qt::LeftButton);
    QCOMPARE(printed.prints(), 1);
    std::string all;
    for (const auto& word : rovanel::testing::pdfWords(fixture.directory.path() / "printed.pdf"))
        all += word.text + " ";
    QVERIFY2(all.find("Neve: Kiss Éva") != std::string::npos, all.c_str());
    QVERIFY(all.find("háziorvos aláírása Budapest") != std::string::npos);
}

void TestKgy::pdfButtonSavesTheCertificate()
{
    CertificateFixture fixture;
    MessageRecorder messages;
    const auto file = fixture.directory.path() / "igazolas.pdf";
    const auto previous = rovanel::forms::setPdfFileChooser(
        [&file](QWidget*, const QString&) { return QString::fromStdString(file.string()); });
    TKgyForm form(fixture.state);
    form.show();
    QTest::mouseClick(form.findChild<QPushButton*>("KgyPdf"), Qt::LeftButton);
    rovanel::forms::setPdfFileChooser(previous);
    QVERIFY(messages.texts().isEmpty());
    const auto words = rovanel::testing::pdfWords(file);
    QVERIFY(!words.empty());
    QCOMPARE(words.front().text, std::string("Háziorvosi"));
}

QTEST_MAIN(TestKgy)
#include "tst_Kgy.moc"
