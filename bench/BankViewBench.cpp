// The bank view's grid of 128 name labels with its widgets offscreen: a bank
// coming on show, its names and colours all new.

#include "QuietHost.h"
#include "banks/BankView.h"
#include "banks/screens/BankScreen.h"
#include "files/SettingsStore.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/AppObserver.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

namespace quillon {
namespace {

// Hands the model's changes to the screen, as frmMain does.
struct ScreenObserver : AppObserver {
    BankScreen* screen = nullptr;
    void modelChanged(unsigned changes) override { screen->refresh(changes); }
};

struct ShownBankScreen {
    QuietHost host;
    MemorySettingsStore store;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillon-bench-bank";
    AppModel model{host, store, folder};
    std::unique_ptr<BankScreen> screen;
    ScreenObserver observer;

    ShownBankScreen()
    {
        std::filesystem::create_directories(folder);
        // Bank A loaded, bank B not: their names and colours all differ.
        for (int bank : {kPatchBankA}) {
            ByteImage& image = model.banks.image(bank);
            for (int p = 0; p < kPatchesPerBank; ++p)
                for (int i = 0; i < 16; ++i)
                    image[static_cast<std::size_t>(p * kPatchBytes + i)] =
                        static_cast<std::uint8_t>(i == 0 ? (bank == kPatchBankA ? 'A' : 'B') : 'a' + (p + i) % 26);
            model.flags.loaded[bank] = true;
        }
        screen = std::make_unique<BankScreen>(model);
        screen->resize(900, 480);
        screen->show();
        observer.screen = screen.get();
        model.addObserver(&observer);
        QApplication::processEvents();
    }
    ~ShownBankScreen()
    {
        model.removeObserver(&observer);
        screen.reset();
        std::filesystem::remove_all(folder);
    }
};

// fraBankSetUp and fraBankLabelsSetUp(bank, 0), the banks taking turns, so
// every caption and every colour changes.
void showABankWithItsLabels(benchmark::State& state)
{
    ShownBankScreen shown;
    bool bankB = false;
    for (auto _ : state) {
        bankB = !bankB;
        const int bank = bankB ? kPatchBankB : kPatchBankA;
        shown.model.bankTarget = bank;
        fraBankSetUp(shown.model);
        fraBankLabelsSetUp(shown.model, bank, 0);
    }
}
BENCHMARK(showABankWithItsLabels)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillon
