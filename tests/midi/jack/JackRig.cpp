#include "JackRig.h"

#include "midi/MidiGlobal.h"
#include "midi/backends/RtMidiSystem.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quillon {

namespace {

constexpr int kTestRate = 31250;
constexpr int kPanelController = 119;
const SysExMessage kAcknowledgement{0xF0, 0x42, 0x30, 0x46, 0x23, 0xF7};

std::string environmentOr(const char* name, const std::string& otherwise)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

// The saved files of a kind: "<kind>-<number>.syx".
std::vector<std::filesystem::path> savedFiles(const std::string& kind)
{
    std::vector<std::filesystem::path> files;
    const auto folder = jackFixtureFolder() / "save";
    if (!std::filesystem::exists(folder))
        return files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.size() == kind.size() + 8 && name.rfind(kind + "-", 0) == 0 && entry.path().extension() == ".syx")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

MidiSystemOptions testOptions(const std::string& clientName)
{
    MidiSystemOptions options;
    options.clientName = clientName;
    options.sysExRate = kTestRate;
    return options;
}

}  // namespace

std::string z1simInputName() { return environmentOr("QUILLON_Z1SIM_IN", "Z1 in:midi"); }

std::string z1simOutputName() { return environmentOr("QUILLON_Z1SIM_OUT", "Z1 out:midi"); }

std::filesystem::path jackFixtureFolder() { return environmentOr("QUILLON_JACK_FIXTURE", QUILLON_JACK_STATE); }

void useJackFixtureEnvironment()
{
    setenv("JACK_DEFAULT_SERVER", QUILLON_JACK_SERVER, 0);
    setenv("JACK_NO_AUDIO_RESERVATION", "1", 0);
}

int deviceNumber(const std::vector<std::string>& devices, const std::string& name)
{
    const auto found = std::find(devices.begin(), devices.end(), name);
    return found == devices.end() ? -1 : static_cast<int>(found - devices.begin());
}

bool runUntil(QueuedEventPump& pump, const std::function<bool()>& done, std::chrono::seconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    pump.runPending();
    while (!done()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        pump.waitAndRun(left);
    }
    return true;
}

Panel::Panel(QueuedEventPump& pump)
{
    useJackFixtureEnvironment();
    system_ = openRtMidiSystem(MidiApi::Jack, pump, testOptions("Panel"));
    MidiOutput& out = system_->output();
    MidiInput& in = system_->input();
    out.setEvents(this);
    in.setEvents(this);
    const int z1In = deviceNumber(system_->outputDevices(), z1simInputName());
    const int z1Out = deviceNumber(system_->inputDevices(), z1simOutputName());
    if (z1In < 0 || z1Out < 0)
        throw MidiError(0, "z1sim's ports are not on the JACK server");
    out.setDevice(z1In);
    out.open();
    in.setBufferSize(kInputBufferBytes);
    in.setDevice(z1Out);
    in.open();
    in.start();
}

Panel::~Panel()
{
    system_->output().setEvents(nullptr);
    system_->input().setEvents(nullptr);
}

void Panel::press(int value)
{
    MidiOutput& out = system_->output();
    out.setMessageType(0xB0);
    out.setData1(kPanelController);
    out.setData2(value);
    out.sendShort();
}

void Panel::send(const SysExMessage& message)
{
    done = false;
    MidiOutput& out = system_->output();
    out.setMessageType(240);
    out.setMessageText(message);
    out.queue();
    out.start();
}

void Panel::inputMessage()
{
    MidiInput& in = system_->input();
    while (in.messageCount() > 0) {
        heard.push_back(in.messageText());
        in.next();
    }
}

JackRig::JackRig()
{
    useJackFixtureEnvironment();
    system = openRtMidiSystem(MidiApi::Jack, pump, testOptions("Quillon"));
    model.settings.outputDevice = deviceNumber(system->outputDevices(), z1simInputName());
    model.settings.inputDevice = deviceNumber(system->inputDevices(), z1simOutputName());
    model.settings.outputChannel = 1;
    model.midi.attach(&system->output(), &system->input(), &timer);
    doInitMIDI(model);
}

JackRig::~JackRig() { model.midi.attach(nullptr, nullptr, nullptr); }

bool JackRig::heardAcknowledgement() const
{
    return std::find(panel.heard.begin(), panel.heard.end(), kAcknowledgement) != panel.heard.end();
}

::testing::AssertionResult JackRig::waitForAcknowledgement()
{
    if (runUntil(pump, [this] { return heardAcknowledgement(); }))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "z1sim did not acknowledge a dump";
}

std::optional<SysExMessage> JackRig::newestSaved(const std::string& kind) const
{
    const auto files = savedFiles(kind);
    if (files.empty())
        return std::nullopt;
    std::ifstream file(files.back(), std::ios::binary);
    return SysExMessage{std::istreambuf_iterator<char>(file), {}};
}

std::vector<SysExMessage> JackRig::lastSaved(const std::string& kind, int count) const
{
    const auto files = savedFiles(kind);
    std::vector<SysExMessage> messages;
    for (std::size_t i = files.size() - std::min(files.size(), static_cast<std::size_t>(count)); i < files.size(); ++i) {
        std::ifstream file(files[i], std::ios::binary);
        messages.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return messages;
}

int JackRig::savedCount(const std::string& kind) const { return static_cast<int>(savedFiles(kind).size()); }

}  // namespace quillon
