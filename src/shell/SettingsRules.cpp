#include "shell/SettingsRules.h"

#include "files/RecentFiles.h"
#include "files/UserFiles.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace quillon {

namespace {

void setAllFlags(GenerationSettings& g, bool main, bool extras)
{
    g.eg.fill(main);
    g.lfo.fill(main);
    g.osc.fill(main);
    g.fx.fill(main);
    g.filter.fill(main);
    g.modInt = extras;
    g.ampEG = extras;
    g.css = extras;
}

// The leading whole number of a text with blanks before it allowed; digits
// past what fits are of no account, as any such number lies beyond 100.
long leadingNumber(const std::string& text)
{
    std::size_t at = 0;
    while (at < text.size() && text[at] == ' ')
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        negative = text[at++] == '-';
    long number = 0;
    for (; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0; ++at)
        number = std::min(number * 10 + (text[at] - '0'), 1000000L);
    return negative ? -number : number;
}

}  // namespace

GenerationSettings* generationSettingsOfTab(SystemSettings& settings, int tab)
{
    if (tab == kSettingsTabRandom)
        return &settings.random;
    if (tab == kSettingsTabSpread)
        return &settings.spread;
    return nullptr;
}

int percentageOfText(const std::string& text)
{
    return static_cast<int>(std::clamp<long>(leadingNumber(text), kPercentageLeast, kPercentageMost));
}

std::string limitedPercentageText(const std::string& text)
{
    const long number = leadingNumber(text);
    if (number < kPercentageLeast)
        return std::to_string(kPercentageLeast);
    if (number > kPercentageMost)
        return std::to_string(kPercentageMost);
    return text;
}

void selectAllGroups(GenerationSettings& settings) { setAllFlags(settings, true, true); }

void selectNoGroups(GenerationSettings& settings) { setAllFlags(settings, false, false); }

void selectMainGroups(GenerationSettings& settings) { setAllFlags(settings, true, false); }

void resetAllPercentages(GenerationSettings& s)
{
    for (int* value : {&s.varEG, &s.varLFO, &s.varOSC, &s.varSONO, &s.varFX, &s.varFilter, &s.varModInt,
                       &s.varAmpEG, &s.varCSS})
        *value = s.resetAll;
}

std::string toneLengthCaption(int tenths)
{
    char text[16];
    std::snprintf(text, sizeof text, "%d.%d", tenths / 10, tenths % 10);
    return text;
}

void chooseRecentFilesMax(AppModel& model, int count)
{
    model.settings.recentFilesMax = std::clamp(count, 0, kRecentMenuSlots);
    std::string unused;
    recentFilesUpdate(model, 3, unused);
    model.changed(kSettingsChanged);
}

void chooseUserPatchFile(AppModel& model, int number)
{
    if (number < 0 || number >= kUserPatchFiles)
        return;
    model.settings.userFileNumber = number;
    readUserPatchFile(model, number);
    model.changed(kSettingsChanged);
}

}  // namespace quillon
