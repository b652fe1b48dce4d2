#pragma once

#include "shell/Host.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

// A Host for tests: every dialog the test expects is queued with its answer,
// in order. A dialog that was not expected, or that differs from the one
// expected, fails the test with its title and text. Status lines and the
// hourglass are recorded.
class ScriptedHost : public Host {
public:
    ~ScriptedHost() override;

    // A message box with this title (and, when given, this text) is expected
    // and answered.
    ScriptedHost& expectMessage(std::string title, Answer answer = Answer::Ok, std::optional<std::string> text = {});
    // A file dialog with this title is expected; nothing means Cancel.
    ScriptedHost& expectOpenFile(std::string title, std::optional<std::string> path);
    ScriptedHost& expectSaveFile(std::string title, std::optional<std::string> path);

    // The bank Dialog in this mode is expected and answered with a place
    // (-1 for Cancel).
    ScriptedHost& expectBankDialog(int mode, int place);

    // Every dialog queued has been shown.
    bool allShown() const { return expected_.empty(); }

    Answer showMessage(const MessageRequest& request) override;
    std::optional<std::string> chooseOpenFile(const FileDialogRequest& request) override;
    std::optional<std::string> chooseSaveFile(const FileDialogRequest& request) override;
    void setStatus(const std::string& text, StatusColour colour) override;
    using Host::setMessage;
    void setMessage(const std::string& text) override;
    void setBusy(bool busy) override;
    int chooseBankPlace(const BankDialogRequest& request) override;

    // What the dialogs were given, in order, for tests that look closer.
    std::vector<MessageRequest> messages;
    std::vector<FileDialogRequest> openDialogs;
    std::vector<FileDialogRequest> saveDialogs;
    std::vector<BankDialogRequest> bankDialogs;

    std::string status;
    StatusColour statusColour = StatusColour::Done;
    std::string message;
    int busyDepth = 0;

private:
    enum class Dialog { Message, OpenFile, SaveFile, BankDialog };
    struct Expected {
        Dialog dialog;
        std::string title;
        std::optional<std::string> text;
        Answer answer = Answer::Ok;
        std::optional<std::string> path;
        int place = -1;
    };

    Expected take(Dialog dialog, const std::string& title, const std::string& text);

    std::deque<Expected> expected_;
};

}  // namespace quillon
