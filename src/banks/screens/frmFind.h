#pragma once

#include <QDialog>

class QComboBox;

namespace quillon {

class AppModel;
struct FindScope;

// Find Patches: a search by name or by type over the bank on show, whose
// hits become its selection; the bank view repaints behind the form after
// each search. It opens as it was left, with the last ten texts searched.
class frmFind : public QDialog {
    Q_OBJECT
public:
    frmFind(AppModel& model, QWidget* parent = nullptr);

private:
    void findText(FindScope scope);
    void findType(FindScope scope);
    void fillTypeNames();
    void fillRecentTexts();

    AppModel& model_;
    QComboBox* textOptions_ = nullptr;
    QComboBox* text_ = nullptr;
    QComboBox* typeOptions_ = nullptr;
    QComboBox* typeName_ = nullptr;
};

// mnuFind's form, modal over the bank view.
void showFindForm(AppModel& model, QWidget* parent);

}  // namespace quillon
