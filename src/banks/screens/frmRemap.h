#pragma once

#include "banks/RemapShow.h"

#include <QDialog>

class QPlainTextEdit;

namespace quillon {

class AppModel;

// Show Remap: every old patch beside the new patch the remap sends it to,
// in four orders, and a button that copies the list (or the part of it
// selected) to the clipboard.
class frmRemap : public QDialog {
    Q_OBJECT
public:
    frmRemap(RemapShowData data, QWidget* parent = nullptr);

private:
    void showOrder(int order);
    void copyText();

    RemapShowData data_;
    QPlainTextEdit* txtShowRemap_ = nullptr;
};

// mnuShowRemap: the form, modal, when the remap and its four lists can be
// read; otherwise the box that says why, and no form.
void showRemapForm(AppModel& model, QWidget* parent);

}  // namespace quillon
