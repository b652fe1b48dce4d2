#pragma once

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QStackedWidget;
class QTabBar;
class QWidget;

namespace quillon {

class AppModel;
struct GenerationSettings;

// The help topic of the settings dialog.
inline constexpr int kSettingsHelpContext = 300;

// The settings dialog: a tab strip over one frame per tab, Startup, MIDI,
// Test tone, File names, Random, Spread and Misc. Every control acts at once
// on the settings in memory; there is no cancel, and the settings are
// written to their file when the program ends. Random and Spread share one
// frame, which shows and changes the block of the tab chosen.
class frmSettings : public QDialog {
    Q_OBJECT

public:
    // Opens on tab 1 to 7; any other number opens on the tab last shown.
    frmSettings(AppModel& model, int tab, QWidget* parent = nullptr);

    // The tab shown last, 1 to 7, remembered from one opening to the next
    // while the program runs.
    static int activeTab();

private:
    // A check box of the Random and Spread frame and the flag it stands for.
    struct FlagBox {
        QCheckBox* box;
        std::function<bool&(GenerationSettings&)> flag;
    };
    // A percentage box of that frame and its number.
    struct PercentBox {
        QLineEdit* box;
        int GenerationSettings::*value;
    };

    QWidget* addFrame(int tab);
    void buildStartup(QWidget* frame);
    void buildMidi(QWidget* frame);
    void buildTestTone(QWidget* frame);
    void buildFileNames(QWidget* frame);
    void buildGeneration(QWidget* frame);
    void buildMisc(QWidget* frame);
    QGroupBox* addGroup(QWidget* frame, const char* name, const char* caption);
    QCheckBox* addFlag(QGroupBox* group, const QString& name, const QString& caption,
                       std::function<bool&(GenerationSettings&)> flag);
    QLineEdit* addPercent(QWidget* group, const char* name, int GenerationSettings::*value);

    QComboBox* addCombo(QWidget* frame, QGridLayout* grid, int row, const char* name, const char* caption);
    QLineEdit* addText(QWidget* frame, QGridLayout* grid, int row, const QString& name, const QString& caption);
    void onIndex(QComboBox* combo, std::function<void(int)> store);

    void showTab(int tab);
    void loadGeneration();
    void settingsChanged();

    AppModel& model_;
    QTabBar* tabSettings_ = nullptr;
    QStackedWidget* frames_ = nullptr;
    std::vector<QWidget*> frameOfTab_;
    // The block the shared frame shows: Random or Spread.
    GenerationSettings* generation_ = nullptr;
    std::vector<FlagBox> flagBoxes_;
    std::vector<PercentBox> percentBoxes_;
    QComboBox* cmbModInt_ = nullptr;
    // Set while the controls are filled from the settings, so that filling
    // them is not taken for a change.
    bool loading_ = false;
};

}  // namespace quillon
