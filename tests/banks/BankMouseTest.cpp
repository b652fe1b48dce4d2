#include "banks/BankMouse.h"

#include "banks/BankFixtures.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct BankMouse : BankAOnShow {
    BankClickResult click(int index, int button, int shift = 0)
    {
        bankLabelMouseDown(model, index, button, shift);
        return bankLabelClick(model, index);
    }

    const BankSelection& selection() { return model.banks.selection(kPatchBankA); }
};

TEST_F(BankMouse, LeftClickTogglesThePatch)
{
    click(10, kLeftButton);
    EXPECT_EQ(selected(), std::vector<int>{10});
    EXPECT_EQ(model.bankView.labels[10].scheme, kSelectedScheme);
    EXPECT_TRUE(model.bankView.selectionToolsShown);
    click(10, kLeftButton);
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(model.bankView.labels[10].scheme, kUnselectedScheme);
    EXPECT_FALSE(model.bankView.selectionToolsShown);
}

TEST_F(BankMouse, LeftPressDrawsTheLabelSelectedAtOnce)
{
    bankLabelMouseDown(model, 20, kLeftButton, 0);
    EXPECT_EQ(model.bankView.labels[20].scheme, kSelectedScheme);
    EXPECT_FALSE(selection().selected(20));
}

TEST_F(BankMouse, AltClickOnASelectedPatchLeavesOnlyThatPatchSelected)
{
    click(3, kLeftButton);
    click(8, kLeftButton);
    click(50, kLeftButton);
    bankLabelMouseDown(model, 8, kLeftButton, kAltKey);
    EXPECT_TRUE(selected().empty());
    bankLabelClick(model, 8);
    EXPECT_EQ(selected(), std::vector<int>{8});
    EXPECT_EQ(selection().selectionCount, 1);
    EXPECT_EQ(model.bankView.labels[3].scheme, kUnselectedScheme);
    EXPECT_EQ(model.bankView.labels[8].scheme, kSelectedScheme);
}

TEST_F(BankMouse, ShiftClickWithOneSelectedFillsTheGapThenTheClickFlagsTheClicked)
{
    click(4, kLeftButton);
    bankLabelMouseDown(model, 9, kLeftButton, kShiftKey);
    EXPECT_EQ(selected(), (std::vector<int>{4, 5, 6, 7, 8}));
    bankLabelClick(model, 9);
    EXPECT_EQ(selected(), (std::vector<int>{4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(model.bankView.labels[6].scheme, kSelectedScheme);
}

TEST_F(BankMouse, ShiftClickBelowTheAnchorFillsUpward)
{
    click(20, kLeftButton);
    click(17, kLeftButton, kShiftKey);
    EXPECT_EQ(selected(), (std::vector<int>{17, 18, 19, 20}));
}

TEST_F(BankMouse, ShiftClickFillsOnlyUpToTheFirstSelectedPatch)
{
    click(10, kLeftButton);
    click(30, kLeftButton);
    // Nearest to 25 is 30; the fill runs from 26 up to 29.
    click(25, kLeftButton, kShiftKey);
    EXPECT_EQ(selected(), (std::vector<int>{10, 25, 26, 27, 28, 29, 30}));
}

TEST_F(BankMouse, ShiftClickOnASelectedPatchInAMultipleSelectionChangesNoOtherThenDeselectsIt)
{
    click(10, kLeftButton);
    click(11, kLeftButton);
    click(40, kLeftButton);
    bankLabelMouseDown(model, 11, kLeftButton, kShiftKey);
    EXPECT_EQ(selected(), (std::vector<int>{10, 11, 40}));
    bankLabelClick(model, 11);
    EXPECT_EQ(selected(), (std::vector<int>{10, 40}));
}

TEST_F(BankMouse, NearestOfTwoEquallyNearSelectedPatchesIsTheLowest)
{
    BankSelection s;
    s.selectionCount = 2;
    s.selectionSequence[1] = 10;
    s.selectionSequence[2] = 20;
    EXPECT_EQ(findSelectionAnchor(s, 15), 10);
}

TEST_F(BankMouse, ShiftClickExactly127AwayFromTheOnlyCandidatesLeavesAnchor0)
{
    // Two entries of the sequence, both at 127, both as far from patch 0 as
    // the grid allows: none is nearer than 127, so the anchor stays 0.
    BankSelection& s = model.banks.selection(kPatchBankA);
    s.selectionFlags[127] = -1;
    s.selectionCount = 2;
    s.selectionSequence[1] = 127;
    s.selectionSequence[2] = 127;
    EXPECT_EQ(findSelectionAnchor(s, 0), 0);
    // The anchor is the clicked patch itself, so the press fills nothing and
    // leaves the sequence as it stood.
    bankLabelMouseDown(model, 0, kLeftButton, kShiftKey);
    EXPECT_EQ(selected(), std::vector<int>{127});
    EXPECT_EQ(s.selectionCount, 2);
}

TEST_F(BankMouse, ShiftWithCtrlDoesNotExtend)
{
    click(4, kLeftButton);
    bankLabelMouseDown(model, 9, kLeftButton, kShiftKey | kCtrlKey);
    EXPECT_EQ(selected(), std::vector<int>{4});
}

TEST_F(BankMouse, RightClickWithNothingSelectedOpensPopup1WithReorderItemsDisabledAndThePatchUnflagged)
{
    const BankClickResult result = click(33, kRightButton);
    EXPECT_EQ(result.popup, BankPopup::Popup1);
    EXPECT_FALSE(result.reorderItemsEnabled);
    EXPECT_FALSE(model.bankView.popup1ReorderItemsEnabled);
    // The single-patch commands read element 1: the patch under the pointer.
    EXPECT_EQ(selection().selectionSequence[1], 33);
    EXPECT_EQ(selection().selectionCount, 0);
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(model.bankView.labels[33].scheme, kUnselectedScheme);
}

TEST_F(BankMouse, RightClickWithOneSelectedMovesElementOneWithoutFlaggingIt)
{
    click(5, kLeftButton);
    const BankClickResult result = click(60, kRightButton);
    EXPECT_EQ(result.popup, BankPopup::Popup1);
    EXPECT_TRUE(result.reorderItemsEnabled);
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(model.bankView.labels[5].scheme, kUnselectedScheme);
    EXPECT_EQ(selection().selectionSequence[1], 60);
    EXPECT_EQ(selection().selectionCount, 1);
}

TEST_F(BankMouse, RightClickOnTheOneSelectedPatchKeepsIt)
{
    click(5, kLeftButton);
    const BankClickResult result = click(5, kRightButton);
    EXPECT_EQ(result.popup, BankPopup::Popup1);
    EXPECT_TRUE(result.reorderItemsEnabled);
    EXPECT_EQ(selected(), std::vector<int>{5});
}

TEST_F(BankMouse, RightClickWithSeveralSelectedOpensPopup2AndHidesTheTools)
{
    click(5, kLeftButton);
    click(6, kLeftButton);
    const BankClickResult result = click(90, kRightButton);
    EXPECT_EQ(result.popup, BankPopup::Popup2);
    EXPECT_EQ(selected(), (std::vector<int>{5, 6}));
    EXPECT_FALSE(model.bankView.selectionToolsShown);
}

TEST_F(BankMouse, RightPressWithASelectionIgnoresShift)
{
    click(5, kLeftButton);
    bankLabelMouseDown(model, 9, kRightButton, kShiftKey);
    EXPECT_EQ(selected(), std::vector<int>{5});
}

TEST_F(BankMouse, ClickDoesNothingWhileTheModesBankIsNotLoaded)
{
    model.flags.loaded[kPatchBankA] = false;
    const BankClickResult result = click(5, kRightButton);
    EXPECT_EQ(result.popup, BankPopup::None);
    click(5, kLeftButton);
    EXPECT_TRUE(selected().empty());
}

}  // namespace
}  // namespace quillon
