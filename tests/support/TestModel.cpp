#include "support/TestModel.h"

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
    BankSelection& selection = model.banks.selection(bank);
    selection = BankSelection{};
    for (int place : places)
        selection.selectionFlags[static_cast<std::size_t>(place)] = -1;
    int count = 0;
    for (int place = 0; place < kBankPatches; ++place)
        if (selection.selected(place))
            selection.selectionSequence[static_cast<std::size_t>(++count)] = static_cast<std::int16_t>(place);
    selection.selectionCount = static_cast<std::int16_t>(count);
}

}  // namespace quillon
