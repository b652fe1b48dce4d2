#include "shell/screens/frmSettings.h"

#include "files/SuggestedNames.h"
#include "midi/MidiGlobal.h"
#include "midi/SysExRate.h"
#include "midi/screens/MidiSystemAccess.h"
#include "model/ValueDecoder.h"
#include "shell/AppModel.h"
#include "shell/SettingsRules.h"
#include "shell/screens/FormLaunchers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quillon {

namespace {

// The tab shown last, kept from one opening of the dialog to the next.
int rememberedTab = kSettingsTabStartup;

constexpr const char* kTabCaptions[kSettingsTabs] = {"Startup", "MIDI",   "Test tone", "File names",
                                                     "Random",  "Spread", "Misc"};

constexpr const char* kPrefixCaptions[] = {"Patch", "Bank A/B", "Multi", "Arpeggiator", "Other"};

constexpr const char* kLegendLines[] = {"p = Patch Category", "u = User Group",   "o = OSC1 setting",
                                        "f =   FX1 setting",  "l = Link Arpeggio", "a = Bank A/B and number"};

constexpr int kChannels = 16;
constexpr int kToneValues = 128;  // velocities and key numbers
// The modulation sources that cmbModInt offers, by their number.
constexpr int kModulationSourceTable = 14;
constexpr int kModulationSources = 49;
constexpr int kKeyNameTable = 31;

QString text(const std::string& s) { return QString::fromStdString(s); }

void setIndexQuietly(QComboBox* combo, int index)
{
    combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
}

}  // namespace

frmSettings::frmSettings(AppModel& model, int tab, QWidget* parent) : QDialog(parent), model_(model)
{
    setObjectName("frmSettings");
    setWindowTitle("Quillon Settings");

    tabSettings_ = new QTabBar(this);
    tabSettings_->setObjectName("tabSettings");
    tabSettings_->setExpanding(false);
    frames_ = new QStackedWidget(this);
    frameOfTab_.assign(kSettingsTabs + 1, nullptr);

    loading_ = true;
    for (int t = 1; t <= kSettingsTabs; ++t)
        tabSettings_->addTab(kTabCaptions[t - 1]);
    buildStartup(addFrame(kSettingsTabStartup));
    buildMidi(addFrame(kSettingsTabMidi));
    buildTestTone(addFrame(kSettingsTabTestTone));
    buildFileNames(addFrame(kSettingsTabFileNames));
    // Random and Spread show their blocks in the same frame.
    QWidget* generation = addFrame(kSettingsTabRandom);
    frameOfTab_[kSettingsTabSpread] = generation;
    buildGeneration(generation);
    buildMisc(addFrame(kSettingsTabMisc));
    loading_ = false;

    auto* cmdHelp = new QPushButton("Help", this);
    cmdHelp->setObjectName("cmdHelp");
    connect(cmdHelp, &QPushButton::clicked, this, [] { doHelpShowThis(kSettingsHelpContext); });
    auto* cmdDone = new QPushButton("Done", this);
    cmdDone->setObjectName("cmdDone");
    cmdDone->setDefault(true);
    connect(cmdDone, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdHelp);
    buttons->addStretch(1);
    buttons->addWidget(cmdDone);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(0);
    column->addWidget(tabSettings_);
    column->addWidget(frames_, 1);
    column->addSpacing(8);
    column->addLayout(buttons);

    if (tab >= 1 && tab <= kSettingsTabs)
        rememberedTab = tab;
    showTab(rememberedTab);
    connect(tabSettings_, &QTabBar::currentChanged, this, [this](int index) { showTab(index + 1); });
}

int frmSettings::activeTab() { return rememberedTab; }

QWidget* frmSettings::addFrame(int tab)
{
    auto* frame = new QFrame(frames_);
    frame->setObjectName(QString("fraSettings_%1").arg(tab));
    frame->setFrameShape(QFrame::StyledPanel);
    frames_->addWidget(frame);
    frameOfTab_[static_cast<std::size_t>(tab)] = frame;
    return frame;
}

void frmSettings::showTab(int tab)
{
    rememberedTab = tab;
    tabSettings_->setCurrentIndex(tab - 1);
    frames_->setCurrentWidget(frameOfTab_[static_cast<std::size_t>(tab)]);
    if (GenerationSettings* block = generationSettingsOfTab(model_.settings, tab)) {
        generation_ = block;
        loadGeneration();
    }
}

void frmSettings::settingsChanged() { model_.changed(kSettingsChanged); }

void frmSettings::onIndex(QComboBox* combo, std::function<void(int)> store)
{
    connect(combo, &QComboBox::currentIndexChanged, this, [this, store = std::move(store)](int index) {
        if (loading_ || index < 0)
            return;
        store(index);
    });
}

QComboBox* frmSettings::addCombo(QWidget* frame, QGridLayout* grid, int row, const char* name, const char* caption)
{
    auto* combo = new QComboBox(frame);
    combo->setObjectName(name);
    combo->setMinimumContentsLength(4);
    auto* label = new QLabel(caption, frame);
    label->setObjectName(QString("lbl") + (name + 3));
    label->setBuddy(combo);
    grid->addWidget(label, row, 0);
    grid->addWidget(combo, row, 1, Qt::AlignLeft);
    return combo;
}

QLineEdit* frmSettings::addText(QWidget* frame, QGridLayout* grid, int row, const QString& name,
                                const QString& caption)
{
    auto* box = new QLineEdit(frame);
    box->setObjectName(name);
    auto* label = new QLabel(caption, frame);
    label->setObjectName("lbl" + name.mid(3));
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    return box;
}

void frmSettings::buildStartup(QWidget* frame)
{
    SystemSettings& s = model_.settings;
    auto* grid = new QGridLayout(frame);
    QComboBox* recent = addCombo(frame, grid, 0, "cmbRecentFiles", "Show recent files");
    for (int n = 0; n <= kRecentMenuSlots; ++n)
        recent->addItem(QString::number(n));
    setIndexQuietly(recent, s.recentFilesMax);
    onIndex(recent, [this](int n) { chooseRecentFilesMax(model_, n); });

    QComboBox* userFile = addCombo(frame, grid, 1, "cmbUserFileNum", "User file num");
    for (int n = 0; n < kUserPatchFiles; ++n)
        userFile->addItem(QString::number(n));
    setIndexQuietly(userFile, s.userFileNumber);
    onIndex(userFile, [this](int n) { chooseUserPatchFile(model_, n); });

    QLineEdit* help = addText(frame, grid, 2, "txtHelpFolder", "Help folder");
    help->setText(text(s.helpFolder));
    help->setMinimumWidth(260);
    connect(help, &QLineEdit::textChanged, this, [this](const QString& folder) {
        model_.settings.helpFolder = folder.toStdString();
        settingsChanged();
    });
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
}

void frmSettings::buildMidi(QWidget* frame)
{
    SystemSettings& s = model_.settings;
    auto* column = new QVBoxLayout(frame);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    const auto addPort = [&](const char* frameName, const char* caption, const char* deviceName,
                             const char* deviceCaption, const std::vector<std::string>& names, int* device,
                             void (*chooseDevice)(AppModel&, int), const char* channelName,
                             const char* channelCaption, int* channel) {
        auto* group = new QGroupBox(caption, frame);
        group->setObjectName(frameName);
        auto* grid = new QGridLayout(group);
        // The devices of the MIDI system by their numbers; a choice opens
        // the device at once.
        QComboBox* devices = addCombo(group, grid, 0, deviceName, deviceCaption);
        devices->setMinimumContentsLength(16);
        for (const std::string& name : names)
            devices->addItem(text(name));
        setIndexQuietly(devices, *device);
        onIndex(devices, [this, chooseDevice](int n) { chooseDevice(model_, n); });
        QComboBox* channels = addCombo(group, grid, 1, channelName, channelCaption);
        for (int c = 1; c <= kChannels; ++c)
            channels->addItem(QString::number(c));
        setIndexQuietly(channels, *channel - 1);
        onIndex(channels, [this, channel](int n) {
            *channel = n + 1;
            settingsChanged();
        });
        row->addWidget(group, 1);
    };
    addPort("fraInput", "Input", "cmbInpDev", "Input device", midiInputDevices(), &s.inputDevice,
            chooseMidiInputDevice, "cmbInpCha", "Input channel", &s.inputChannel);
    addPort("fraOutput", "Output", "cmbOutDev", "Output device", midiOutputDevices(), &s.outputDevice,
            chooseMidiOutputDevice, "cmbOutCha", "Output channel", &s.outputChannel);

    // How fast SysEx goes out, kept in the per-user store rather than the
    // settings file.
    auto* pace = new QGridLayout;
    column->addLayout(pace);
    column->addStretch(1);
    QComboBox* rate = addCombo(frame, pace, 0, "cmbSysExRate", "SysEx rate (bytes per second)");
    const std::span<const int> rates = sysExRateChoices();
    for (int r : rates)
        rate->addItem(text(sysExRateCaption(r)));
    setIndexQuietly(rate, static_cast<int>(std::find(rates.begin(), rates.end(), storedSysExRate(model_.store())) -
                                           rates.begin()));
    onIndex(rate, [this, rates](int n) { chooseSysExRate(model_, rates[static_cast<std::size_t>(n)]); });
}

void frmSettings::buildTestTone(QWidget* frame)
{
    SystemSettings& s = model_.settings;
    auto* grid = new QGridLayout(frame);
    QComboBox* length = addCombo(frame, grid, 0, "cmbToneLen", "Tone length (secs)");
    for (int tenths = 0; tenths <= kToneLengthTenths; ++tenths)
        length->addItem(text(toneLengthCaption(tenths)));
    QComboBox* velocity = addCombo(frame, grid, 1, "cmbToneVel", "Tone velocity (0 -127)");
    QComboBox* pitch = addCombo(frame, grid, 2, "cmbTonePitch", "Tone pitch");
    for (int n = 0; n < kToneValues; ++n) {
        velocity->addItem(QString::number(n));
        pitch->addItem(text(decodeValue(kKeyNameTable, n)));
    }
    for (auto [combo, value] : {std::pair{length, &s.toneLength}, std::pair{velocity, &s.toneVelocity},
                                std::pair{pitch, &s.tonePitch}}) {
        setIndexQuietly(combo, *value);
        // A structured binding cannot be captured by every compiler in use.
        int* setting = value;
        onIndex(combo, [this, setting](int n) {
            *setting = n;
            settingsChanged();
        });
    }
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(3, 1);
}

void frmSettings::buildFileNames(QWidget* frame)
{
    SystemSettings& s = model_.settings;
    auto* grid = new QGridLayout(frame);
    auto* suggest = new QCheckBox("Suggest file names", frame);
    suggest->setObjectName("chkSuggestNames");
    suggest->setChecked(s.suggestNames);
    connect(suggest, &QCheckBox::toggled, this, [this](bool on) {
        model_.settings.suggestNames = on;
        settingsChanged();
    });
    grid->addWidget(suggest, 0, 0, 1, 2);

    QComboBox* format = addCombo(frame, grid, 1, "cmbFormat", "Patch name format");
    for (const char* caption : patchFileNameFormats())
        format->addItem(caption);
    setIndexQuietly(format, s.fileNameFormat);
    onIndex(format, [this](int n) {
        model_.settings.fileNameFormat = n;
        settingsChanged();
    });

    auto* prefixes = new QLabel("File name prefixes:", frame);
    prefixes->setObjectName("lblPrefixes");
    grid->addWidget(prefixes, 2, 0, 1, 2);
    for (int k = 1; k <= 5; ++k) {
        QLineEdit* prefix = addText(frame, grid, 2 + k, QString("txtPrefix_%1").arg(k), kPrefixCaptions[k - 1]);
        prefix->setText(text(s.prefixes[static_cast<std::size_t>(k)]));
        connect(prefix, &QLineEdit::textChanged, this, [this, k](const QString& value) {
            model_.settings.prefixes[static_cast<std::size_t>(k)] = value.toStdString();
            settingsChanged();
        });
    }

    auto* legend = new QVBoxLayout;
    for (int n = 0; n < static_cast<int>(std::size(kLegendLines)); ++n) {
        auto* line = new QLabel(kLegendLines[n], frame);
        line->setObjectName(QString("lblLegend_%1").arg(n));
        legend->addWidget(line);
    }
    legend->addStretch(1);
    grid->addLayout(legend, 1, 2, 7, 1);
    grid->setColumnMinimumWidth(2, 160);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(8, 1);
}

void frmSettings::buildMisc(QWidget* frame)
{
    SystemSettings& s = model_.settings;
    auto* column = new QVBoxLayout(frame);
    auto* graph = new QCheckBox("Graphic EG display", frame);
    graph->setObjectName("chkGraphEnv");
    graph->setChecked(s.graphicEnvelope);
    connect(graph, &QCheckBox::toggled, this, [this](bool on) {
        model_.settings.graphicEnvelope = on;
        settingsChanged();
    });
    column->addWidget(graph);

    auto* selected = new QRadioButton("Show selected modulators", frame);
    selected->setObjectName("optModShow_0");
    auto* all = new QRadioButton("Show all modulators", frame);
    all->setObjectName("optModShow_1");
    (s.modulationShow ? selected : all)->setChecked(true);
    connect(selected, &QRadioButton::toggled, this, [this](bool on) {
        model_.settings.modulationShow = on;
        settingsChanged();
    });
    column->addSpacing(8);
    column->addWidget(selected);
    column->addWidget(all);
    column->addStretch(1);
}

QGroupBox* frmSettings::addGroup(QWidget* frame, const char* name, const char* caption)
{
    auto* group = new QGroupBox(caption, frame);
    group->setObjectName(name);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(2);
    return group;
}

QCheckBox* frmSettings::addFlag(QGroupBox* group, const QString& name, const QString& caption,
                                std::function<bool&(GenerationSettings&)> flag)
{
    auto* box = new QCheckBox(caption, group);
    box->setObjectName(name);
    auto* grid = static_cast<QGridLayout*>(group->layout());
    grid->addWidget(box, grid->rowCount(), 0, 1, 2);
    connect(box, &QCheckBox::toggled, this, [this, flag](bool on) {
        if (loading_ || generation_ == nullptr)
            return;
        flag(*generation_) = on;
        settingsChanged();
    });
    flagBoxes_.push_back({box, std::move(flag)});
    return box;
}

QLineEdit* frmSettings::addPercent(QWidget* group, const char* name, int GenerationSettings::*value)
{
    auto* box = new QLineEdit(group);
    box->setObjectName(name);
    box->setMaxLength(4);
    box->setMaximumWidth(fontMetrics().horizontalAdvance("00000") + 12);
    box->setValidator(new QRegularExpressionValidator(QRegularExpression("-?[0-9]*"), box));
    connect(box, &QLineEdit::textChanged, this, [this, box, value](const QString& typed) {
        if (loading_ || generation_ == nullptr)
            return;
        const QString limited = text(limitedPercentageText(typed.toStdString()));
        if (limited != typed) {
            box->setText(limited);
            return;
        }
        (*generation_).*value = percentageOfText(typed.toStdString());
        settingsChanged();
    });
    auto* grid = static_cast<QGridLayout*>(group->layout());
    const int row = grid->rowCount();
    grid->addWidget(box, row, 0);
    grid->addWidget(new QLabel("%", group), row, 1);
    percentBoxes_.push_back({box, value});
    return box;
}

void frmSettings::buildGeneration(QWidget* frame)
{
    using G = GenerationSettings;
    auto* grid = new QGridLayout(frame);
    const auto addArray = [this](QGroupBox* group, const char* name, std::initializer_list<const char*> captions,
                                 auto member) {
        int n = 0;
        for (const char* caption : captions) {
            addFlag(group, QString("%1_%2").arg(name).arg(n), caption,
                    [member, n](G& g) -> bool& { return (g.*member)[static_cast<std::size_t>(n)]; });
            ++n;
        }
    };

    QGroupBox* eg = addGroup(frame, "fraEG", "EG");
    addArray(eg, "chkEG", {"EG1", "EG2", "EG3", "EG4"}, &G::eg);
    addPercent(eg, "txtVarEG", &G::varEG);
    QGroupBox* lfo = addGroup(frame, "fraLFO", "LFO");
    addArray(lfo, "chkLFO", {"LFO1", "LFO2", "LFO3", "LFO4"}, &G::lfo);
    addPercent(lfo, "txtVarLFO", &G::varLFO);
    QGroupBox* osc = addGroup(frame, "fraOSC", "OSC");
    addArray(osc, "chkOSC", {"OSC1", "OSC2", "Sub OSC", "Noise"}, &G::osc);
    addPercent(osc, "txtVarOSC", &G::varOSC);
    QGroupBox* sono = addGroup(frame, "fraSONO", "Sub OSC Noise");
    addPercent(sono, "txtVarSONO", &G::varSONO);
    QGroupBox* fx = addGroup(frame, "fraFX", "FX");
    addArray(fx, "chkFX", {"FX1", "FX2"}, &G::fx);
    addPercent(fx, "txtVarFX", &G::varFX);
    QGroupBox* filt = addGroup(frame, "fraFilt", "Filt");
    addArray(filt, "chkFilt", {"Filter 1", "Filter 2"}, &G::filter);
    addPercent(filt, "txtVarFilt", &G::varFilter);

    QGroupBox* modInt = addGroup(frame, "fraModInt", "Mod Intensity");
    addFlag(modInt, "chkModInt", "Vary", [](G& g) -> bool& { return g.modInt; });
    addPercent(modInt, "txtVarModInt", &G::varModInt);
    cmbModInt_ = new QComboBox(modInt);
    cmbModInt_->setObjectName("cmbModInt");
    for (int n = 0; n < kModulationSources; ++n)
        cmbModInt_->addItem(text(decodeValue(kModulationSourceTable, n)));
    auto* modIntGrid = static_cast<QGridLayout*>(modInt->layout());
    modIntGrid->addWidget(cmbModInt_, modIntGrid->rowCount(), 0, 1, 2);
    onIndex(cmbModInt_, [this](int n) {
        if (generation_ == nullptr)
            return;
        generation_->modIntChoice = n;
        settingsChanged();
    });
    QGroupBox* aeg = addGroup(frame, "fraAEG", "AmpEG");
    addFlag(aeg, "chkAEG", "Vary", [](G& g) -> bool& { return g.ampEG; });
    addPercent(aeg, "txtVarAEG", &G::varAmpEG);
    QGroupBox* css = addGroup(frame, "fraCSS", "CSS");
    addFlag(css, "chkCSS", "Vary", [](G& g) -> bool& { return g.css; });
    addPercent(css, "txtVarCSS", &G::varCSS);

    QGroupBox* const places[3][3] = {{eg, lfo, osc}, {fx, filt, sono}, {modInt, aeg, css}};
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) {
            auto* groupGrid = static_cast<QGridLayout*>(places[r][c]->layout());
            groupGrid->setRowStretch(groupGrid->rowCount(), 1);
            groupGrid->setColumnStretch(2, 1);
            grid->addWidget(places[r][c], r, c);
        }
    }

    auto* buttons = new QHBoxLayout;
    const auto addButton = [&](const char* name, const char* caption, void (*act)(G&)) {
        auto* button = new QPushButton(caption, frame);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, [this, act] {
            if (generation_ == nullptr)
                return;
            act(*generation_);
            loadGeneration();
            settingsChanged();
        });
        buttons->addWidget(button);
    };
    addButton("cmdSelectMain", "Select main", selectMainGroups);
    addButton("cmdSelectAll", "Select all", selectAllGroups);
    addButton("cmdSelectNone", "Select none", selectNoGroups);
    buttons->addStretch(1);
    addButton("cmdResetAll", "Reset %", resetAllPercentages);
    auto* resetBox = new QWidget(frame);
    (new QGridLayout(resetBox))->setContentsMargins(0, 0, 0, 0);
    addPercent(resetBox, "txtResetAll", &G::resetAll);
    buttons->addWidget(resetBox);
    grid->addLayout(buttons, 3, 0, 1, 3);
    grid->setRowStretch(4, 1);
}

void frmSettings::loadGeneration()
{
    if (generation_ == nullptr)
        return;
    loading_ = true;
    for (FlagBox& f : flagBoxes_)
        f.box->setChecked(f.flag(*generation_));
    for (const PercentBox& p : percentBoxes_)
        p.box->setText(QString::number((*generation_).*p.value));
    setIndexQuietly(cmbModInt_, generation_->modIntChoice);
    loading_ = false;
}

void showSettingsDialog(AppModel& model, int tab, QWidget* parent)
{
    frmSettings form(model, tab, parent);
    form.exec();
}

}  // namespace quillon
