#include "files/MiscDialog.h"

#include "files/LoadingFiles.h"
#include "model/Kind.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillon {
namespace {

struct MiscDialog : LoadingTest {
    void receive(const SysExMessage& message, int mode)
    {
        ASSERT_TRUE(miscReceive(model, message));
        model.misc.mode = mode;
    }

    static ByteImage part(const ByteImage& image, int first, int last)
    {
        return ByteImage(image.begin() + (first - 1), image.begin() + last);
    }
};

TEST_F(MiscDialog, SetupOffersTheBanksOfEachDump)
{
    struct Case {
        SysExMessage message;
        std::vector<int> boxes;
        bool frame;
        const char* name;
    };
    const Case cases[] = {
        {allMultiMessage(ByteImage(6656, 0)), {2, 3}, true, "All Multi"},
        {allProgramMessage(ByteImage(147456, 0)), {0, 1}, true, "All Program"},
        {allDataMessage(ByteImage(160064, 0)), {0, 1, 2, 3, 4}, true, "All Data"},
        {SysExMessage(966, 0), {}, false, "Global and MIDI"},
        {globalOrMidiMessage(0), {}, false, "Global"},
        {globalOrMidiMessage(5), {}, false, "MIDI"},
    };
    for (const Case& c : cases) {
        receive(c.message, 1);
        const MiscDialogState state = misc::doSetup(model);
        EXPECT_EQ(state.caption, c.name);
        EXPECT_EQ(model.misc.name, c.name);
        EXPECT_EQ(state.extractFrameVisible, c.frame) << c.name;
        for (int i = 0; i < kMiscTypeBoxes; ++i) {
            const bool expected = std::find(c.boxes.begin(), c.boxes.end(), i) != c.boxes.end();
            EXPECT_EQ(state.typeVisible[static_cast<std::size_t>(i)], expected) << c.name << " box " << i;
        }
        EXPECT_EQ(state.saveSendCaption, std::string("Save ") + c.name);
    }
}

TEST_F(MiscDialog, SetupCaptionsTheControls)
{
    receive(allDataMessage(ByteImage(160064, 0)), 3);
    const MiscDialogState state = misc::doSetup(model);
    EXPECT_EQ(state.typeCaption[0], "Bank A");
    EXPECT_EQ(state.typeCaption[1], "Bank B");
    EXPECT_EQ(state.typeCaption[2], "Multibank A");
    EXPECT_EQ(state.typeCaption[3], "Multibank B");
    EXPECT_EQ(state.typeCaption[4], "Pattern bank");
    EXPECT_EQ(state.extractFrameCaption, "Load into Editor");
    EXPECT_EQ(state.loadCaption, "Extract and Load Selected");
    EXPECT_EQ(state.doneCaption, "Done");
    EXPECT_EQ(state.helpContext, 66);
    EXPECT_EQ(state.saveSendCaption, "Send All Data to Z1");
    for (const bool ticked : state.typeTicked)
        EXPECT_FALSE(ticked);
}

TEST_F(MiscDialog, DataStartsBehindTheHeaderOfEachDump)
{
    const ByteImage image = countingImage(6656);
    receive(allMultiMessage(image), 3);
    misc::doMiscData(model);
    EXPECT_EQ(model.misc.packed.size(), 7617u - 9u);
    EXPECT_EQ(model.misc.image, image);

    const ByteImage program = countingImage(147456);
    receive(allProgramMessage(program), 3);
    misc::doMiscData(model);
    EXPECT_EQ(model.misc.image, program);

    receive(globalOrMidiMessage(1), 3);
    misc::doMiscData(model);
    EXPECT_EQ(model.misc.packed.size(), 483u - 6u);
    EXPECT_EQ(model.misc.image, ByteImage(416, 0x11));
}

TEST_F(MiscDialog, AllDataGivesEveryBankItsPart)
{
    const ByteImage image = countingImage(160064);
    receive(allDataMessage(image), 3);
    MiscDialogState state = misc::doSetup(model);
    state.typeTicked.fill(true);

    misc::doProcessLoad(model, state);

    EXPECT_EQ(model.banks.image(kPatchBankA), part(image, 1, 73728));
    EXPECT_EQ(model.banks.image(kPatchBankB), part(image, 73729, 147456));
    EXPECT_EQ(model.banks.image(kMultiBankA), part(image, 147457, 150784));
    EXPECT_EQ(model.banks.image(kMultiBankB), part(image, 150785, 154112));
    EXPECT_EQ(model.banks.image(kArpBank), part(image, 154113, 159232));
    for (int kind : {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank}) {
        EXPECT_TRUE(model.flags.loaded[kind]) << kind;
        EXPECT_TRUE(model.flags.clean[kind]) << kind;
        EXPECT_FALSE(model.flags.changed[kind]) << kind;
    }
    // The last box taken shows last.
    EXPECT_EQ(model.labels.highlightedKind(), kArpBank);
    EXPECT_EQ(model.arpMode, 1);
    EXPECT_EQ(model.mode, kPattern);
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(MiscDialog, AllMultiFillsTheMultiBanks)
{
    const ByteImage image = countingImage(6656);
    receive(allMultiMessage(image), 3);
    MiscDialogState state = misc::doSetup(model);
    state.typeTicked[3] = true;

    misc::doProcessLoad(model, state);

    EXPECT_EQ(model.banks.image(kMultiBankB), part(image, 3329, 6656));
    EXPECT_EQ(model.banks.image(kMultiBankA), ByteImage(3328, 0));
    EXPECT_EQ(model.multiBankTarget, kMultiBankB);
    EXPECT_EQ(model.multiMode, 2);
    EXPECT_EQ(model.mode, kMultiset);
    EXPECT_TRUE(model.flags.loaded[kMultiBankB]);
    EXPECT_FALSE(model.flags.loaded[kMultiBankA]);
}

TEST_F(MiscDialog, NothingTickedDoesNothing)
{
    receive(allProgramMessage(countingImage(147456)), 3);
    MiscDialogState state = misc::doSetup(model);
    // A ticked box that is hidden does not count.
    state.typeTicked[4] = true;

    misc::doProcessLoad(model, state);

    EXPECT_TRUE(model.misc.image.empty());
    EXPECT_FALSE(model.flags.loaded[kArpBank]);
    EXPECT_EQ(model.banks.image(kPatchBankA), ByteImage(73728, 0));
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(MiscDialog, CancelAtASavePromptSkipsThatBankOnly)
{
    const ByteImage image = countingImage(147456);
    receive(allProgramMessage(image), 3);
    model.flags.loaded[kPatchBankA] = true;
    model.flags.changed[kPatchBankA] = true;
    model.banks.image(kPatchBankA) = ByteImage(73728, 0x33);
    host.expectMessage("New Bank", Answer::Cancel, "Save current Bank A first?");
    MiscDialogState state = misc::doSetup(model);
    state.typeTicked[0] = true;
    state.typeTicked[1] = true;

    misc::doProcessLoad(model, state);

    EXPECT_EQ(model.banks.image(kPatchBankA), ByteImage(73728, 0x33));
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
    EXPECT_EQ(model.banks.image(kPatchBankB), part(image, 73729, 147456));
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_EQ(model.mode, kPatchBankB);
    EXPECT_TRUE(model.bankMenuEnabled);
}

TEST_F(MiscDialog, LocalPreloadSetsTheTarget)
{
    EXPECT_TRUE(misc::doLocalPreload(model, 1));
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_TRUE(misc::doLocalPreload(model, 2));
    EXPECT_EQ(model.multiBankTarget, kMultiBankA);
    EXPECT_FALSE(misc::doLocalPreload(model, 5));
}

TEST_F(MiscDialog, BoxesMapToTheBankKinds)
{
    EXPECT_EQ(misc::boxKind(0), kPatchBankA);
    EXPECT_EQ(misc::boxKind(1), kPatchBankB);
    EXPECT_EQ(misc::boxKind(2), kMultiBankA);
    EXPECT_EQ(misc::boxKind(3), kMultiBankB);
    EXPECT_EQ(misc::boxKind(4), kArpBank);
    EXPECT_EQ(misc::boxKind(5), 0);
}

TEST_F(MiscDialog, ReceivedBlockBecomesTheDump)
{
    const auto message = globalOrMidiMessage(0);
    EXPECT_TRUE(miscReceive(model, message));
    EXPECT_EQ(model.misc.message, message);
    EXPECT_EQ(model.misc.length(), 483);

    EXPECT_FALSE(miscReceive(model, std::vector<std::uint8_t>(184001, 0)));
    EXPECT_EQ(model.misc.message, message);
}

}  // namespace
}  // namespace quillon
