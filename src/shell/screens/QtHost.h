#pragma once

#include "shell/Host.h"

#include <functional>

class QLabel;
class QWidget;

namespace quillon {

// The Host of the program: the toolkit's message box and file dialogs, the
// two status lines of frmMain and the wait cursor. A box's Help button opens
// the help at the box's context and leaves the box open.
class QtHost : public Host {
public:
    void setParent(QWidget* parent) { parent_ = parent; }
    void setStatusLines(QLabel* status, QLabel* message);
    void setHelp(std::function<void(int)> showHelp) { showHelp_ = std::move(showHelp); }

    Answer showMessage(const MessageRequest& request) override;
    Answer askStep(const std::string& title, const std::string& text, int style) override;
    std::optional<std::string> chooseOpenFile(const FileDialogRequest& request) override;
    std::optional<std::string> chooseSaveFile(const FileDialogRequest& request) override;
    void setStatus(const std::string& text, StatusColour colour) override;
    void setMessage(const std::string& text) override;
    void setMessage(const std::string& text, StatusColour colour) override;
    void setBusy(bool busy) override;
    int chooseBankPlace(const BankDialogRequest& request) override;

private:
    QWidget* parent_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* message_ = nullptr;
    std::function<void(int)> showHelp_;
};

// "SysEx files (*.syx)|*.syx" as the toolkit writes a filter.
std::string toolkitFilter(const std::string& filter);

// The extension a filter's one pattern names ("syx" of "...|*.syx"), or
// empty when it names no single one.
std::string filterSuffix(const std::string& filter);

}  // namespace quillon
