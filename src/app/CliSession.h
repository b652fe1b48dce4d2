#pragma once

#include "app/CliHost.h"
#include "files/SettingsStore.h"
#include "shell/AppModel.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace quillon {

// One run of a quillon-cli command: the program's model with a host that
// answers for the user, a store in memory and a data folder of its own that
// is removed at the end, so that a command leaves no trace but its output.
class CliSession {
public:
    CliSession();
    ~CliSession();
    CliSession(const CliSession&) = delete;
    CliSession& operator=(const CliSession&) = delete;

    AppModel& model() { return *model_; }
    CliHost& host() { return host_; }

    // Opens a file as the Open command does. Returns the Kind it went to (1
    // to 8), 9 for a file of several kinds (its message waits in the
    // model), or nothing with the reason in error.
    std::optional<int> open(const std::string& path, std::string& error);

    // Opens a file that must hold a PatchBank: gives its Kind (2 or 3), or
    // writes why not to err (the refusal after the path for a file of
    // another kind) and gives nothing with the exit code in exitCode.
    std::optional<int> openPatchBank(const std::string& path, const std::string& refusal, std::ostream& err,
                                     int& exitCode);

    // The patch, multiset or pattern of an opened file in its editor: a
    // single item as it is, a bank's member taken out (N from 0), and for a
    // file of several kinds the member of its banks by combined position
    // (patches 0-255, multisets 0-31). Returns the Kind 1, 4 or 5.
    std::optional<int> takeItem(int openedKind, std::optional<int> member, std::string& error);

private:
    std::filesystem::path dataFolder_;
    CliHost host_;
    MemorySettingsStore store_;
    std::unique_ptr<AppModel> model_;
};

}  // namespace quillon
