#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(SubsectionBounds, Osc1SettingFollowsTheOscillatorType)
{
    ParamValues patch = paramTables().patchDefaults;
    patch[174] = 12;
    EXPECT_EQ(firstParamOfSubsection(13, patch), 725);
    EXPECT_EQ(lastParamOfSubsection(13, patch), 754);
    EXPECT_EQ(sectionOfSubsection(13, patch), 45);
    patch[174] = 0;
    EXPECT_EQ(firstParamOfSubsection(13, patch), paramTables().patchSections[33].firstParam);
    EXPECT_EQ(sectionOfSubsection(13, patch), 33);
}

TEST(SubsectionBounds, Osc2AndEffectSettingsFollowTheirTypes)
{
    ParamValues patch = paramTables().patchDefaults;
    patch[188] = 8;
    patch[359] = 14;
    patch[360] = 0;
    patch[361] = 2;
    EXPECT_EQ(firstParamOfSubsection(16, patch), 1178);
    EXPECT_EQ(lastParamOfSubsection(16, patch), 1191);
    EXPECT_EQ(firstParamOfSubsection(38, patch), 990);
    EXPECT_EQ(lastParamOfSubsection(38, patch), 1003);
    EXPECT_EQ(sectionOfSubsection(40, patch), 73);
    EXPECT_EQ(firstParamOfSubsection(40, patch), paramTables().patchSections[73].firstParam);
    EXPECT_EQ(sectionOfSubsection(42, patch), 63);
}

TEST(SubsectionBounds, OtherSubsectionsGiveTheirOwnBounds)
{
    const ParamValues& patch = paramTables().patchDefaults;
    const auto& eg1 = paramTables().patchSubsections[2];
    EXPECT_EQ(firstParamOfSubsection(2, patch), eg1.firstParam);
    EXPECT_EQ(lastParamOfSubsection(2, patch), eg1.lastParam);
    EXPECT_EQ(sectionOfSubsection(2, patch), eg1.sect);
}

TEST(SubsectionBounds, MultiEffectSettingsFollowTheEffectSelects)
{
    ParamValues multi = paramTables().multiDefaults;
    multi[179] = 1;
    multi[180] = 2;
    multi[181] = 0;
    EXPECT_EQ(multiSectionOfSubsection(3, multi), 13);
    EXPECT_EQ(firstMultiParamOfSubsection(3, multi), paramTables().multiSections[13].firstParam);
    EXPECT_EQ(lastMultiParamOfSubsection(5, multi), paramTables().multiSections[32].lastParam);
    EXPECT_EQ(multiSectionOfSubsection(7, multi), 27);
    EXPECT_EQ(multiSectionOfSubsection(1, multi), paramTables().multiSubsections[1].sect);
}

}  // namespace
}  // namespace quillon
