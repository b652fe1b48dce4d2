#pragma once

#include "shell/Host.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillon {

// The Host of quillon-cli: no one sits at a screen, so the file dialogs take
// the paths given on the command line, questions get the answer that lets a
// command go on, and every message box is kept so that the command can say
// why it failed.
class CliHost : public Host {
public:
    std::optional<std::string> openPath;
    std::optional<std::string> savePath;
    std::vector<MessageRequest> messages;
    // Every text of lblStatus with its colour, in order.
    std::vector<std::pair<std::string, StatusColour>> statuses;
    // Sending to the instrument only on the user's word: while this is set a
    // Yes/No question is answered No and kept in refused.
    bool refuseQuestions = false;
    std::vector<MessageRequest> refused;

    // The text of the first box that reports a failure, or empty.
    std::string firstProblem() const;

    Answer showMessage(const MessageRequest& request) override;
    std::optional<std::string> chooseOpenFile(const FileDialogRequest& request) override;
    std::optional<std::string> chooseSaveFile(const FileDialogRequest& request) override;
    void setStatus(const std::string& text, StatusColour colour) override;
    using Host::setMessage;
    void setMessage(const std::string&) override {}
    void setBusy(bool) override {}
};

}  // namespace quillon
