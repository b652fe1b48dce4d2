#pragma once

#include "shell/Host.h"

#include <optional>
#include <string>
#include <utility>

namespace quillon {

// A Host for measuring: it answers the open dialog with one file, says No to
// questions and shows nothing.
class QuietHost : public Host {
public:
    explicit QuietHost(std::string path = {}) : path_(std::move(path)) {}
    Answer showMessage(const MessageRequest&) override { return Answer::No; }
    std::optional<std::string> chooseOpenFile(const FileDialogRequest&) override { return path_; }
    std::optional<std::string> chooseSaveFile(const FileDialogRequest&) override { return std::nullopt; }
    void setStatus(const std::string&, StatusColour) override {}
    void setMessage(const std::string&) override {}
    void setBusy(bool) override {}

private:
    std::string path_;
};

}  // namespace quillon
