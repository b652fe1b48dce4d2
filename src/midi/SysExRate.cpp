#include "midi/SysExRate.h"

#include "files/SettingsStore.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillon {

namespace {

constexpr std::array<int, 5> kSysExRates = {kCableSysExRate, 6250, 12500, 31250, 62500};

constexpr const char* kSection = "MIDI";
constexpr const char* kRateKey = "SysExRate";

}  // namespace

std::span<const int> sysExRateChoices() { return kSysExRates; }

std::string sysExRateCaption(int bytesPerSecond)
{
    std::string caption = std::to_string(bytesPerSecond);
    if (bytesPerSecond == kCableSysExRate)
        caption += " (MIDI cable speed)";
    return caption;
}

int storedSysExRate(const SettingsStore& store)
{
    const std::string text = store.read(kSection, kRateKey);
    int rate = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || std::find(kSysExRates.begin(), kSysExRates.end(), rate) == kSysExRates.end())
        return kCableSysExRate;
    return rate;
}

void storeSysExRate(SettingsStore& store, int bytesPerSecond)
{
    store.write(kSection, kRateKey, std::to_string(bytesPerSecond));
}

}  // namespace quillon
