#include "model/LoadReport.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

TEST(LoadReport, CountsBeyondAHundredButKeepsTheFirstHundredTexts)
{
    LoadReport report;
    for (int i = 1; i <= 150; ++i)
        report.add("change " + std::to_string(i));
    EXPECT_EQ(report.changeCount(), 150);
    ASSERT_EQ(report.changeList().size(), 100u);
    EXPECT_EQ(report.changeList().front(), "change 1");
    EXPECT_EQ(report.changeList().back(), "change 100");
}

TEST(LoadReport, ResetEmptiesCountAndTexts)
{
    LoadReport report;
    report.add("x");
    report.reset();
    EXPECT_EQ(report.changeCount(), 0);
    EXPECT_TRUE(report.changeList().empty());
}

}  // namespace
}  // namespace quillon
