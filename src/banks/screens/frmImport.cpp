#include "banks/screens/frmImport.h"

#include "files/UserFolders.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/screens/FormButtons.h"
#include "shell/screens/FormLaunchers.h"
#include "shell/screens/QuillonApplication.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <filesystem>

namespace quillon {

namespace {

QString toQString(const std::string& text) { return QString::fromStdString(text); }

std::filesystem::path toPath(const QString& text) { return std::filesystem::path(text.toStdWString()); }

// Where the form opens: the folder files were last loaded from, else the
// user's Music folder, else the home folder.
QString startFolder(const AppModel& model)
{
    for (const std::filesystem::path& candidate :
         {std::filesystem::path(model.workFolder), userMusicFolder(), userHomeFolder()}) {
        std::error_code error;
        if (!candidate.empty() && std::filesystem::is_directory(candidate, error))
            return QString::fromStdWString(candidate.wstring());
    }
    return QDir::homePath();
}

}  // namespace

frmImport::frmImport(AppModel& model, QWidget* parent) : QDialog(parent), model_(model)
{
    setObjectName("frmImport");
    setWindowTitle("Import to Bank");

    drives_ = new QComboBox(this);
    drives_->setObjectName("Drive1");
    for (const QFileInfo& drive : QDir::drives())
        drives_->addItem(QDir::toNativeSeparators(drive.absolutePath()), drive.absolutePath());
    folderLabel_ = new QLabel(this);
    folderLabel_->setObjectName("lblFolder");
    folderLabel_->setWordWrap(true);
    dirs_ = new QListWidget(this);
    dirs_->setObjectName("Dir1");
    files_ = new QListWidget(this);
    files_->setObjectName("File1");
    files_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    selectedCount_ = new QLabel(toQString(filesSelectedText(0)), this);
    selectedCount_->setObjectName("lblNumPatchesSelected");

    auto* left = new QVBoxLayout;
    left->addWidget(drives_);
    left->addWidget(folderLabel_);
    left->addWidget(dirs_, 1);
    left->addWidget(files_, 2);
    left->addWidget(selectedCount_);

    auto* bankBox = new QGroupBox("Import into", this);
    bankBox->setObjectName("fraImportBank");
    optA_ = new QRadioButton("Bank A", bankBox);
    optA_->setObjectName("OptA");
    optB_ = new QRadioButton("Bank B", bankBox);
    optB_->setObjectName("OptB");
    startPatch_ = new QComboBox(bankBox);
    startPatch_->setObjectName("cmbStartPatch");
    startPatch_->setMaxVisibleItems(20);
    auto* bankRow = new QHBoxLayout;
    bankRow->addWidget(optA_);
    bankRow->addWidget(optB_);
    auto* bankColumn = new QVBoxLayout(bankBox);
    bankColumn->addLayout(bankRow);
    bankColumn->addWidget(new QLabel("Starting at", bankBox));
    bankColumn->addWidget(startPatch_);

    import_ = namedButton("cmdImport", "Import", this);
    stop_ = namedButton("cmdStop", "Stop", this);
    clear_ = namedButton("cmdClear", "Clear", this);
    done_ = namedButton("cmdDone", "Done", this);
    QPushButton* help = namedButton("cmdHelp", "Help", this);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {import_, stop_, clear_, done_, help})
        buttons->addWidget(b);
    results_ = new QListWidget(this);
    results_->setObjectName("lstResults");

    auto* right = new QVBoxLayout;
    right->addWidget(bankBox);
    right->addLayout(buttons);
    right->addWidget(results_, 1);

    auto* columns = new QHBoxLayout(this);
    columns->addLayout(left, 1);
    columns->addLayout(right, 2);
    resize(760, 480);

    const ImportBankChoice choice = importBankChoice(model_);
    optA_->setEnabled(choice.aEnabled);
    optB_->setEnabled(choice.bEnabled);
    import_->setEnabled(choice.preselected != 0);
    stop_->setEnabled(false);
    chooseBank(choice.preselected != 0 ? choice.preselected : kPatchBankA);

    connect(optA_, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            chooseBank(kPatchBankA);
    });
    connect(optB_, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            chooseBank(kPatchBankB);
    });
    connect(drives_, &QComboBox::activated, this,
            [this](int index) { showFolder(drives_->itemData(index).toString()); });
    connect(dirs_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        showFolder(QDir(folder_).absoluteFilePath(item->text()));
    });
    connect(files_, &QListWidget::itemSelectionChanged, this, &frmImport::countSelected);
    connect(import_, &QPushButton::clicked, this, [this] { QuillonApplication::runCommand([this] { runImport(); }); });
    connect(stop_, &QPushButton::clicked, this, [this] { state_.stopRequested = true; });
    connect(clear_, &QPushButton::clicked, this, [this] {
        state_.results.clear();
        showResults();
    });
    connect(done_, &QPushButton::clicked, this, &QDialog::accept);
    connect(help, &QPushButton::clicked, this, [] { doHelpShowThis(kImportHelpContext); });

    showFolder(startFolder(model_));
}

void frmImport::showFolder(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists())
        return;
    folder_ = QDir::cleanPath(dir.absolutePath());
    folderLabel_->setText(QDir::toNativeSeparators(folder_));
    dirs_->clear();
    if (!dir.isRoot())
        dirs_->addItem("..");
    dirs_->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
    files_->clear();
    for (const std::filesystem::path& file : importFilesInFolder(toPath(folder_)))
        files_->addItem(QString::fromStdWString(file.filename().wstring()));
    countSelected();
}

void frmImport::chooseBank(int bank)
{
    state_.targetBank = bank;
    {
        const QSignalBlocker quietA(optA_);
        const QSignalBlocker quietB(optB_);
        optA_->setChecked(bank == kPatchBankA);
        optB_->setChecked(bank == kPatchBankB);
    }
    const int row = std::max(0, startPatch_->currentIndex());
    startPatch_->clear();
    for (const std::string& text : startPatchRows(model_, bank))
        startPatch_->addItem(toQString(text));
    startPatch_->setCurrentIndex(row);
}

void frmImport::countSelected()
{
    selectedCount_->setText(toQString(filesSelectedText(static_cast<int>(files_->selectedItems().size()))));
}

void frmImport::showResults()
{
    // Lines are only ever added during a run, so the list grows at its end.
    if (results_->count() > static_cast<int>(state_.results.size()))
        results_->clear();
    for (auto i = static_cast<std::size_t>(results_->count()); i < state_.results.size(); ++i)
        results_->addItem(toQString(state_.results[i]));
    results_->scrollToBottom();
}

void frmImport::setRunning(bool running)
{
    import_->setEnabled(!running);
    clear_->setEnabled(!running);
    done_->setEnabled(!running);
    stop_->setEnabled(running);
}

void frmImport::runImport()
{
    std::vector<std::filesystem::path> files;
    const std::filesystem::path folder = toPath(folder_);
    for (int row = 0; row < files_->count(); ++row) {
        if (files_->item(row)->isSelected())
            files.push_back(folder / toPath(files_->item(row)->text()));
    }
    setRunning(true);
    try {
        importFiles(model_, state_, files, startPatch_->currentIndex(), [this] {
            showResults();
            QApplication::processEvents();
        });
    } catch (...) {
        // The buttons come back whatever ended the run; the failure goes on
        // to the program's box.
        state_.running = false;
        setRunning(false);
        throw;
    }
    setRunning(false);
    showResults();
    // The names of the places written.
    chooseBank(state_.targetBank);
}

void frmImport::done(int result)
{
    if (state_.running)
        return;
    if (!finished_) {
        finished_ = true;
        finishImport(model_, state_, toPath(folder_).string());
    }
    QDialog::done(result);
}

void showImportForm(AppModel& model, QWidget* parent)
{
    frmImport form(model, parent);
    form.exec();
}

}  // namespace quillon
