#include "editors/ValueNote.h"

#include "editors/MultiSelect.h"
#include "editors/TimbreCaption.h"
#include "editors/ValueBox.h"
#include "files/FactoryFiles.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

constexpr int kKnob1Parameter = 384;  // a performance knob's destination, 0 to 230
constexpr int kCenterKey = 179;       // no note
constexpr int kOsc1Type = 174;
constexpr int kPatchNumberOfTimbre2 = 45;

std::string record(int n)
{
    std::string text = "Destination " + std::to_string(n);
    text.resize(kPeRecordLength, ' ');
    return text;
}

// Quillonpe.dat with a record of its own name at every number.
void givePeRecords(AppModel& model)
{
    model.peRecords.clear();
    for (int n = 1; n <= 1000; ++n)
        model.peRecords += record(n);
}

TEST(ValueNote, KnobDestinationRowNamesTheDestinationInTheMessageLine)
{
    TestModel t;
    givePeRecords(t.model);
    ValueBox box = fillValueBox(t.model, kPatch, 7, kKnob1Parameter);
    BoxChange change = changeValueBox(t.model, box, "12");
    ASSERT_TRUE(change.stored);
    EXPECT_EQ(change.followUp.note.kind, ValueNoteKind::Destination);
    EXPECT_EQ(change.followUp.note.text, record(12));
    EXPECT_EQ(t.host.message, record(12));
}

TEST(ValueNote, DestinationsOfTheOscillatorBlockFollowTheOsc1Type)
{
    TestModel t;
    givePeRecords(t.model);
    t.model.buffers.of(kPatch).current[kOsc1Type] = 2;
    ValueBox box = fillValueBox(t.model, kPatch, 7, kKnob1Parameter);
    box.text = "160";
    ValueNote note = showValueNote(t.model, box);
    EXPECT_EQ(note.text, record(2 * 21 + 157 + 3));
    EXPECT_EQ(showParamName(t.model, 0), "Off");
    EXPECT_EQ(showParamName(t.model, 157), record(157));
}

TEST(ValueNote, ClickOnTheDecodeShowsTheNoteAgain)
{
    TestModel t;
    givePeRecords(t.model);
    t.model.buffers.of(kPatch).current[kKnob1Parameter] = 5;
    ValueBox box = fillValueBox(t.model, kPatch, 7, kKnob1Parameter);
    showValueNote(t.model, box);
    EXPECT_EQ(t.host.message, record(5));
}

TEST(ValueNote, TimbreRowNamesItsTimbreAgain)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.buffers.of(kMultiset).current[kPatchNumberOfTimbre2 + 1] = 4;  // Reserve Voice: on
    refreshTimbres(t.model);
    const std::string before = t.model.multiSelect.sect[kFirstTimbreButton + 1].caption;
    ValueBox box = fillValueBox(t.model, kMultiset, 3, kPatchNumberOfTimbre2);
    BoxChange change = changeValueBox(t.model, box, "12");
    ASSERT_TRUE(change.stored);
    EXPECT_EQ(change.followUp.note.kind, ValueNoteKind::TimbreCaption);
    EXPECT_EQ(change.followUp.note.timbre, 2);
    EXPECT_EQ(t.model.multiSelect.sect[kFirstTimbreButton + 1].caption, timbreCaption(t.model, 2));
    EXPECT_NE(t.model.multiSelect.sect[kFirstTimbreButton + 1].caption, before);
}

TEST(ValueNote, OtherRowsAndOtherScreensBringNoNote)
{
    TestModel t;
    givePeRecords(t.model);
    ValueBox key = fillValueBox(t.model, kPatch, 2, kCenterKey);
    EXPECT_EQ(showValueNote(t.model, key).kind, ValueNoteKind::None);
    ValueBox knob = fillValueBox(t.model, kPatch, 7, kKnob1Parameter);
    t.model.mode = 2;
    EXPECT_EQ(showValueNote(t.model, knob).kind, ValueNoteKind::None);
    EXPECT_EQ(t.host.message, "");
}

}  // namespace
}  // namespace quillon
