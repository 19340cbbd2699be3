#include "db/DrugSelection.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

const Message kTwentyDrugs{utf8ToCp1250("Legföljebb 20 gyógyszer adható"),
                           utf8ToCp1250("Kölcsönhatás vizsgálat"), MessageIcon::None, false};
const Message kTwentyContraindications{utf8ToCp1250("Legföljebb 20 ellenjavallat adható meg"),
                                       utf8ToCp1250("Kölcsönhatás vizsgálat"), MessageIcon::None, false};
const Message kSelectLine{utf8ToCp1250("Jelölje ki a listáról törlendő gyógyszert!"),
                          utf8ToCp1250("Kölcsönhatás vizsgálat"), MessageIcon::None, true};

TEST(DrugSelection, TwentyDrugsAreTakenTheSameOneTwiceChangesNothingAndThe21stIsRefused)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    (void)selection.addDrug(100);
    selection.KhResultValid = 1;
    for (const int unchanged : {100, -1}) {  // the same drug again, and nothing chosen
        const SelectionChange change = selection.addDrug(unchanged);
        EXPECT_EQ(change.outcome, SelectionOutcome::Unchanged);
        EXPECT_FALSE(change.message);
    }
    EXPECT_EQ(selection.KhResultValid, 1) << "an unchanged list keeps the report";
    for (int record = 1; record < 20; ++record)
        EXPECT_EQ(selection.addDrug(100 + record).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.KhResultValid, 0);
    const SelectionChange refused = selection.addDrug(500);
    EXPECT_EQ(refused.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(refused.message, kTwentyDrugs);
    EXPECT_EQ(selection.SzedettGyCount, 20);
    EXPECT_EQ(selection.SzedettGy[19], 119);
    EXPECT_EQ(selection.SzedettGy[20], -1);
}

TEST(DrugSelection, NodeZeroOnlyAfterTheFirstClearAndThe20thContraindicationIsRefusedSaying20)
{
    DrugSelection selection;
    EXPECT_EQ(selection.addContraindication(0).outcome, SelectionOutcome::Unchanged);
    EXPECT_EQ(selection.addContraindication(3).outcome, SelectionOutcome::Changed);
    // Slot 1, past the end, still holds 0.
    EXPECT_EQ(selection.addContraindication(0).outcome, SelectionOutcome::Unchanged);
    selection.clearContraindications();
    for (int node = 0; node < 19; ++node)
        EXPECT_EQ(selection.addContraindication(node).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.EllSel[19], -1);
    const SelectionChange refused = selection.addContraindication(40);
    EXPECT_EQ(refused.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(refused.message, kTwentyContraindications);
    EXPECT_EQ(selection.EllSelCount, 19);
}

TEST(DrugSelection, DeletingMovesTheFollowingSlotsDownWithTheEndMarker)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (int record : {5, 6, 7}) (void)selection.addDrug(record);
    EXPECT_EQ(selection.deleteDrug(3, 0).outcome, SelectionOutcome::Changed);
    EXPECT_EQ(selection.SzedettGyCount, 2);
    EXPECT_EQ((std::vector<int>{selection.SzedettGy[0], selection.SzedettGy[1], selection.SzedettGy[2]}),
              (std::vector<int>{6, 7, -1}));
    (void)selection.deleteDrug(2, 1);
    (void)selection.deleteDrug(1, 0);
    EXPECT_EQ(selection.SzedettGyCount, 0);
    EXPECT_EQ(selection.SzedettGy[0], -1);
    // An empty list: nothing; no line selected: the message (it speaks of a drug for contraindications too).
    EXPECT_EQ(selection.deleteDrug(0, -1).outcome, SelectionOutcome::Unchanged);
    const SelectionChange noLine = selection.deleteContraindication(2, -1);
    EXPECT_EQ(noLine.outcome, SelectionOutcome::Refused);
    EXPECT_EQ(noLine.message, kSelectLine);
    EXPECT_EQ(selection.deleteDrug(1, -1).message, kSelectLine);
}

TEST(DrugSelection, SideEffectWindowResetsAll22SlotsButNotTheCount)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (int record : {5, 6}) (void)selection.addDrug(record);
    selection.SzedettGy[21] = 99;
    selection.resetSlotsForSideEffectWindow();
    EXPECT_EQ(selection.SzedettGyCount, 2);
    for (std::int32_t slot : selection.SzedettGy) EXPECT_EQ(slot, -1);
    // Adding goes on after the stale count; deleting and clearing still work.
    (void)selection.addDrug(5);
    EXPECT_EQ(selection.SzedettGy[2], 5);
    EXPECT_EQ(selection.SzedettGyCount, 3);
    (void)selection.deleteDrug(1, 0);
    EXPECT_EQ(selection.SzedettGyCount, 2);
    EXPECT_EQ(selection.SzedettGy[1], 5);
    // A row beyond the count (the two windows' lists disagree) never drives the count below 0.
    (void)selection.deleteDrug(5, 4);
    (void)selection.deleteDrug(5, 4);
    (void)selection.deleteDrug(5, 4);
    EXPECT_EQ(selection.SzedettGyCount, 0);
    selection.clearDrugs();
    EXPECT_EQ(selection.SzedettGyCount, 0);
}

}  // namespace
}  // namespace rovanel
