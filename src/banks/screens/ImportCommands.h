#pragma once

class QMainWindow;

namespace quillon {

class AppModel;
class BankScreen;

// Wires Import to Bank (mnuImportToBank of the File menu, which opens
// frmImport) and Extract to Files (mnuExtractToFiles of the selection's
// popup) into the main window.
void wireImportCommands(QMainWindow& window, AppModel& model, BankScreen& bankScreen);

}  // namespace quillon
