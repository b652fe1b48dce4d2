#include "model/screens/frmSection.h"
#include "model/screens/frmSubSection.h"

#include "model/ParamTables.h"
#include "shell/screens/FormLaunchers.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

template <typename T>
T* child(QWidget& form, const QString& name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

QString cell(QWidget& form, const char* stem, int line)
{
    return child<QLabel>(form, QString("lbl%1_%2").arg(stem).arg(line))->text();
}

void search(QWidget& form, const char* box, const QString& text)
{
    QTest::keyClicks(child<QLineEdit>(form, box), text);
    QTest::mouseClick(child<QPushButton>(form, "cmdSearch"), Qt::LeftButton);
}

// The one visible top-level form of a type, as a launcher leaves it.
template <typename Form>
Form* openForm()
{
    Form* shown = nullptr;
    int count = 0;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* form = qobject_cast<Form*>(widget); form != nullptr && form->isVisible()) {
            shown = form;
            ++count;
        }
    }
    EXPECT_EQ(count, 1);
    return shown;
}

template <typename Form>
void closeForm(Form* form)
{
    QPointer<Form> guard(form);
    QTest::mouseClick(child<QPushButton>(*form, "cmdDone"), Qt::LeftButton);
    QTRY_VERIFY(guard.isNull());
}

TEST(frmSection, PatchSectionsListEightyThreeRows)
{
    frmSection form(1);
    EXPECT_EQ(form.windowTitle(), "Patch: Sections");
    QScrollBar* bar = child<QScrollBar>(form, "vsbSectNo");
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 83 - 9);
    EXPECT_EQ(bar->pageStep(), 10);
    const SectionDef& first = paramTables().patchSections[1];
    EXPECT_EQ(cell(form, "No", 0), "1");
    EXPECT_EQ(cell(form, "ID", 0), QString::number(first.id));
    EXPECT_EQ(cell(form, "Name", 0).toStdString(), first.name);
    EXPECT_EQ(cell(form, "FirstParam", 0), QString::number(first.firstParam));
    EXPECT_EQ(cell(form, "LastParam", 0), QString::number(first.lastParam));
    bar->setValue(bar->maximum());
    EXPECT_EQ(cell(form, "No", 9), "83");
}

TEST(frmSection, MultiSectionsListFortyRows)
{
    frmSection form(2);
    EXPECT_EQ(form.windowTitle(), "Multi: Sections");
    QScrollBar* bar = child<QScrollBar>(form, "vsbSectNo");
    EXPECT_EQ(bar->maximum(), 40 - 9);
    bar->setValue(bar->maximum());
    EXPECT_EQ(cell(form, "No", 9), "40");
    EXPECT_EQ(cell(form, "Name", 9).toStdString(), paramTables().multiSections[40].name);
}

TEST(frmSection, NoBoxSearchesFromTheNumberTypedAndBlanksTheRest)
{
    frmSection form(1);
    search(form, "txtNo", "80");
    QScrollBar* bar = child<QScrollBar>(form, "vsbSectNo");
    EXPECT_EQ(bar->maximum(), 1);
    EXPECT_EQ(bar->pageStep(), 1);
    EXPECT_EQ(cell(form, "No", 0), "80");
    EXPECT_EQ(cell(form, "No", 3), "83");
    for (int line = 4; line < 10; ++line) {
        EXPECT_EQ(cell(form, "No", line), "");
        EXPECT_EQ(cell(form, "Name", line), "");
    }
}

TEST(frmSection, NameBoxFindsTheModels)
{
    frmSection form(1);
    search(form, "txtName", "MODEL ");
    ASSERT_FALSE(form.hits().empty());
    for (int line = 0; line < 10; ++line) {
        const QString name = cell(form, "Name", line);
        if (!name.isEmpty()) {
            EXPECT_TRUE(name.contains("Model")) << name.toStdString();
        }
    }
    EXPECT_TRUE(form.searched());
    QTest::mouseClick(child<QPushButton>(form, "cmdAll"), Qt::LeftButton);
    EXPECT_FALSE(form.searched());
    EXPECT_TRUE(child<QLineEdit>(form, "txtName")->text().isEmpty());
    EXPECT_EQ(child<QScrollBar>(form, "vsbSectNo")->maximum(), 74);
}

TEST(frmSection, LastParamBoxMatchesByEquality)
{
    frmSection form(1);
    const SectionDef& def = paramTables().patchSections[5];
    search(form, "txtLastParam", QString::number(def.lastParam));
    ASSERT_FALSE(form.hits().empty());
    for (int row : form.hits())
        EXPECT_EQ(paramTables().patchSections[row].lastParam, def.lastParam);
}

TEST(frmSection, LauncherRetitlesTheOpenList)
{
    showSectionList(2, nullptr);
    frmSection* form = openForm<frmSection>();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), "Multi: Sections");
    showSectionList(1, nullptr);
    EXPECT_EQ(openForm<frmSection>(), form);
    EXPECT_EQ(form->windowTitle(), "Patch: Sections");
    EXPECT_EQ(child<QScrollBar>(*form, "vsbSectNo")->maximum(), 74);
    closeForm(form);
}

TEST(frmSubSection, PatchSubSectionsListOneHundredThirtyEightRows)
{
    frmSubSection form(1);
    EXPECT_EQ(form.windowTitle(), "Patch: SubSections");
    QScrollBar* bar = child<QScrollBar>(form, "vsbSubSectNo");
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 138 - 9);
    bar->setValue(100);
    const SubSectionDef& def = paramTables().patchSubsections[100];
    EXPECT_EQ(cell(form, "No", 0), "100");
    EXPECT_EQ(cell(form, "ID", 0), QString::number(def.id));
    EXPECT_EQ(cell(form, "Sect", 0), QString::number(def.sect));
    EXPECT_EQ(cell(form, "FirstParam", 0), QString::number(def.firstParam));
    EXPECT_EQ(cell(form, "LastParam", 0), QString::number(def.lastParam));
}

TEST(frmSubSection, MultiSubSectionsListFiftyOneRows)
{
    frmSubSection form(2);
    EXPECT_EQ(form.windowTitle(), "Multi: SubSections");
    EXPECT_EQ(child<QScrollBar>(form, "vsbSubSectNo")->maximum(), 51 - 9);
    EXPECT_NE(form.findChild<QLineEdit*>("txtSect"), nullptr);
    EXPECT_NE(form.findChild<QLabel*>("lblSect_9"), nullptr);
}

TEST(frmSubSection, SectBoxListsTheSubsectionsOfOneSection)
{
    frmSubSection form(1);
    const int sect = paramTables().patchSubsections[20].sect;
    search(form, "txtSect", QString::number(sect));
    ASSERT_FALSE(form.hits().empty());
    for (int row : form.hits())
        EXPECT_EQ(paramTables().patchSubsections[row].sect, sect);
    EXPECT_EQ(cell(form, "Sect", 0), QString::number(sect));
}

TEST(frmSubSection, IdBoxSearchesFromTheNumberTyped)
{
    frmSubSection form(2);
    const int id = paramTables().multiSubsections[45].id;
    search(form, "txtID", QString::number(id));
    ASSERT_FALSE(form.hits().empty());
    for (int row : form.hits())
        EXPECT_GE(paramTables().multiSubsections[row].id, id);
    EXPECT_EQ(form.hits().back(), 51);
}

TEST(frmSubSection, LauncherOpensTheListOfItsArgument)
{
    showSubSectionList(2, nullptr);
    frmSubSection* form = openForm<frmSubSection>();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), "Multi: SubSections");
    closeForm(form);
}

}  // namespace
}  // namespace quillon
