#pragma once

#include "banks/ImportFiles.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace quillon {

class AppModel;

// Import to Bank: a folder's .syx files chosen in File1 go into consecutive
// places of bank A or B from the place chosen in cmbStartPatch, with a
// result line for each file. Drive1 and Dir1 choose the folder (Dir1 lists
// ".." and the folder's own folders; a double click goes there). Done shows
// the bank that the files went into.
class frmImport : public QDialog {
    Q_OBJECT
public:
    frmImport(AppModel& model, QWidget* parent = nullptr);

    // The folder whose files File1 lists.
    QString folder() const { return folder_; }

    // Lists a folder in Dir1 and File1.
    void showFolder(const QString& folder);

    void done(int result) override;

private:
    void chooseBank(int bank);
    void countSelected();
    void runImport();
    void showResults();
    void setRunning(bool running);

    AppModel& model_;
    ImportState state_;
    QString folder_;
    bool finished_ = false;
    QComboBox* drives_ = nullptr;
    QListWidget* dirs_ = nullptr;
    QLabel* folderLabel_ = nullptr;
    QListWidget* files_ = nullptr;
    QLabel* selectedCount_ = nullptr;
    QRadioButton* optA_ = nullptr;
    QRadioButton* optB_ = nullptr;
    QComboBox* startPatch_ = nullptr;
    QListWidget* results_ = nullptr;
    QPushButton* import_ = nullptr;
    QPushButton* stop_ = nullptr;
    QPushButton* clear_ = nullptr;
    QPushButton* done_ = nullptr;
};

// mnuImportToBank's form, modal over the main window.
void showImportForm(AppModel& model, QWidget* parent);

}  // namespace quillon
