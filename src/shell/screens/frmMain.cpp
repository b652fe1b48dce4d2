#include "shell/screens/frmMain.h"

#include "autosend/screens/frmAutoSend.h"
#include "banks/BankExchange.h"
#include "banks/BankFind.h"
#include "banks/BankMenus.h"
#include "banks/BankProperties.h"
#include "banks/BankReorder.h"
#include "banks/BankSort.h"
#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "banks/PutInBank.h"
#include "banks/TakeFromBank.h"
#include "banks/screens/BankScreen.h"
#include "banks/screens/RandomSpreadMenu.h"
#include "banks/screens/RemapMenus.h"
#include "banks/screens/frmFind.h"
#include "banks/screens/ImportCommands.h"
#include "editors/BankMerge.h"
#include "editors/CopySpecial.h"
#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/ModSources.h"
#include "editors/SubsectionActions.h"
#include "editors/screens/ArpEditorScreen.h"
#include "editors/screens/EditorScreens.h"
#include "editors/screens/EditorWidgets.h"
#include "editors/screens/frmMod.h"
#include "files/OpenSysExFile.h"
#include "files/SettingsStore.h"
#include "files/SysExSaving.h"
#include "files/UserFiles.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/SendFlows.h"
#include "midi/TestTone.h"
#include "midi/screens/TransferProgress.h"
#include "model/Kind.h"
#include "output/CheckResults.h"
#include "output/CompareLast.h"
#include "output/ListCommands.h"
#include "output/Printing.h"
#include "shell/AppModel.h"
#include "shell/screens/QuillonApplication.h"
#include "shell/StartUp.h"
#include "shell/screens/FormLaunchers.h"
#include "shell/screens/MenuLayout.h"
#include "shell/screens/ModelSignals.h"
#include "shell/screens/QtHost.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScrollArea>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

#include <exception>
#include <string>

// The toolbar's own icons are compiled into the program; a static library
// must ask for its resources by name.
static void initToolbarIcons()
{
    Q_INIT_RESOURCE(quillon_icons);
}

namespace quillon {

namespace {

constexpr int kRecentSlots = 10;

// The window's size is the user's, kept from one start to the next. The
// first start fits a screen of 1366 by 768 with its title bar and a panel.
constexpr const char* kWindowSection = "Window";
constexpr int kStartWidth = 1240;
constexpr int kStartHeight = 660;

int storedSize(const SettingsStore& store, const char* key, int fallback)
{
    try {
        const int value = std::stoi(store.read(kWindowSection, key));
        return value >= 200 && value <= 20000 ? value : fallback;
    } catch (const std::exception&) {
        return fallback;
    }
}

// The labels of fraLoaded, in their order on the screen.
struct LabelPlace {
    int kind;
    const char* name;
};
// The labels of the multi banks stand in the multi screen's fraMultiBank;
// lblArpBank shows with the pattern screen only.
constexpr LabelPlace kLabelPlaces[] = {
    {kPatch, "lblLoaded_1"},    {kPatchBankA, "lblLoaded_2"}, {kPatchBankB, "lblLoaded_3"},
    {kMultiset, "lblLoaded_4"}, {kPattern, "lblLoaded_5"},    {kArpBank, "lblArpBank"},
};

}  // namespace

frmMain::frmMain(AppModel& model, QtHost& host, QWidget* parent) : QMainWindow(parent), model_(model), host_(host)
{
    setObjectName("frmMain");
    setWindowTitle("Quillon");
    buildMenus();
    buildToolbar();
    buildCentre();
    host_.setParent(this);
    host_.setStatusLines(status_, message_);
    host_.setHelp([](int context) { doHelpShowThis(context); });
    wireCommands();
    signals_ = new ModelSignals(model_, this);
    connect(signals_, &ModelSignals::changed, this, &frmMain::refresh);
    refresh(~0u);
    resize(storedSize(model_.store(), "Width", kStartWidth), storedSize(model_.store(), "Height", kStartHeight));
}

frmMain::~frmMain() = default;

QAction* frmMain::action(const QString& name) const { return findChild<QAction*>(name); }

void frmMain::buildMenus()
{
    for (const MenuLayout& layout : mainMenuLayout()) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(layout.caption.data(), layout.caption.size()));
        menu->setObjectName(QString::fromUtf8(layout.name.data(), layout.name.size()));
        for (const MenuItemLayout& item : layout.items) {
            if (item.name.empty()) {
                menu->addSeparator();
                continue;
            }
            if (item.name == kRecentFilesMarker) {
                QAction* separator = menu->addSeparator();
                separator->setObjectName("mnuFileArray_0");
                for (int slot = 1; slot <= kRecentSlots; ++slot) {
                    QAction* recent = menu->addAction(QString());
                    recent->setObjectName(QString("mnuFileArray_%1").arg(slot));
                    connect(recent, &QAction::triggered, this, [this, slot] { openFile(slot); });
                }
                continue;
            }
            QAction* action = menu->addAction(QString::fromUtf8(item.caption.data(), item.caption.size()));
            action->setObjectName(QString::fromUtf8(item.name.data(), item.name.size()));
            // Enabled only once the command behind it exists.
            action->setEnabled(false);
        }
    }
}

void frmMain::buildToolbar()
{
    initToolbarIcons();
    toolbar_ = addToolBar("tlbMain");
    toolbar_->setObjectName("tlbMain");
    toolbar_->setMovable(false);
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolbar_->setIconSize(QSize(24, 24));
    for (const ToolKeyLayout& key : toolbarLayout()) {
        const QString name = QString::fromUtf8(key.key.data(), key.key.size());
        // The theme's icon where the platform has one, else our own drawing.
        const QIcon own(":/icons/" + name + ".png");
        const QString theme = QString::fromUtf8(key.themeIcon.data(), key.themeIcon.size());
        const QIcon icon = theme.isEmpty() ? own : QIcon::fromTheme(theme, own);
        QAction* action = toolbar_->addAction(icon, QString::fromUtf8(key.text.data(), key.text.size()));
        action->setObjectName("tlbMain_" + name);
        action->setToolTip(QString::fromUtf8(key.tooltip.data(), key.tooltip.size()));
        action->setEnabled(false);
        // The merge tools carry the next group and subsection beside them.
        if (name == "bpg")
            addSelectionTools("txtBankPatchSelGroup", "updBankPatchSelGroup", 0, 8);
        if (name == "bps")
            addSelectionTools("txtBankPatchSelSS", "updBankPatchSelSS", 1, 50);
    }
}

void frmMain::addSelectionTools(const char* boxName, const char* spinName, int min, int max)
{
    auto* box = new QLineEdit(toolbar_);
    box->setObjectName(boxName);
    box->setReadOnly(true);
    box->setMaximumWidth(110);
    selectionTools_[boxName] = toolbar_->addWidget(box);
    auto* spin = new QSpinBox(toolbar_);
    spin->setObjectName(spinName);
    spin->setRange(min, max);
    spin->setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    spin->setMaximumWidth(20);
    selectionTools_[spinName] = toolbar_->addWidget(spin);
    // The spin arrows choose what the next merge by key takes; a double
    // click on the box starts again from the first group or subsection.
    box->installEventFilter(this);
    const bool group = min == 0;
    connect(spin, &QSpinBox::valueChanged, this, [this, group](int value) {
        if (group)
            setBankGroupNext(model_, value);
        else
            setBankSubsectionNext(model_, value);
    });
}

void frmMain::buildCentre()
{
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);

    auto* loaded = new QFrame(centre);
    loaded->setObjectName("fraLoaded");
    auto* row = new QHBoxLayout(loaded);
    row->setContentsMargins(4, 4, 4, 4);
    for (const LabelPlace& place : kLabelPlaces) {
        auto* label = new QLabel(loaded);
        label->setObjectName(place.name);
        label->setAlignment(Qt::AlignCenter);
        label->installEventFilter(this);
        row->addWidget(label);
        loadedLabels_[place.kind] = label;
    }
    column->addWidget(loaded);

    // The editing screens of the patch, banks, multisets and patterns stand
    // here.
    auto* screens = new QFrame(centre);
    screens->setObjectName("fraScreens");
    screens->setFrameShape(QFrame::StyledPanel);
    auto* hint = new QLabel("Open a .syx file with File > Open, or click a name above to choose what to work on.",
                            screens);
    hint->setObjectName("lblScreensHint");
    hint->setAlignment(Qt::AlignCenter);
    hint->setEnabled(false);
    auto* screensLayout = new QVBoxLayout(screens);
    screensLayout->setContentsMargins(0, 0, 0, 0);
    screensLayout->addWidget(hint);
    // The patch and multi screens, and the pattern screen; the bank screens
    // still show the hint.
    auto* editor = new EditorScreens(model_, screens);
    editor->hide();
    screensLayout->addWidget(editor, 1);
    auto* pattern = new ArpEditorScreen(model_, screens);
    pattern->hide();
    screensLayout->addWidget(pattern, 1);
    bankScreen_ = new BankScreen(model_, screens);
    bankScreen_->hide();
    screensLayout->addWidget(bankScreen_, 1);
    // The screens scroll when they need more room than the window gives
    // them: the window keeps the size the user chose and never grows by
    // itself.
    auto* scroll = new QScrollArea(centre);
    scroll->setObjectName("scrScreens");
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(screens);
    column->addWidget(scroll, 1);

    status_ = new QLabel(centre);
    status_->setObjectName("lblStatus");
    message_ = new QLabel(centre);
    message_->setObjectName("lblMessage");
    auto* lines = new QHBoxLayout;
    lines->addWidget(status_, 1);
    lines->addWidget(message_, 1);
    lines->addWidget(new TransferProgress(model_, centre));
    column->addLayout(lines);
    setCentralWidget(centre);
}

void frmMain::setCommand(const QString& name, std::function<void()> command)
{
    QuillonApplication::wireCommand(action(name), this, std::move(command));
}

void frmMain::wireCommands()
{
    AppModel& m = model_;
    setCommand("mnuNew", [&m] { newItem(m); });
    setCommand("mnuOpen", [this] { openFile(0); });
    setCommand("tlbMain_open", [this] { openFile(0); });
    setCommand("mnuSave", [this] { saveFile(1); });
    setCommand("mnuSaveAs", [this] { saveFile(2); });
    setCommand("tlbMain_save", [this] { saveFile(2); });
    setCommand("mnuSaveList", [&m] { mnuSaveList(m); });
    setCommand("mnuExit", [this] { close(); });
    setCommand("mnuDumpParamList", [&m] { mnuDumpParamList(m); });
    setCommand("mnuPrint", [&m] { mnuPrint(m); });
    setCommand("mnuCheckLoad", [this] {
        if (mnuCheckLoad(model_))
            showCheckForm(model_, this);
    });
    setCommand("mnuCompareLast", [this] {
        if (mnuCompareLast(model_))
            showCompareForm(model_, this);
    });
    setCommand("mnuCreateUserPatchFile", [&m] { mnuCreateUserPatchFile(m); });
    setCommand("mnuResetUserPatchFile", [&m] { mnuResetUserPatchFile(m); });
    setCommand("mnuCreateUserMultiFile", [&m] { mnuCreateUserMultiFile(m); });
    setCommand("mnuResetUserMultiFile", [&m] { mnuResetUserMultiFile(m); });
    for (int tab = 1; tab <= 7; ++tab)
        setCommand(QString("mnuSettingsArray_%1").arg(tab), [this, tab] { showSettingsDialog(model_, tab, this); });
    setCommand("mnuParameters", [this] { showParamBrowser(this); });
    setCommand("mnuSectionsPatch", [this] { showSectionList(1, this); });
    setCommand("mnuSectionsMulti", [this] { showSectionList(2, this); });
    setCommand("mnuSubSectionsPatch", [this] { showSubSectionList(1, this); });
    setCommand("mnuSubSectionsMulti", [this] { showSubSectionList(2, this); });
    // The frame mode and section picking keys, with their two menu items.
    for (const char* key : {"spst", "spsg", "flr", "fla", "fra"}) {
        action(QString("tlbMain_") + key)->setCheckable(true);
        setCommand(QString("tlbMain_") + key, [&m, key] { clickFrameToolbarButton(m, key); });
    }
    for (const char* name : {"mnuShowPatchSectionsTree", "mnuShowPatchSectionsGroup"})
        action(name)->setCheckable(true);
    setCommand("mnuShowPatchSectionsTree", [&m] { clickFrameToolbarButton(m, "spst"); });
    setCommand("mnuShowPatchSectionsGroup", [&m] { clickFrameToolbarButton(m, "spsg"); });
    setCommand("mnuPatchModSources", [this] { showModSources(model_, this); });
    setCommand("tlbMain_mod", [this] { showModSources(model_, this); });
    auto* tidy = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), this);
    tidy->setObjectName("shortcutTidyUpPatch");
    connect(tidy, &QShortcut::activated, this, [&m] { tidyUpPatch(m); });
    for (const SubsectionItem& item : subsectionItems()) {
        const int number = item.number;
        setCommand(QString::fromUtf8(item.name.data(), static_cast<qsizetype>(item.name.size())),
                   [&m, number] { subsectionCommand(m, number); });
    }
    setCommand("mnuCopySpecial", [&m] { copySpecial(m); });
    setCommand("mnuPasteSpecial", [&m] { pasteSpecial(m); });
    setCommand("tlbMain_bpg", [&m] { mergeNextGroup(m); });
    setCommand("tlbMain_bps", [&m] { mergeNextSubsection(m); });
    setCommand("mnuHelpContents", [] { doHelpShowThis(1); });
    setCommand("mnuHelpIndex", [] { doHelpShowThis(2); });
    setCommand("mnuHelpFAQ", [&m] { openFaqPage(m); });
    setCommand("mnuAbout", [this] { showAboutDialog(this); });
    wireMidiCommands();
    wireBankCommands();
    wireRemapCommands(*this, m);
}

void frmMain::wireBankCommands()
{
    AppModel& m = model_;
    setCommand("mnuPutPatchInBank", [&m] { mnuPutPatchInBank(m); });
    setCommand("mnuPutMultiInBank", [&m] { mnuPutMultiInBank(m); });
    setCommand("mnuPutArpInBank", [&m] { mnuPutArpInBank(m); });
    setCommand("tlbMain_put", [&m] { putCurrentInBank(m); });
    setCommand("mnuUndoBank", [&m] { mnuUndoBank(m); });
    setCommand("mnuFind", [this] {
        if (mnuFind(model_))
            showFindForm(model_, this);
    });
    // The commands of the popups act on the patch in element 1 of the
    // selection sequence, which a right click sets.
    const auto element1 = [&m] { return static_cast<int>(m.banks.selection(m.bankTarget).selectionSequence[1]); };
    bankScreen_->setCommand("mnuUndoBankPopup1", [&m] { undoBankOperation(m); });
    bankScreen_->setCommand("mnuUndoBankPopup2", [&m] { undoBankOperation(m); });
    bankScreen_->setCommand("mnuPutInEditor", [&m, element1] { takePatchFromBank(m, element1()); });
    bankScreen_->setCommand("mnuProperties", [&m, element1] { showBankPatchProperties(m, element1()); });
    bankScreen_->setCommand("mnuSelectAll", [&m] { mnuSelectAll(m); });
    bankScreen_->setCommand("mnuDeselectAll", [&m] { mnuDeselectAll(m); });
    for (const MergeMenuItem& item : mergeMenuItems())
        bankScreen_->setCommand(QString::fromUtf8(item.name.data(), static_cast<qsizetype>(item.name.size())),
                                [&m, code = item.code] { mergeFromBankPopup(m, code); });
    for (const char* item : {"mnuAutoSend1", "mnuAutoSend2"})
        bankScreen_->setCommand(item, [this] { showAutoSendForm(model_, model_.bankTarget, this); });
    wireReorderCommands();
    wireRandomSpreadCommands(model_, action("mnuRandomBank"), action("mnuSpreadBank"), this);
    wireImportCommands(*this, model_, *bankScreen_);
}

void frmMain::wireReorderCommands()
{
    AppModel& m = model_;
    setCommand("mnuSwapBanks", [&m] { swapBanks(m); });
    for (int key = 1; key <= 10; ++key)
        setCommand(QString("mnuSortBankArray_%1").arg(key - 1), [&m, key] { mnuSortBankArray(m, key); });
    for (const char* popup : {"1", "2"}) {
        bankScreen_->setCommand(QString("mnuSwapFirst") + popup, [&m] { swapSelection(m, 1); });
        bankScreen_->setCommand(QString("mnuSwapLast") + popup, [&m] { swapSelection(m, 2); });
        bankScreen_->setCommand(QString("mnuInsertFirst") + popup, [&m] { insertSelection(m, 1); });
        bankScreen_->setCommand(QString("mnuInsertLast") + popup, [&m] { insertSelection(m, 2); });
    }
    bankScreen_->setCommand("mnuExportImport1", [&m] { mnuExportImport1(m); });
    bankScreen_->setCommand("mnuExportImport2", [&m] { mnuExportImport2(m); });
    bankScreen_->setCommand("mnuRotatePlusPlus", [&m] { rotateSelection(m, 2); });
    bankScreen_->setCommand("mnuRotatePlus", [&m] { rotateSelection(m, 1); });
    bankScreen_->setCommand("mnuRotateMinus", [&m] { rotateSelection(m, -1); });
    bankScreen_->setCommand("mnuRotateMinusMinus", [&m] { rotateSelection(m, -2); });
    for (int key = 1; key <= 10; ++key)
        bankScreen_->setCommand(QString("mnuSortArray_%1").arg(key), [&m, key] { sortSelection(m, key); });
}

void frmMain::wireMidiCommands()
{
    AppModel& m = model_;
    setCommand("mnuListen", [&m] { mnuListen(m); });
    setCommand("tlbMain_listen", [&m] { mnuListen(m); });
    setCommand("mnuRequest", [this] { showRequestDialog(model_, this); });
    setCommand("tlbMain_request", [this] { showRequestDialog(model_, this); });
    setCommand("mnuSendActive", [&m] { doSendActive(m); });
    setCommand("tlbMain_send", [&m] { doSendActive(m); });
    setCommand("mnuTestTone", [&m] { mnuTestTone(m); });
    setCommand("tlbMain_test", [&m] { mnuTestTone(m); });
    setCommand("mnuResetInput", [&m] { mnuResetInput(m); });
    setCommand("mnuResetOutput", [&m] { mnuResetOutput(m); });
}

// A Listen or request left open, or a send still playing, ends before the
// files are touched: resetGlobalMIDIAll comes first in Open, Save and Save As.
void frmMain::saveFile(int how)
{
    resetGlobalMIDIAll(model_);
    saveCommand(model_, how);
}

void frmMain::openFile(int recentIndex)
{
    resetGlobalMIDIAll(model_);
    OpenFileSurroundings surroundings;
    surroundings.showMiscDialog = [this](AppModel& model, MiscDialogState& state) {
        showMiscDialog(model, state, this);
    };
    doOpenSysExFile(model_, recentIndex, surroundings);
}

void frmMain::refresh(unsigned changes)
{
    if (changes & (kLabelsChanged | kScreenChanged))
        refreshLabels();
    if (changes & (kSendMenuChanged | kLabelsChanged))
        refreshSendMenu();
    if (changes & kRecentFilesChanged)
        refreshRecentFiles();
    if (changes & kTransferChanged)
        findChild<TransferProgress*>("prgTransfer")->mirror();
    if (changes & kScreenChanged) {
        const bool editing = model_.mode == 1 || model_.mode == 4;
        const bool pattern = model_.mode == kPattern;
        findChild<EditorScreens*>("fraEditor")->setVisible(editing);
        findChild<ArpEditorScreen*>("fraArpEditor")->setVisible(pattern);
        bankScreen_->setVisible(model_.layout.parts.fraBank);
        findChild<QWidget*>("lblScreensHint")->setVisible(!editing && !pattern && !model_.layout.parts.fraBank);
    }
    bankScreen_->refresh(changes);
    if (changes & kUndoMenuChanged) {
        const UndoMenuItemState& undo = model_.bankView.undoItems[kMnuUndoBank];
        action("mnuUndoBank")->setText(QString::fromStdString(undo.caption));
        action("mnuUndoBank")->setEnabled(undo.enabled);
    }
    if (changes & (kBankViewChanged | kScreenChanged))
        refreshSelectionTools();
    if (changes & (kNavigationChanged | kScreenChanged)) {
        for (const char* key : {"spst", "spsg", "flr", "fla", "fra"})
            action(QString("tlbMain_") + key)->setChecked(toolbarButtonDown(model_, key));
        action("mnuShowPatchSectionsTree")->setChecked(toolbarButtonDown(model_, "spst"));
        action("mnuShowPatchSectionsGroup")->setChecked(toolbarButtonDown(model_, "spsg"));
        const ScreenMenus& menus = model_.layout.menus;
        findChild<QMenu*>("mnuSubsection")->menuAction()->setEnabled(menus.mnuSubsection);
        action("mnuCopySpecial")->setEnabled(menus.mnuCopySpecial);
        action("mnuPasteSpecial")->setEnabled(menus.mnuPasteSpecial);
    }
}

void frmMain::refreshSelectionTools()
{
    // The merge tools need exactly one patch selected in the bank on show.
    const bool shown = model_.bankView.selectionToolsShown &&
                       (model_.mode == kPatchBankA || model_.mode == kPatchBankB);
    for (const char* name : {"tlbMain_bpg", "tlbMain_bps"})
        action(name)->setVisible(shown);
    for (const char* name : {"txtBankPatchSelGroup", "updBankPatchSelGroup", "txtBankPatchSelSS", "updBankPatchSelSS"}) {
        QAction* holder = selectionTools_.at(name);
        holder->setVisible(shown);
        holder->setEnabled(shown);
    }
    showMergeNext("txtBankPatchSelGroup", "updBankPatchSelGroup", bankPatchSelGroupText(model_),
                  model_.merge.BankGroupNext);
    showMergeNext("txtBankPatchSelSS", "updBankPatchSelSS", bankPatchSelSSText(model_),
                  model_.merge.BankSubsectionNext);
}

void frmMain::showMergeNext(const char* boxName, const char* spinName, const std::string& text, int value)
{
    findChild<QLineEdit*>(boxName)->setText(QString::fromStdString(text));
    auto* spin = findChild<QSpinBox*>(spinName);
    const QSignalBlocker quiet(spin);
    spin->setValue(value);
}

void frmMain::refreshLabels()
{
    for (const auto& [kind, label] : loadedLabels_) {
        const LoadedLabel& state = model_.labels.label(kind);
        label->setText(QString::fromStdString(state.text));
        restyle(label, loadedLabelStyle(state.scheme, state.highlighted, label));
    }
    loadedLabels_.at(kArpBank)->setVisible(model_.mode == kPattern);
}

void frmMain::refreshSendMenu()
{
    QAction* send = action("mnuSendActive");
    send->setText(QString::fromStdString(model_.sendMenuCaption));
    // Send and Test Tone need something loaded to send.
    send->setEnabled(model_.sendMenuEnabled);
    action("mnuTestTone")->setEnabled(model_.sendMenuEnabled);
}

void frmMain::refreshRecentFiles()
{
    action("mnuFileArray_0")->setVisible(model_.recentSeparatorVisible);
    for (int slot = 1; slot <= kRecentSlots; ++slot) {
        QAction* recent = action(QString("mnuFileArray_%1").arg(slot));
        const std::string& caption = model_.recentMenu[slot];
        recent->setText(QString::fromStdString(caption));
        recent->setVisible(!caption.empty());
    }
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        if (watched->objectName() == "txtBankPatchSelGroup") {
            doubleClickBankPatchSelGroup(model_);
            return true;
        }
        if (watched->objectName() == "txtBankPatchSelSS") {
            doubleClickBankPatchSelSS(model_);
            return true;
        }
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        for (const auto& [kind, label] : loadedLabels_) {
            if (label != watched)
                continue;
            const bool right = static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
            if (clickLoadedLabel(model_, kind, right) != 0)
                showNameDialog(model_, this);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (!confirmClose(model_)) {
        event->ignore();
        return;
    }
    shutDown(model_);
    model_.store().write(kWindowSection, "Width", std::to_string(width()));
    model_.store().write(kWindowSection, "Height", std::to_string(height()));
    event->accept();
    // Every other form of the program goes with the main form.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this)
            window->close();
    }
}

}  // namespace quillon
