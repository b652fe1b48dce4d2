#include "model/Kind.h"
#include "model/ParamTables.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const ParamTables& tables() { return paramTables(); }

TEST(ParamTables, EveryRowIdEqualsItsRowNumber)
{
    ASSERT_EQ(tables().patch.size(), static_cast<std::size_t>(kPatchParams + 1));
    ASSERT_EQ(tables().multi.size(), static_cast<std::size_t>(kMultiParams + 1));
    ASSERT_EQ(tables().arp.size(), static_cast<std::size_t>(kArpParams + 1));
    for (int r = 1; r <= kPatchParams; ++r)
        EXPECT_EQ(tables().patch[r].id, r) << "patch row " << r;
    for (int r = 1; r <= kMultiParams; ++r)
        EXPECT_EQ(tables().multi[r].id, r) << "multi row " << r;
    for (int r = 1; r <= kArpParams; ++r)
        EXPECT_EQ(tables().arp[r].id, r) << "pattern row " << r;
}

TEST(ParamTables, LoadsWithoutErrors)
{
    EXPECT_TRUE(tables().errorTexts.empty()) << tables().errorTexts.front();
}

TEST(ParamTables, SectionAndSubsectionIdsIndexTheirTables)
{
    for (int i = 1; i <= kPatchSectionRows; ++i)
        EXPECT_EQ(tables().patchSections[i].id / 10, i) << "patch section " << i;
    for (int i = 1; i <= kMultiSectionRows; ++i)
        EXPECT_EQ(tables().multiSections[i].id / 10, i) << "multi section " << i;
    for (int i = 1; i <= kPatchSubsectionRows; ++i) {
        const auto& s = tables().patchSubsections[i];
        EXPECT_EQ(s.sect, s.id / 10);
        EXPECT_EQ(tables().patchSubsectionIndex[s.id], i);
    }
    for (int i = 1; i <= kMultiSubsectionRows; ++i) {
        const auto& s = tables().multiSubsections[i];
        EXPECT_EQ(s.sect, s.id / 10);
        EXPECT_EQ(tables().multiSubsectionIndex[s.id], i);
    }
}

TEST(ParamTables, Row1040IsTheOsc2CopyOfRow464)
{
    const auto& r = tables().patch[1040];
    EXPECT_EQ(r.id, 1040);
    EXPECT_EQ(r.sect, 640);
    EXPECT_EQ(r.startB, 1768);
    EXPECT_EQ(r.name, tables().patch[464].name);
    EXPECT_EQ(r.subSect, tables().patch[464].subSect + 310);
    EXPECT_EQ(r.endB, tables().patch[464].endB + 416);
}

TEST(ParamTables, Row1343IsTheLastFx2RowWithSect830)
{
    EXPECT_EQ(tables().patch[1343].id, 1343);
    EXPECT_EQ(tables().patch[1343].sect, 830);
}

TEST(ParamTables, CopiedPatchRowsKeepNameTableAndRange)
{
    for (int r = 1040; r <= 1343; ++r) {
        const int source = r <= 1191 ? r - 576 : r - 392;
        const int shift = r <= 1191 ? 310 : 270;
        const int bits = r <= 1191 ? 416 : 184;
        const auto& c = tables().patch[r];
        const auto& s = tables().patch[source];
        EXPECT_EQ(c.name, s.name) << r;
        EXPECT_EQ(c.table, s.table) << r;
        EXPECT_EQ(c.min, s.min) << r;
        EXPECT_EQ(c.max, s.max) << r;
        EXPECT_EQ(c.sect, s.sect + shift) << r;
        EXPECT_EQ(c.subSect, s.subSect + shift) << r;
        EXPECT_EQ(c.startB, s.startB + bits) << r;
        EXPECT_EQ(c.endB, s.endB + bits) << r;
    }
}

TEST(ParamTables, MultiRow224IsTheFx1CopyOfPatchRow800)
{
    const auto& r = tables().multi[224];
    EXPECT_EQ(r.sect, 120);
    EXPECT_EQ(r.startB, 912);
    EXPECT_EQ(r.name, tables().patch[800].name);
}

TEST(ParamTables, MultiRow615HasSect400)
{
    EXPECT_EQ(tables().multi[615].sect, 400);
}

TEST(ParamTables, CopiedMultiRowsComeFromTheFinishedPatchTable)
{
    for (int r = 224; r <= kMultiParams; ++r) {
        const int source = r <= 463 ? r + 576 : r + 728;
        const int shift = r <= 463 ? -340 : -430;
        const auto& c = tables().multi[r];
        const auto& s = tables().patch[source];
        EXPECT_EQ(c.name, s.name) << r;
        EXPECT_EQ(c.table, s.table) << r;
        EXPECT_EQ(c.min, s.min) << r;
        EXPECT_EQ(c.max, s.max) << r;
        EXPECT_EQ(c.sect, s.sect + shift) << r;
        EXPECT_EQ(c.subSect, s.subSect + shift) << r;
        EXPECT_EQ(c.startB, s.startB - 2384) << r;
        EXPECT_EQ(c.endB, s.endB - 2384) << r;
    }
}

TEST(ParamTables, PatchSection83SpansRows1333To1343)
{
    EXPECT_EQ(tables().patchSections[83].firstParam, 1333);
    EXPECT_EQ(tables().patchSections[83].lastParam, 1343);
}

TEST(ParamTables, MultiSection10IsEnteredTwiceAndKeepsRows186To203)
{
    EXPECT_EQ(tables().multiSections[1].id, 10);
    EXPECT_EQ(tables().multiSections[1].firstParam, 186);
    EXPECT_EQ(tables().multiSections[1].lastParam, 203);
}

TEST(ParamTables, ReservedRowWithTable0IsFirmAndHard)
{
    const auto& row = tables().patch[321];
    ASSERT_EQ(row.name, "reserved");
    ASSERT_EQ(row.table, 0);
    EXPECT_EQ(tables().patchFirm[321], -1);
    EXPECT_EQ(tables().patchHard[321], -1);
}

TEST(ParamTables, OtherRowWithTable0IsNeitherFirmNorHard)
{
    const auto& row = tables().patch[30];
    ASSERT_EQ(row.name, "Random Pitch Intensity");
    ASSERT_EQ(row.table, 0);
    EXPECT_EQ(tables().patchFirm[30], 0);
    EXPECT_EQ(tables().patchHard[30], 0);
}

TEST(ParamTables, RowsOfTypeAndNameTablesAreFirm)
{
    EXPECT_EQ(tables().patchFirm[1], -1);    // name character, table 16
    EXPECT_EQ(tables().patchFirm[174], -1);  // oscillator type, table 4
    EXPECT_EQ(tables().patchFirm[107], 0);   // LFO wave form, table 3
    EXPECT_EQ(tables().patchFirm[109], 0);   // LFO frequency, table 91
}

TEST(ParamTables, MultiHardExactlyOnReservedRows)
{
    for (int r = 1; r <= kMultiParams; ++r)
        EXPECT_EQ(tables().multiHard[r], tables().multi[r].name == "reserved" ? -1 : 0) << r;
}

TEST(ParamTables, Row755IsNotUsedAndLiesInNoSection)
{
    const auto& row = tables().patch[755];
    EXPECT_EQ(row.name, "not used (by Korg)");
    EXPECT_EQ(row.sect, 0);
    EXPECT_EQ(row.startB, 0);
    EXPECT_EQ(row.endB, 0);
    for (int i = 1; i <= kPatchSectionRows; ++i) {
        const auto& s = tables().patchSections[i];
        EXPECT_FALSE(s.firstParam <= 755 && 755 <= s.lastParam) << "section " << s.id;
    }
}

TEST(ParamTables, PatchNameRowsLieInSection10ButInNoSubsection)
{
    EXPECT_EQ(tables().patchSections[1].firstParam, 1);
    EXPECT_EQ(tables().patchSubsections[1].id, 10);
    EXPECT_EQ(tables().patchSubsections[1].firstParam, 17);
}

TEST(ParamTables, SubsectionWithoutRowsKeepsZeroBounds)
{
    const int osc1Setting = tables().patchSubsectionIndex[112];
    ASSERT_EQ(osc1Setting, 13);
    EXPECT_EQ(tables().patchSubsections[osc1Setting].firstParam, 0);
    EXPECT_EQ(tables().patchSubsections[osc1Setting].lastParam, 0);
}

TEST(ParamTables, CopiedSectionsTakeNameAndShiftedId)
{
    EXPECT_EQ(tables().patchSections[64].id, tables().patchSections[33].id + 310);
    EXPECT_EQ(tables().patchSections[64].name, tables().patchSections[33].name);
    EXPECT_EQ(tables().patchSections[73].id, tables().patchSections[46].id + 270);
    EXPECT_EQ(tables().patchSubsections[104].id, tables().patchSubsections[51].id + 310);
    EXPECT_EQ(tables().patchSubsections[128].id, tables().patchSubsections[86].id + 270);
    EXPECT_EQ(tables().multiSections[30].id, tables().multiSections[12].id + 180);
    EXPECT_EQ(tables().multiSubsections[41].id, tables().multiSubsections[23].id + 180);
    EXPECT_EQ(tables().multiSubsections[51].name, tables().multiSubsections[33].name);
}

}  // namespace
}  // namespace quillon
