// The shared description window driven by its control names on the six-product database.
#include <QPushButton>
#include <QScrollBar>
#include <QTextEdit>
#include <QtTest>

#include "db/SharedState.h"
#include "tests/fixtures/SixProductDatabase.h"
#include "tests/forms/support/Controls.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/forms/support/UserProfile.h"
#include "views/forms/Rvgykozos.h"

class TestRvgykozos : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void buttonsSitInOneRowUnderTheBoxWithWholeCaptions();
    void showProductReplacesTheTextAndTakesTheCaption();
    void jumpPutsTheHeadingAtTheTopOfTheBox();
    void jumpThatFindsNothingChangesNothing();
    void searchIsCaseSensitiveAndTheCutTextsStayCut();
    void rightClickShowsThePrescriptionNotice();

private:
    UserProfile m_profile;
    std::unique_ptr<rovanel::testing::SixProductDatabase> m_database;
    std::unique_ptr<rovanel::SharedState> m_state;
    std::unique_ptr<TGyKozos> m_form;
    QTextEdit* m_box = nullptr;
};

void TestRvgykozos::init()
{
    m_database = std::make_unique<rovanel::testing::SixProductDatabase>();
    const auto directory = m_database->write();
    m_state = std::make_unique<rovanel::SharedState>();
    m_state->tables = rovanel::loadStartupTables(directory, directory / "no-user.ini");
    m_form = std::make_unique<TGyKozos>(*m_state);
    m_box = m_form->findChild<QTextEdit*>("GyKozosLeiro");
    QVERIFY(m_box);
}

void TestRvgykozos::cleanup()
{
    m_form.reset();
    m_state.reset();
    m_database.reset();
}

void TestRvgykozos::buttonsSitInOneRowUnderTheBoxWithWholeCaptions()
{
    const char* names[] = {"JumpAtc", "JumpHa", "JumpJav", "JumpAdag", "JumpBetegnek",
                           "JumpEll", "JumpMh", "JumpOv",  "JumpTil",  "JumpMer"};
    const char* captions[] = {"&Atc",           "&Hatóanyag",   "&Javallatok", "A&dagolás", "&Betegnek",
                              "&Ellenjavallat", "&Mellékhatás", "Ó&vatosan",   "&Tilos",    "&Mérgezés"};
    m_form->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    QCOMPARE(m_form->size(), QSize(721, 572));
    int right = -1;
    for (int i = 0; i < 10; ++i) {
        auto* button = control<QPushButton>(*m_form, names[i]);
        QCOMPARE(button->text(), QString::fromUtf8(captions[i]));
        const QRect place(button->mapTo(m_form.get(), QPoint(0, 0)), button->size());
        QVERIFY2(place.left() > right, names[i]);
        QVERIFY2(place.top() > m_box->mapTo(m_form.get(), QPoint(0, 0)).y() + m_box->height() - 1, names[i]);
        const QString caption = button->text().remove('&');  // the caption is whole
        QVERIFY2(button->width() > button->fontMetrics().horizontalAdvance(caption), names[i]);
        right = place.right();
    }
    QVERIFY(right < m_form->width());
}

void TestRvgykozos::showProductReplacesTheTextAndTakesTheCaption()
{
    m_form->showProduct(0, "ALFA 5 MG TABLETTA 30X");
    QVERIFY(m_form->isVisible());
    QCOMPARE(m_form->windowTitle(), QString("ALFA 5 MG TABLETTA 30X"));
    QVERIFY(m_box->toPlainText().startsWith(QString::fromUtf8("Készítmény: ALFA 5 MG TABLETTA 30X\n")));
    QCOMPARE(m_box->textCursor().position(), 0);
    m_form->showProduct(3, "DELTA");
    QVERIFY(m_box->toPlainText().startsWith(QString::fromUtf8("Készítmény: DELTA OLDAT 100 ML\n")));
    QVERIFY(!m_box->toPlainText().contains("ALFA"));
    m_form->showProduct(-1, "semmi");
    QCOMPARE(m_box->toPlainText(), QString());
}

void TestRvgykozos::jumpPutsTheHeadingAtTheTopOfTheBox()
{
    m_form->showProduct(0, "ALFA");
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    // Scrolled to the end first, then back up to the heading.
    QTest::mouseClick(m_form->findChild<QPushButton*>("JumpJav"), Qt::LeftButton);
    const int heading = m_box->toPlainText().indexOf(QString::fromUtf8("Javallatok:"));
    QVERIFY(heading > 0);
    QCOMPARE(m_box->textCursor().position(), heading);
    QVERIFY(m_box->verticalScrollBar()->value() > 0);
    // At the top of the visible area, not at its bottom.
    QVERIFY2(m_box->cursorRect().top() < 30, qPrintable(QString::number(m_box->cursorRect().top())));
    QVERIFY(m_box->hasFocus());
}

void TestRvgykozos::jumpThatFindsNothingChangesNothing()
{
    m_form->showProduct(1, "BETA");  // no #ov, #til, #mer
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    QTextCursor cursor = m_box->textCursor();
    cursor.setPosition(20);
    m_box->setTextCursor(cursor);
    const int scroll = m_box->verticalScrollBar()->value();
    for (const char* name : {"JumpOv", "JumpTil", "JumpMer", "JumpEll", "JumpMh"}) {
        QTest::mouseClick(m_form->findChild<QPushButton*>(name), Qt::LeftButton);
        QCOMPARE(m_box->textCursor().position(), 20);
        QCOMPARE(m_box->verticalScrollBar()->value(), scroll);
    }
}

void TestRvgykozos::searchIsCaseSensitiveAndTheCutTextsStayCut()
{
    m_form->showProduct(0, "ALFA");
    m_form->SearchRtf("atc");
    QCOMPARE(m_box->textCursor().position(), 0);
    QTest::mouseClick(m_form->findChild<QPushButton*>("JumpAtc"), Qt::LeftButton);
    QCOMPARE(m_box->textCursor().position(),
             m_box->toPlainText().indexOf(QString::fromUtf8("ATC besorolás:")));
    // The avoid heading is found by its beginning, which stops before the "ő".
    QTest::mouseClick(m_form->findChild<QPushButton*>("JumpTil"), Qt::LeftButton);
    QCOMPARE(m_box->textCursor().position(),
             m_box->toPlainText().indexOf(QString::fromUtf8("Együttadása kerülendő:")));
    m_box->setPlainText(QString::fromUtf8("Együttadása kerülend\nMérgezés esetén teend"));
    QTest::mouseClick(m_form->findChild<QPushButton*>("JumpMer"), Qt::LeftButton);
    QCOMPARE(m_box->textCursor().position(), 21);
}

void TestRvgykozos::rightClickShowsThePrescriptionNotice()
{
    MessageRecorder messages;
    m_form->showProduct(0, "ALFA");
    QTest::mouseClick(m_box->viewport(), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList());
    QTest::mousePress(m_box->viewport(), Qt::RightButton);
    QCOMPARE(messages.texts(),
             QStringList{QString::fromUtf8("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt.")});
    QCOMPARE(messages.captions(), QStringList{QString()});
}

QTEST_MAIN(TestRvgykozos)
#include "tst_Rvgykozos.moc"
