#include "files/SuggestedNames.h"

#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillon {
namespace {

constexpr int kCategory = 17;
constexpr int kUserGroup = 18;
constexpr int kOsc1Type = 174;
constexpr int kFx1Type = 359;
constexpr int kLinkArpPattern = 374;

void setName(AppModel& model, int kind, const std::string& name)
{
    ParamValues& values = model.buffers.of(kind).current;
    for (int p = 1; p <= 16; ++p)
        values[p] = static_cast<std::int16_t>(p <= static_cast<int>(name.size()) ? name[p - 1] : ' ');
}

std::string inFolder(const std::string& folder, const std::string& file)
{
    return (std::filesystem::path(folder) / file).string();
}

struct PatchNames : ::testing::Test {
    PatchNames()
    {
        model.workFolder = folder;
        model.settings.prefixes = {"", "P-", "BK-", "M-", "A-", "X-"};
        ParamValues& patch = model.buffers.of(kPatch).current;
        patch[kCategory] = 7;
        patch[kUserGroup] = 12;
        patch[kOsc1Type] = 3;
        patch[kFx1Type] = 14;
        patch[kLinkArpPattern] = 19;
    }
    TestModel t;
    AppModel& model = t.model;
    std::string folder = (t.folder / "sounds").string();
};

TEST_F(PatchNames, LabelTakesTheNameAndTheItemKeepsItTrimmedAtTheRight)
{
    setName(model, kPatch, "  Warm Pad");
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.labels.label(kPatch).text, "  Warm Pad      ");
    EXPECT_EQ(model.itemName[kPatch], "  Warm Pad");
}

TEST_F(PatchNames, PatchSuggestionFollowsTheFormatSetting)
{
    setName(model, kPatch, "Warm Pad");
    model.settings.fileNameFormat = 7;
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.suggestedPath[kPatch], inFolder(folder, "P-p07u12 Warm Pad.syx"));
}

TEST_F(PatchNames, SlashAndColonBecomeBlanksInTheSuggestion)
{
    setName(model, kPatch, "A/B:C");
    model.settings.fileNameFormat = 0;
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.suggestedPath[kPatch], inFolder(folder, "P-A B C.syx"));
}

TEST_F(PatchNames, BlankNameIsSuggestedAsUntitled)
{
    setName(model, kPatch, "");
    model.settings.fileNameFormat = 0;
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.itemName[kPatch], "");
    EXPECT_EQ(model.suggestedPath[kPatch], inFolder(folder, "P-Untitled.syx"));
}

TEST_F(PatchNames, EveryFormatBuildsItsParts)
{
    const std::string expected[] = {
        "P-Brass.syx",        "P-p07 Brass.syx",     "P-u12 Brass.syx",     "P-o03 Brass.syx",
        "P-f14 Brass.syx",    "P-l19 Brass.syx",     "P-a000 Brass.syx",    "P-p07u12 Brass.syx",
        "P-p07o03 Brass.syx", "P-u12o03 Brass.syx",
    };
    for (int format = 0; format <= 9; ++format)
        EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass   ", format), inFolder(folder, expected[format]))
            << "format " << format;
}

TEST_F(PatchNames, FormatOutsideZeroToNineGivesNoPath)
{
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", 10), "");
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", -1), "");
}

TEST_F(PatchNames, BankPlaceNamesBankAWithThreeDigits)
{
    model.bankTarget = kPatchBankA;
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", 6, 5), inFolder(folder, "P-a005 Brass.syx"));
    // A place above 127 stands as it is.
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", 6, 200), inFolder(folder, "P-a200 Brass.syx"));
}

TEST_F(PatchNames, BankPlaceInBankBCountsFromTheStartOfBankB)
{
    model.bankTarget = kPatchBankB;
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", 6, 130), inFolder(folder, "P-b002 Brass.syx"));
}

TEST_F(PatchNames, BankPlaceWithoutAPatchBankIsA000)
{
    model.bankTarget = 0;
    EXPECT_EQ(doBuildPatchFileName(model, folder, "Brass", 6, 42), inFolder(folder, "P-a000 Brass.syx"));
}

TEST_F(PatchNames, LabelledPatchSuggestionNamesThePlaceSelectedInBankA)
{
    setName(model, kPatch, "Brass");
    model.settings.fileNameFormat = 6;
    model.bankTarget = kPatchBankA;
    model.banks.lastPutPatch = 37;
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.suggestedPath[kPatch], inFolder(folder, "P-a037 Brass.syx"));
}

TEST_F(PatchNames, LabelledPatchSuggestionNamesThePlaceSelectedInBankBFromZero)
{
    setName(model, kPatch, "Brass");
    model.settings.fileNameFormat = 6;
    model.bankTarget = kPatchBankB;
    model.banks.lastPutPatch = 128 + 5;
    doLabelFileName(model, kPatch);
    EXPECT_EQ(model.suggestedPath[kPatch], inFolder(folder, "P-b005 Brass.syx"));
}

TEST(PatchNameFormats, CaptionsNameTheTenFormats)
{
    const auto formats = patchFileNameFormats();
    ASSERT_EQ(formats.size(), 10u);
    EXPECT_STREQ(formats[0], "patch name");
    EXPECT_STREQ(formats[1], "pxx patch name");
    EXPECT_STREQ(formats[6], "axxx patch name");
    EXPECT_STREQ(formats[9], "uxxoxx patch name");
}

TEST(SuggestedNames, MultisetSuggestionHasItsPrefixAndNoExtension)
{
    TestModel t;
    t.model.workFolder = t.folder.path().string();
    t.model.settings.prefixes[3] = "M-";
    setName(t.model, kMultiset, "Split:Keys");
    doLabelFileName(t.model, kMultiset);
    EXPECT_EQ(t.model.itemName[kMultiset], "Split:Keys");
    EXPECT_EQ(t.model.labels.label(kMultiset).text, "Split:Keys      ");
    EXPECT_EQ(t.model.suggestedPath[kMultiset], inFolder(t.model.workFolder, "M-Split Keys"));
}

TEST(SuggestedNames, PatternSuggestionHasItsPrefixAndNoExtension)
{
    TestModel t;
    t.model.workFolder = t.folder.path().string();
    t.model.settings.prefixes[4] = "A-";
    setName(t.model, kPattern, "");
    doLabelFileName(t.model, kPattern);
    EXPECT_EQ(t.model.suggestedPath[kPattern], inFolder(t.model.workFolder, "A-Untitled"));
}

TEST(SuggestedNames, BanksHaveNoLabelName)
{
    TestModel t;
    doLabelFileName(t.model, kPatchBankA);
    EXPECT_EQ(t.model.labels.label(kPatchBankA).text, "Bank A");
    EXPECT_EQ(t.model.suggestedPath[kPatchBankA], "");
}

TEST(SuggestedNames, NewLabelNameIsAnnounced)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    doLabelFileName(t.model, kPatch);
    EXPECT_TRUE(observer.all & kLabelsChanged);
    t.model.removeObserver(&observer);
}

}  // namespace
}  // namespace quillon
