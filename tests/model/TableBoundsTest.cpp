#include "model/ParamTables.h"

#include <gtest/gtest.h>

#include <iterator>

namespace quillon {
namespace {

// The section and subsection tables as the instrument's parameter list gives
// them, bounds included: the walk over the rows must arrive at these.
struct ExpectedSection {
    int index;
    int id;
    const char* name;
    int first;
    int last;
};

struct ExpectedSubsection {
    int index;
    int id;
    const char* name;
    int sect;
    int first;
    int last;
};

const ExpectedSection kPatchSections[] = {
#include "model/data/ExpectedPatchSections.inc"
};
const ExpectedSubsection kPatchSubsections[] = {
#include "model/data/ExpectedPatchSubsections.inc"
};
const ExpectedSection kMultiSections[] = {
#include "model/data/ExpectedMultiSections.inc"
};
const ExpectedSubsection kMultiSubsections[] = {
#include "model/data/ExpectedMultiSubsections.inc"
};

template <typename Entry, std::size_t N>
void expectSections(const std::vector<Entry>& actual, const ExpectedSection (&expected)[N], int rows)
{
    ASSERT_EQ(static_cast<int>(N), rows);
    ASSERT_EQ(static_cast<int>(actual.size()), rows + 1);
    for (const auto& e : expected) {
        const auto& a = actual[e.index];
        EXPECT_EQ(a.id, e.id) << "section " << e.index;
        EXPECT_EQ(a.name, e.name) << "section " << e.index;
        EXPECT_EQ(a.firstParam, e.first) << "section " << e.index;
        EXPECT_EQ(a.lastParam, e.last) << "section " << e.index;
    }
}

template <std::size_t N>
void expectSubsections(const std::vector<SubSectionDef>& actual, const ExpectedSubsection (&expected)[N], int rows)
{
    ASSERT_EQ(static_cast<int>(N), rows);
    ASSERT_EQ(static_cast<int>(actual.size()), rows + 1);
    for (const auto& e : expected) {
        const auto& a = actual[e.index];
        EXPECT_EQ(a.id, e.id) << "subsection " << e.index;
        EXPECT_EQ(a.name, e.name) << "subsection " << e.index;
        EXPECT_EQ(a.sect, e.sect) << "subsection " << e.index;
        EXPECT_EQ(a.firstParam, e.first) << "subsection " << e.index;
        EXPECT_EQ(a.lastParam, e.last) << "subsection " << e.index;
    }
}

TEST(TableBounds, PatchSectionsMatchTheParameterList)
{
    expectSections(paramTables().patchSections, kPatchSections, kPatchSectionRows);
}

TEST(TableBounds, PatchSubsectionsMatchTheParameterList)
{
    expectSubsections(paramTables().patchSubsections, kPatchSubsections, kPatchSubsectionRows);
}

TEST(TableBounds, MultiSectionsMatchTheParameterList)
{
    expectSections(paramTables().multiSections, kMultiSections, kMultiSectionRows);
}

TEST(TableBounds, MultiSubsectionsMatchTheParameterList)
{
    expectSubsections(paramTables().multiSubsections, kMultiSubsections, kMultiSubsectionRows);
}

}  // namespace
}  // namespace quillon
