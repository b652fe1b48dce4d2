#include "midi/backends/MidiSystem.h"

#include "midi/backends/RtMidiSystem.h"
#include "midi/backends/SimMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"

#include <RtMidi.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace quillon {

namespace {

constexpr std::array<std::pair<MidiApi, std::string_view>, 5> kApiNames{{
    {MidiApi::Alsa, "alsa"},
    {MidiApi::Jack, "jack"},
    {MidiApi::CoreMidi, "coremidi"},
    {MidiApi::WinMm, "winmm"},
    {MidiApi::Sim, "sim"},
}};

// A code of our own for the "MIDI Error" box: the name a user put into the
// environment names no MIDI system.
constexpr int kUnknownApiCode = 1;

// An environment switch: set, and not "0".
bool isSet(const char* value) { return value != nullptr && *value != '\0' && std::strcmp(value, "0") != 0; }

MidiApi platformDefault()
{
#if defined(__APPLE__)
    return MidiApi::CoreMidi;
#elif defined(_WIN32)
    return MidiApi::WinMm;
#else
    return MidiApi::Alsa;
#endif
}

std::string knownNames()
{
    std::string names;
    for (const auto& [api, name] : kApiNames) {
        if (!names.empty())
            names += ", ";
        names += name;
    }
    return names;
}

}  // namespace

std::string_view midiApiName(MidiApi api)
{
    for (const auto& [known, name] : kApiNames) {
        if (known == api)
            return name;
    }
    return {};
}

std::optional<MidiApi> midiApiFromName(std::string_view name)
{
    for (const auto& [api, known] : kApiNames) {
        if (known == name)
            return api;
    }
    return std::nullopt;
}

MidiApi chooseMidiApi(const char* environmentValue)
{
    if (environmentValue == nullptr || *environmentValue == '\0')
        return platformDefault();
    const std::string_view name(environmentValue);
    if (auto api = midiApiFromName(name))
        return *api;
    throw MidiError(kUnknownApiCode, "QUILLON_MIDI_API names no MIDI system: \"" + std::string(name) +
                                         "\" (known: " + knownNames() + ")");
}

std::vector<MidiApi> compiledMidiApis()
{
    std::vector<MidiApi> apis;
    std::vector<RtMidi::Api> rtApis;
    RtMidi::getCompiledApi(rtApis);
    for (RtMidi::Api rtApi : rtApis) {
        switch (rtApi) {
        case RtMidi::LINUX_ALSA: apis.push_back(MidiApi::Alsa); break;
        case RtMidi::UNIX_JACK: apis.push_back(MidiApi::Jack); break;
        case RtMidi::MACOSX_CORE: apis.push_back(MidiApi::CoreMidi); break;
        case RtMidi::WINDOWS_MM: apis.push_back(MidiApi::WinMm); break;
        default: break;
        }
    }
    // The simulated instrument lives in the program itself and is always
    // there.
    apis.push_back(MidiApi::Sim);
    return apis;
}

std::unique_ptr<MidiSystem> openMidiSystem(MidiApi api, EventPump& pump, const MidiSystemOptions& options)
{
    if (api == MidiApi::Sim) {
        auto system = openSimMidiSystem(pump, options);
        // Some owners' instruments answer a Bank A request with an All
        // Program dump; the simulated one does too when asked to, so that
        // the road Quillon takes then can be tried.
        if (options.simulator == nullptr && isSet(std::getenv("QUILLON_SIM_BANK_A_AS_ALL_PROGRAM")))
            system->simulator()->setBankAAsAllProgram(true);
        return system;
    }
    return openRtMidiSystem(api, pump, options);
}

}  // namespace quillon
