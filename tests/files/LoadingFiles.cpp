#include "files/LoadingFiles.h"

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <array>
#include <fstream>

namespace quillon {

namespace {

constexpr int kNameChars = 16;

SysExMessage dump(std::uint8_t function, std::vector<std::uint8_t> subHeader, const SysExImage& packed)
{
    return buildSysExMessage(function, subHeader, 1, packed);
}

}  // namespace

ByteImage namedItemImage(AppModel& model, int kind, const std::string& name)
{
    ParamValues values = model.buffers.of(kind).defaults;
    for (int p = 1; p <= kNameChars; ++p)
        values[p] = static_cast<std::int16_t>(p <= static_cast<int>(name.size()) ? name[p - 1] : ' ');
    ByteImage image(static_cast<std::size_t>(byteImageSize(kind)), 0);
    if (kind == kPatch)
        patchParamsToImage(values, image);
    else if (kind == kMultiset)
        multiParamsToImage(values, image);
    else
        arpParamsToImage(values, image);
    return image;
}

SysExMessage patchMessage(const ByteImage& image) { return currentPatchDump(1, DATAtoMIDI(kPatch, image)); }

SysExMessage longPatchMessage(const ByteImage& image)
{
    return dump(kFunctionPatchBank, {0x00, 0x00, 0x05}, DATAtoMIDI(kPatch, image));
}

SysExMessage multiMessage(const ByteImage& image) { return currentMultiDump(1, DATAtoMIDI(kMultiset, image)); }

SysExMessage longMultiMessage(const ByteImage& image)
{
    return dump(kFunctionMultiBank, {0x00, 0x00, 0x00, 0x03}, DATAtoMIDI(kMultiset, image));
}

SysExMessage patternMessage(const ByteImage& image)
{
    return currentPatternDump(1, DATAtoMIDI(kPattern, image));
}

SysExMessage bankMessage(int bank, const ByteImage& image) { return patchBankDump(bank, 1, DATAtoMIDI(bank, image)); }

SysExMessage multiBankMessage(int multiBank, const ByteImage& image)
{
    return multiBankDump(multiBank, 1, DATAtoMIDI(multiBank, image));
}

SysExMessage arpBankMessage(const ByteImage& image) { return arpBankDump(1, DATAtoMIDI(kArpBank, image)); }

SysExMessage allDataMessage(const ByteImage& image) { return dump(kFunctionAllData, {0x00, 0x00}, packBytes(image)); }

SysExMessage allProgramMessage(const ByteImage& image)
{
    return dump(kFunctionPatchBank, {0x00, 0x00, 0x00}, packBytes(image));
}

SysExMessage allMultiMessage(const ByteImage& image)
{
    return dump(kFunctionMultiBank, {0x00, 0x00, 0x00, 0x00}, packBytes(image));
}

SysExMessage globalOrMidiMessage(std::uint8_t which)
{
    return dump(kFunctionGlobalOrMidi, {which}, packBytes(ByteImage(416, 0x11)));
}

ByteImage countingImage(std::size_t n)
{
    ByteImage image(n);
    for (std::size_t i = 0; i < n; ++i)
        image[i] = static_cast<std::uint8_t>((i + 1) % 251);
    return image;
}

std::vector<std::uint8_t> wrappedFile(const std::vector<SysExMessage>& messages)
{
    std::vector<std::uint8_t> file(114, 0x00);
    file.push_back(static_cast<std::uint8_t>(messages.size() & 0xFF));
    file.push_back(static_cast<std::uint8_t>(messages.size() >> 8));
    for (const auto& message : messages) {
        const auto length = static_cast<std::uint32_t>(message.size());
        for (int shift = 0; shift < 32; shift += 8)
            file.push_back(static_cast<std::uint8_t>((length >> shift) & 0xFF));
    }
    for (const auto& message : messages)
        file.insert(file.end(), message.begin(), message.end());
    return file;
}

std::vector<std::uint8_t> withStrayBytes(const SysExMessage& message, std::size_t before, std::size_t after)
{
    std::vector<std::uint8_t> file(before, 0x01);
    file.insert(file.end(), message.begin(), message.end());
    file.insert(file.end(), after, 0x01);
    return file;
}

void writeFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::string LoadingTest::put(const std::string& name, const std::vector<std::uint8_t>& bytes) const
{
    const auto path = t.folder / name;
    writeFile(path, bytes);
    return path.string();
}

void LoadingTest::expectBox(std::string title, Answer answer, std::optional<std::string> text)
{
    afterOpenDialog_.push_back([this, title, answer, text] { host.expectMessage(title, answer, text); });
}

void LoadingTest::expectSaveDialog(std::string title, std::optional<std::string> path)
{
    afterOpenDialog_.push_back([this, title, path] { host.expectSaveFile(title, path); });
}

void LoadingTest::open(const std::string& path)
{
    host.expectOpenFile("Open Z1 SysEx file", path);
    for (const auto& expect : afterOpenDialog_)
        expect();
    afterOpenDialog_.clear();
    doOpenSysExFile(model, 0, surroundings);
}

}  // namespace quillon
