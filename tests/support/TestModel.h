#pragma once

#include "files/SettingsStore.h"
#include "shell/AppModel.h"
#include "support/CollectingPrinter.h"
#include "support/ScriptedHost.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

// A fresh temporary folder for one test, removed with everything in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

// The model as the program holds it, with a scripted host, a store in
// memory and a data folder of its own.
struct TestModel {
    ScriptedHost host;
    MemorySettingsStore store;
    TempFolder folder;
    CollectingPrinter printer;
    AppModel model{host, store, folder.path(), &printer};
};

// The bank view's selection of a PatchBank made of these places, as the
// user's clicks leave it: flags set, the sequence ascending.
void selectBankPatches(AppModel& model, int bank, const std::vector<int>& places);

// Records the notifications of the model.
class RecordingObserver : public AppObserver {
public:
    void modelChanged(unsigned changes) override
    {
        ++calls;
        all |= changes;
    }
    int calls = 0;
    unsigned all = 0;
};

}  // namespace quillon
