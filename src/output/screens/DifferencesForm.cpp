#include "output/screens/DifferencesForm.h"

#include "editors/ColourSchemes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

QColor colourOf(int rgb, SystemColour system, const QPalette& palette)
{
    switch (system) {
    case SystemColour::ButtonFace: return palette.color(QPalette::Button);
    case SystemColour::ButtonText: return palette.color(QPalette::ButtonText);
    case SystemColour::Highlight: return palette.color(QPalette::Highlight);
    case SystemColour::HighlightText: return palette.color(QPalette::HighlightedText);
    case SystemColour::None: break;
    }
    return QColor(QRgb(rgb));
}

// Colours a label by one of the program's colour schemes; a number that is
// no scheme leaves it as it is.
void setLabelColours(QLabel* label, int scheme)
{
    const ColourScheme* colours = colourScheme(scheme);
    if (colours == nullptr)
        return;
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, colourOf(colours->background, colours->backgroundSystem, palette));
    palette.setColor(QPalette::WindowText, colourOf(colours->text, colours->textSystem, palette));
    label->setAutoFillBackground(true);
    label->setPalette(palette);
}

}  // namespace

DifferencesForm::DifferencesForm(const InspectionView& view, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QString::fromStdString(view.caption));
    auto* outer = new QVBoxLayout(this);

    auto* statement = new QLabel(QString::fromStdString(view.statement), this);
    statement->setObjectName("lblCompareStatement");
    statement->setMargin(6);
    statement->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    statement->setWordWrap(true);
    setLabelColours(statement, view.statementScheme);
    outer->addWidget(statement);

    auto* differences = new QListWidget(this);
    differences->setObjectName("cmbDifferences");
    for (const std::string& line : view.differences)
        differences->addItem(QString::fromStdString(line));
    differences->setMinimumSize(560, 220);
    outer->addWidget(differences, 1);

    auto* buttons = new QHBoxLayout;
    auto* cmdDone = new QPushButton("Done", this);
    cmdDone->setObjectName("cmdDone");
    cmdDone->setDefault(true);
    buttons->addStretch(1);
    buttons->addWidget(cmdDone);
    outer->addLayout(buttons);
    connect(cmdDone, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace quillon
