#pragma once

class QWidget;

namespace quillon {

class AppModel;
struct MiscDialogState;

// How frmMain opens the program's other forms. Each is written beside its
// form; frmMain knows only these calls.

// frmSettings on the tab of a mnuSettingsArray item (1 Startup ... 7 Misc).
void showSettingsDialog(AppModel& model, int tab, QWidget* parent);

// The help window at a help context number; the Help buttons, the boxes'
// Help and mnuHelpContents (1) and mnuHelpIndex (2) come here.
void doHelpShowThis(int context);

// frmAbout.
void showAboutDialog(QWidget* parent);

// mnuHelpFAQ: the page of the questions a Z1 owner asks, in the help window.
void openFaqPage(AppModel& model);

// frmName for the item of the current Mode.
void showNameDialog(AppModel& model, QWidget* parent);

// The table browser: frmParam, and frmSection / frmSubSection with 1 for the
// patch and 2 for the multi tables.
void showParamBrowser(QWidget* parent);
void showSectionList(int which, QWidget* parent);
void showSubSectionList(int which, QWidget* parent);

// frmMisc, modal, for a file or dump of several kinds.
void showMiscDialog(AppModel& model, MiscDialogState& state, QWidget* parent);

// mnuRequest: frmRequest, modal, after the status lines are cleared.
void showRequestDialog(AppModel& model, QWidget* parent);

// frmCheck and frmCompare for the item of the current Mode.
void showCheckForm(AppModel& model, QWidget* parent);
void showCompareForm(AppModel& model, QWidget* parent);

}  // namespace quillon
