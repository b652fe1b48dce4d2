#pragma once

#include "output/CheckResults.h"

#include <QDialog>

namespace quillon {

// What frmCheck and frmCompare share: the lines of cmbDifferences and the
// statement lblCompareStatement in the colours that tell whether anything
// was found.
class DifferencesForm : public QDialog {
    Q_OBJECT
protected:
    DifferencesForm(const InspectionView& view, QWidget* parent);
};

}  // namespace quillon
