#include "support/TestModel.h"

#include "banks/BankView.h"

#include <atomic>
#include <random>
#include <string>
#include <system_error>

namespace quillon {

TempFolder::TempFolder()
{
    static const unsigned run = std::random_device{}();
    static std::atomic<int> counter{0};
    path_ = std::filesystem::temp_directory_path() /
            ("quillon-test-" + std::to_string(run) + "-" + std::to_string(counter++));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                                 ignored);
    std::filesystem::remove_all(path_, ignored);
}

void selectBankPatches(AppModel& model, int bank, const std::vector<int>& places)
{
    model.bankTarget = bank;
    fraBankLabelsSetUp(model, bank, 3);
    for (int place : places)
        model.banks.selection(bank).selectionFlags[static_cast<std::size_t>(place)] = -1;
    bankSelectSequence(model);
}

}  // namespace quillon
