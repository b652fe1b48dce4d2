#include "files/screens/frmMisc.h"

#include "files/AtomicFile.h"
#include "files/OpenSysExFile.h"
#include "model/Kind.h"
#include "shell/screens/FormLaunchers.h"
#include "shell/AppModel.h"
#include "shell/screens/QtHost.h"
#include "support/DialogAnswers.h"
#include "support/FakeMidiPorts.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace quillon {
namespace {

constexpr std::size_t kAllDataImageBytes = 160064;

template <typename T>
T* child(QWidget& form, const QString& name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

// An unpacked All Data image whose bytes count up, so that each bank's part
// can be told from the others.
ByteImage countingImage(std::size_t n)
{
    ByteImage image(n);
    for (std::size_t i = 0; i < n; ++i)
        image[i] = static_cast<std::uint8_t>((i + 1) % 101);
    return image;
}

// Clicks a check box on its box, at the left, where a click ticks it.
void tick(QWidget& form, const char* name)
{
    auto* box = child<QCheckBox>(form, name);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
}

ByteImage part(const ByteImage& image, int first, int last)
{
    return ByteImage(image.begin() + (first - 1), image.begin() + last);
}

SysExMessage allDataMessage(const ByteImage& image)
{
    const std::array<std::uint8_t, 2> subHeader{0, 0};
    return buildSysExMessage(0x50, subHeader, 1, packBytes(image));
}

// The model holding an All Data dump as the instrument sent it (mode 1) or
// a file brought it (mode 3), and the dialog's state for it.
struct frmMiscForm : ::testing::Test {
    void holdDump(const SysExMessage& message, int mode)
    {
        model.misc.message.assign(message.begin(), message.end());
        model.misc.mode = mode;
        state = misc::doSetup(model);
    }

    TestModel t;
    AppModel& model = t.model;
    MiscDialogState state;
};

TEST_F(frmMiscForm, AllDataShowsItsFiveBanksInTheFrame)
{
    holdDump(allDataMessage(ByteImage(kAllDataImageBytes, 0)), 1);
    frmMisc form(model, state);
    EXPECT_EQ(form.windowTitle(), "All Data");
    auto* frame = child<QGroupBox>(form, "fraExtract");
    EXPECT_TRUE(frame->isVisibleTo(&form));
    EXPECT_EQ(frame->title(), "Load into Editor");
    const char* captions[] = {"Bank A", "Bank B", "Multibank A", "Multibank B", "Pattern bank"};
    for (int i = 0; i < 5; ++i) {
        auto* box = child<QCheckBox>(form, QString("chkType_%1").arg(i));
        EXPECT_EQ(box->text(), captions[i]);
        EXPECT_TRUE(box->isVisibleTo(&form)) << i;
        EXPECT_FALSE(box->isChecked());
    }
    EXPECT_EQ(child<QPushButton>(form, "cmdLoad")->text(), "Extract and Load Selected");
    EXPECT_EQ(child<QPushButton>(form, "cmdSaveSend")->text(), "Save All Data");
    EXPECT_TRUE(child<QPushButton>(form, "cmdSaveSend")->isEnabled());
    EXPECT_EQ(child<QPushButton>(form, "cmdDone")->text(), "Done");
    EXPECT_EQ(child<QPushButton>(form, "cmdHelp")->text(), "Help");
}

TEST_F(frmMiscForm, ExtractAndLoadSelectedFillsTheTickedBanks)
{
    const ByteImage image = countingImage(kAllDataImageBytes);
    holdDump(allDataMessage(image), 1);
    const ByteImage bankBBefore = model.banks.image(kPatchBankB);
    frmMisc form(model, state);
    form.show();
    tick(form, "chkType_0");
    tick(form, "chkType_2");
    tick(form, "chkType_4");
    EXPECT_TRUE(state.typeTicked[0]);
    QTest::mouseClick(child<QPushButton>(form, "cmdLoad"), Qt::LeftButton);

    EXPECT_EQ(model.banks.image(kPatchBankA), part(image, 1, 73728));
    EXPECT_EQ(model.banks.image(kMultiBankA), part(image, 147457, 150784));
    EXPECT_EQ(model.banks.image(kArpBank), part(image, 154113, 159232));
    EXPECT_EQ(model.banks.image(kPatchBankB), bankBBefore);
    EXPECT_TRUE(model.flags.loaded[kPatchBankA]);
    EXPECT_TRUE(model.flags.loaded[kMultiBankA]);
    EXPECT_TRUE(model.flags.loaded[kArpBank]);
    EXPECT_FALSE(model.flags.loaded[kPatchBankB]);
    EXPECT_TRUE(t.host.allShown());
}

TEST_F(frmMiscForm, NothingTickedLoadsNothing)
{
    holdDump(allDataMessage(countingImage(kAllDataImageBytes)), 1);
    frmMisc form(model, state);
    form.show();
    QTest::mouseClick(child<QPushButton>(form, "cmdLoad"), Qt::LeftButton);
    for (int kind : {kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB, kArpBank})
        EXPECT_FALSE(model.flags.loaded[kind]) << kind;
}

TEST_F(frmMiscForm, GlobalDumpOffersOnlyToBeSavedOrSent)
{
    SysExMessage message(483, 0);
    message.front() = 0xF0;
    message.back() = 0xF7;
    holdDump(message, 1);
    frmMisc form(model, state);
    EXPECT_EQ(form.windowTitle(), "Global");
    EXPECT_FALSE(child<QGroupBox>(form, "fraExtract")->isVisibleTo(&form));
    EXPECT_EQ(child<QPushButton>(form, "cmdSaveSend")->text(), "Save Global");
}

TEST_F(frmMiscForm, SaveWritesTheDumpAndClosesTheDialog)
{
    holdDump(allDataMessage(countingImage(kAllDataImageBytes)), 1);
    model.workFolder = t.folder.path().string();
    const std::string path = (t.folder / "dump.syx").string();
    t.host.expectSaveFile("Save All Data (sent from Z1)", path);
    bool wasVisible = true;
    whenNextModalOpens([&wasVisible](QWidget* modal) {
        auto* button = modal->findChild<QPushButton*>("cmdSaveSend");
        ASSERT_NE(button, nullptr);
        button->click();
        wasVisible = modal->isVisible();
    });
    showMiscDialog(model, state, nullptr);
    EXPECT_FALSE(wasVisible);
    EXPECT_TRUE(t.host.allShown());
    std::vector<std::uint8_t> written;
    ASSERT_TRUE(readWholeFile(path, written));
    EXPECT_EQ(written, model.misc.message);
}

TEST(frmMiscSend, SendHidesTheDialogBeforeItsQuestionAndTheDialogStaysClosedAfterNo)
{
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    // The ports outlive the model, which lets go of them when it ends.
    FakeMidiOutput output;
    FakeMidiInput input;
    ManualTimer timer;
    AppModel model{host, store, folder.path()};
    model.midi.attach(&output, &input, &timer);
    model.misc.message = allDataMessage(countingImage(kAllDataImageBytes));
    model.misc.mode = 3;
    MiscDialogState state = misc::doSetup(model);

    bool visibleAtTheQuestion = true;
    bool openAfterNo = false;
    QString question;
    QWidget* dialog = nullptr;
    whenNextModalOpens([&](QWidget* modal) {
        dialog = modal;
        whenNextModalOpens([&](QWidget* box) {
            visibleAtTheQuestion = dialog->isVisible();
            auto* message = qobject_cast<QMessageBox*>(box);
            ASSERT_NE(message, nullptr);
            question = message->text();
            message->button(QMessageBox::No)->click();
            // Once the question is answered: is the dialog back? It is
            // closed here so that the test goes on either way.
            QTimer::singleShot(0, dialog, [&] {
                openAfterNo = dialog->isVisible();
                dialog->close();
            });
        });
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdSaveSend"), Qt::LeftButton);
    });
    showMiscDialog(model, state, nullptr);
    EXPECT_FALSE(question.isEmpty());
    EXPECT_FALSE(visibleAtTheQuestion);
    EXPECT_FALSE(openAfterNo);
    EXPECT_TRUE(output.queued.empty());
}

TEST_F(frmMiscForm, AllDataFileOpensTheDialogAndLoadsTheTickedBanks)
{
    const ByteImage image = countingImage(kAllDataImageBytes);
    const std::string path = (t.folder / "All Data.syx").string();
    ASSERT_TRUE(writeFileAtomically(path, allDataMessage(image)));
    t.host.expectOpenFile("Open Z1 SysEx file", path);

    QString caption;
    QString sendCaption;
    whenNextModalOpens([&](QWidget* modal) {
        caption = modal->windowTitle();
        sendCaption = modal->findChild<QPushButton*>("cmdSaveSend")->text();
        modal->findChild<QCheckBox*>("chkType_1")->setChecked(true);
        modal->findChild<QCheckBox*>("chkType_3")->setChecked(true);
        modal->findChild<QPushButton*>("cmdLoad")->click();
        modal->findChild<QPushButton*>("cmdDone")->click();
    });
    OpenFileSurroundings surroundings;
    surroundings.musicFolder = t.folder.path();
    surroundings.showMiscDialog = [](AppModel& m, MiscDialogState& s) { showMiscDialog(m, s, nullptr); };
    doOpenSysExFile(model, 0, surroundings);

    EXPECT_EQ(caption, "All Data");
    EXPECT_EQ(sendCaption, "Send All Data to Z1");
    EXPECT_EQ(model.banks.image(kPatchBankB), part(image, 73729, 147456));
    EXPECT_EQ(model.banks.image(kMultiBankB), part(image, 150785, 154112));
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    EXPECT_TRUE(model.flags.loaded[kMultiBankB]);
    EXPECT_FALSE(model.flags.loaded[kPatchBankA]);
    EXPECT_TRUE(t.host.allShown());
}

}  // namespace
}  // namespace quillon
