#include "output/screens/frmCheck.h"
#include "output/screens/frmCompare.h"

#include "editors/ColourSchemes.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "output/CheckResults.h"
#include "shell/screens/FormLaunchers.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {
namespace {

template <typename T>
T* child(QWidget& form, const QString& name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

QStringList linesOf(QWidget& form)
{
    QStringList lines;
    auto* list = child<QListWidget>(form, "cmbDifferences");
    for (int i = 0; i < list->count(); ++i)
        lines << list->item(i)->text();
    return lines;
}

QColor backgroundOf(QWidget& form)
{
    auto* label = child<QLabel>(form, "lblCompareStatement");
    return label->palette().color(QPalette::Window);
}

QColor textOf(QWidget& form)
{
    auto* label = child<QLabel>(form, "lblCompareStatement");
    return label->palette().color(QPalette::WindowText);
}

// What a form shows when it opens modally from its launcher.
struct SeenForm {
    QString caption;
    QString statement;
    QStringList lines;
};

void watchNextForm(SeenForm& seen)
{
    whenNextModalOpens([&seen](QWidget* modal) {
        seen.caption = modal->windowTitle();
        seen.statement = modal->findChild<QLabel*>("lblCompareStatement")->text();
        seen.lines = linesOf(*modal);
        modal->findChild<QPushButton*>("cmdDone")->click();
    });
}

TEST(frmCheck, ShowsTheCorrectionsOfTheLastLoad)
{
    TestModel t;
    t.model.report.add("Filter Cutoff (120) value changed from 130 to 99");
    t.model.report.add("MIDI byte 12 high value 200 changed to 72");
    frmCheck form(t.model, kPatch);
    EXPECT_EQ(form.windowTitle(), "System changes made to last loaded patch");
    EXPECT_EQ(child<QLabel>(form, "lblCompareStatement")->text(), "System has made 2 changes to loaded patch");
    EXPECT_EQ(linesOf(form), (QStringList{"Filter Cutoff (120) value changed from 130 to 99",
                                          "MIDI byte 12 high value 200 changed to 72"}));
    // Scheme 10: the system's button colours.
    ASSERT_EQ(colourScheme(10)->backgroundSystem, SystemColour::ButtonFace);
    EXPECT_EQ(backgroundOf(form), form.palette().color(QPalette::Button));
    EXPECT_EQ(textOf(form), form.palette().color(QPalette::ButtonText));
}

TEST(frmCheck, CleanLoadSaysSoInTheOtherColours)
{
    TestModel t;
    frmCheck form(t.model, kMultiset);
    EXPECT_EQ(form.windowTitle(), "System changes made to last loaded multiset");
    EXPECT_EQ(child<QLabel>(form, "lblCompareStatement")->text(),
              QString::fromStdString(checkView(t.model, kMultiset).statement));
    EXPECT_TRUE(linesOf(form).isEmpty());
    const ColourScheme* nine = colourScheme(9);
    ASSERT_NE(nine, nullptr);
    ASSERT_EQ(nine->backgroundSystem, SystemColour::None);
    EXPECT_EQ(backgroundOf(form), QColor(QRgb(nine->background)));
    EXPECT_EQ(textOf(form), QColor(QRgb(nine->text)));
}

TEST(frmCheck, LauncherOpensTheFormOfTheCurrentMode)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.report.add("Timbre 1 Level (30) value changed from 140 to 127");
    SeenForm seen;
    watchNextForm(seen);
    showCheckForm(t.model, nullptr);
    EXPECT_EQ(seen.caption, "System changes made to last loaded multiset");
    EXPECT_EQ(seen.statement, "System has made 1 change to loaded multiset");
    EXPECT_EQ(seen.lines, QStringList{"Timbre 1 Level (30) value changed from 140 to 127"});
}

TEST(frmCompare, ListsEveryParameterThatDiffersFromThePreviousLoad)
{
    TestModel t;
    ItemBuffers& patch = t.model.buffers.of(kPatch);
    patch.prevLoaded = patch.current;
    patch.current[3] = static_cast<std::int16_t>(patch.prevLoaded[3] + 1);
    patch.current[200] = static_cast<std::int16_t>(patch.prevLoaded[200] + 2);
    frmCompare form(t.model, kPatch);
    EXPECT_EQ(form.windowTitle(), "Compare loaded patch to last loaded");
    EXPECT_EQ(child<QLabel>(form, "lblCompareStatement")->text(), "Currently loaded patch has 2 changes");
    const QStringList lines = linesOf(form);
    ASSERT_EQ(lines.size(), 2);
    const std::string expected = "param(3) = " + std::to_string(patch.current[3]) + "  last patch " +
                                 std::to_string(patch.prevLoaded[3]) + " [" + paramTables().patch[3].name + "]";
    EXPECT_EQ(lines[0].toStdString(), expected);
    EXPECT_TRUE(lines[1].startsWith("param(200) = "));
    EXPECT_EQ(backgroundOf(form), form.palette().color(QPalette::Button));
}

TEST(frmCompare, SameItemSaysSoWithAnEmptyList)
{
    TestModel t;
    ItemBuffers& multi = t.model.buffers.of(kMultiset);
    multi.prevLoaded = multi.current;
    frmCompare form(t.model, kMultiset);
    EXPECT_EQ(form.windowTitle(), "Compare loaded multiset to last loaded");
    EXPECT_EQ(child<QLabel>(form, "lblCompareStatement")->text(),
              "Currently loaded multiset is same as last multiset loaded");
    EXPECT_TRUE(linesOf(form).isEmpty());
    EXPECT_EQ(backgroundOf(form), QColor(QRgb(colourScheme(9)->background)));
    // Opening wrote the empty comparison: the file name and an empty line.
    std::vector<std::string> saved;
    ASSERT_TRUE(readLines(paramFolder(t.model) / "QuillonCmpMlt.txt", saved));
    EXPECT_EQ(saved.size(), 2u);
}

TEST(frmCompare, OpeningSavesTheLinesItShows)
{
    TestModel t;
    t.model.mode = kPatch;
    t.model.itemPath[kPatch] = "/music/Lead.syx";
    ItemBuffers& patch = t.model.buffers.of(kPatch);
    patch.prevLoaded = patch.current;
    patch.current[10] = static_cast<std::int16_t>(patch.prevLoaded[10] + 1);
    SeenForm seen;
    watchNextForm(seen);
    showCompareForm(t.model, nullptr);
    EXPECT_EQ(seen.statement, "Currently loaded patch has 1 change");
    ASSERT_EQ(seen.lines.size(), 1);

    std::vector<std::string> saved;
    ASSERT_TRUE(readLines(paramFolder(t.model) / "QuillonCmpPch.txt", saved));
    ASSERT_EQ(saved.size(), 3u);
    EXPECT_EQ(saved[0], "/music/Lead.syx");
    EXPECT_EQ(saved[1], "");
    EXPECT_EQ(saved[2], seen.lines[0].toStdString());
}

TEST(frmCompare, OtherModesOpenNothing)
{
    TestModel t;
    t.model.mode = kPattern;
    showCompareForm(t.model, nullptr);
    showCheckForm(t.model, nullptr);
    EXPECT_FALSE(std::filesystem::exists(paramFolder(t.model) / "QuillonCmpPch.txt"));
}

}  // namespace
}  // namespace quillon
