#include "midi/backends/Z1FactoryMemory.h"

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "sysex/SysExPacking.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <set>
#include <string_view>
#include <vector>

namespace quillon {

namespace {

constexpr int kNameLength = 16;
constexpr int kGlobalOrMidiBytes = 416;

// A fixed sequence of numbers, so the seeded memory is the same on every
// platform and at every start.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state_(seed * 2654435761u + 1u) {}
    std::uint32_t next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    // A number from low to high, both included.
    int between(int low, int high) { return low + static_cast<int>(next() % static_cast<std::uint32_t>(high - low + 1)); }
    bool chance(int percent) { return between(0, 99) < percent; }

private:
    std::uint32_t state_;
};

// Sounds by the instrument's categories (the Patch Category values 0 to 17).
struct Family {
    int category;
    std::array<std::string_view, 6> nouns;
};

constexpr std::array<Family, 18> kFamilies{{
    {0, {"Saw Stack", "Sync Lead", "Hard Sync", "Razor", "Edge", "Buzz"}},
    {1, {"Pad", "Glass Pad", "Dream Pad", "Haze", "Veil", "Mist"}},
    {2, {"Lead", "Solo", "Mono Lead", "Whistle", "Sine Lead", "Saw Lead"}},
    {3, {"Sweep", "Motion", "Pulse Seq", "Drift", "Tide", "Orbit"}},
    {4, {"Synbass", "Acid Bass", "Sub Bass", "Pluck Bass", "Wobble", "Mono Bass"}},
    {5, {"E.Piano", "Tine Keys", "Reed Piano", "Suitcase", "EP Chorus", "Dyno EP"}},
    {6, {"Organ", "Drawbars", "Perc Organ", "Tonewheel", "Church Org", "Combo Org"}},
    {7, {"Clav", "Harpsi", "Piano", "Keys", "Toy Piano", "Celeste"}},
    {8, {"Bells", "Chimes", "Glock", "Vibes", "Marimba", "Kalimba"}},
    {9, {"Strings", "Ensemble", "Cello", "Violin", "Orchestra", "Pizzicato"}},
    {10, {"Choir", "Voices", "Aahs", "Oohs", "Vox Pad", "Chant"}},
    {11, {"Brass", "Trumpet", "Horns", "Sax Brass", "Trombone", "Fanfare"}},
    {12, {"Flute", "Clarinet", "Oboe", "Pan Pipe", "Shakuhachi", "Bassoon"}},
    {13, {"Guitar", "Nylon Gtr", "Harp", "Koto", "Sitar", "Banjo"}},
    {14, {"Bass", "Fretless", "Upright", "Slap Bass", "Pick Bass", "Finger Bs"}},
    {15, {"Perc", "Drum Kit", "Tabla", "Timpani", "Steel Drum", "Woodblock"}},
    {16, {"Arp", "Arpeggio", "Sequence", "Ostinato", "Pattern", "Gated Arp"}},
    {17, {"FX", "Noise", "Wind FX", "Space", "Laser", "Storm"}},
}};

constexpr std::array<std::string_view, 24> kAdjectives{
    "Warm", "Bright", "Dark", "Soft", "Fat", "Thin", "Wide", "Deep", "Clear", "Airy", "Vintage", "Modern",
    "Big", "Silky", "Punchy", "Lush", "Cold", "Hollow", "Smooth", "Gritty", "Sparkly", "Mellow", "Crisp",
    "Velvet"};

constexpr std::array<std::string_view, 32> kMultiNames{
    "Pad & Bass", "Split Keys", "Layer Strings", "Brass Section", "Piano Combo", "Lead Stack",
    "Orchestra", "Ambient Layer", "Funk Band", "Jazz Trio", "Synth Split", "Arp Stack", "Choir & Pad",
    "Bass Split", "Organ Duo", "Bells & Pad", "Dance Floor", "Film Score", "Wind Ensemble",
    "Pluck Layer", "Dual Lead", "Soft Stack", "Percussion Kit", "Drone Layer", "Retro Split",
    "Unison Wall", "EP & Strings", "Guitar Duo", "Space Layer", "Techno Rig", "Ballad Split",
    "Six Timbres"};

constexpr std::array<std::string_view, 20> kPatternNames{
    "Up", "Down", "Alt 1", "Alt 2", "Random", "Trance Gate", "Funk 16th", "Broken Chord",
    "Octave Jump", "Dotted 8th", "Swing Arp", "Triplets", "Offbeat", "Pulse Run", "Bass Line",
    "Chord Stab", "Cascade", "Ping Pong", "Gallop", "Stutter"};

void putName(ParamValues& values, std::string_view name)
{
    for (int i = 0; i < kNameLength; ++i)
        values[static_cast<std::size_t>(i + 1)] = i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ';
}

std::vector<std::string> makePatchNames()
{
    std::vector<std::string> names;
    std::set<std::string> used;
    Dice dice(7);
    for (int position = 0; position < 2 * kPatchesPerBank; ++position) {
        const Family& family = kFamilies[static_cast<std::size_t>(position) % kFamilies.size()];
        std::string name;
        for (int attempt = 0; name.empty() || used.count(name) > 0; ++attempt) {
            const auto noun = family.nouns[static_cast<std::size_t>(dice.between(0, 5))];
            const auto adjective = kAdjectives[static_cast<std::size_t>(dice.between(0, kAdjectives.size() - 1))];
            name = std::string(adjective) + " " + std::string(noun);
            if (name.size() > kNameLength || attempt > 20 || dice.chance(10)) {
                // Now and then the slot's own label, as users name sounds.
                char slot[8];
                std::snprintf(slot, sizeof slot, " %c%02d", position < kPatchesPerBank ? 'A' : 'B',
                              position % kPatchesPerBank + 1);
                name = std::string(noun) + slot;
                if (name.size() > kNameLength)
                    name = std::string(noun).substr(0, kNameLength);
            }
        }
        used.insert(name);
        names.push_back(name);
    }
    return names;
}

const std::vector<std::string>& patchNames()
{
    static const std::vector<std::string> names = makePatchNames();
    return names;
}

ByteImage seededPatch(int position)
{
    const ParamTables& tables = paramTables();
    ParamValues values = tables.patchDefaults;
    Dice dice(static_cast<std::uint32_t>(1000 + position));
    // The parameters the program's own random generation may change are the
    // ones a sound designer varies; the structure stays that of the default.
    for (std::size_t row = kNameLength + 1; row < tables.patch.size(); ++row) {
        const ParamDef& def = tables.patch[row];
        if (tables.patchFirm[row] != 0 || !dice.chance(30))
            continue;
        values[row] = static_cast<std::int16_t>(dice.between(def.min, def.max));
    }
    putName(values, patchNames()[static_cast<std::size_t>(position)]);
    constexpr std::size_t kCategoryRow = 17;
    constexpr std::size_t kUserGroupRow = 18;
    values[kCategoryRow] = static_cast<std::int16_t>(kFamilies[static_cast<std::size_t>(position) % kFamilies.size()].category);
    values[kUserGroupRow] = static_cast<std::int16_t>(dice.chance(25) ? dice.between(1, 15) : 0);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    return image;
}

ByteImage seededMulti(int position)
{
    const ParamTables& tables = paramTables();
    ParamValues values = tables.multiDefaults;
    Dice dice(static_cast<std::uint32_t>(5000 + position));
    for (std::size_t row = kNameLength + 1; row < tables.multi.size(); ++row) {
        const ParamDef& def = tables.multi[row];
        auto& value = values[row];
        if (def.name == "Patch Bank")
            value = static_cast<std::int16_t>(dice.between(0, 1));
        else if (def.name == "Patch Number")
            value = static_cast<std::int16_t>(dice.between(0, 127));
        else if (def.name == "Output Level")
            value = static_cast<std::int16_t>(dice.between(80, 127));
        else if (def.name == "Panpot ")
            value = static_cast<std::int16_t>(dice.between(24, 104));
        else if (def.name == "Transpose" && dice.chance(20))
            value = static_cast<std::int16_t>(12 * dice.between(-1, 1));
    }
    putName(values, kMultiNames[static_cast<std::size_t>(position)]);
    ByteImage image(kMultiBytes, 0);
    multiParamsToImage(values, image);
    return image;
}

ByteImage seededPattern(int position)
{
    const ParamTables& tables = paramTables();
    ParamValues values = tables.arpDefaults;
    Dice dice(static_cast<std::uint32_t>(9000 + position));
    constexpr int kLengthRow = 30;
    constexpr int kFirstStepRow = 41;  // Tone MSB of step 1
    constexpr int kStepRows = 6;
    const int length = 4 * dice.between(1, 4);
    values[kLengthRow] = static_cast<std::int16_t>(length);
    for (int step = 0; step < length; ++step) {
        const std::size_t row = static_cast<std::size_t>(kFirstStepRow + kStepRows * step);
        // Tones 1 to 10 as bits: two in the MSB row, eight in the LSB row.
        // Every step plays at least one tone.
        values[row] = static_cast<std::int16_t>(dice.chance(20) ? dice.between(1, 3) : 0);
        values[row + 1] = static_cast<std::int16_t>(1 << dice.between(0, 7));
        if (dice.chance(30))
            values[row + 1] = static_cast<std::int16_t>(values[row + 1] | (1 << dice.between(0, 7)));
        values[row + 2] = static_cast<std::int16_t>(dice.chance(15) ? 12 * dice.between(-1, 1) : 0);
        values[row + 4] = static_cast<std::int16_t>(dice.between(64, 127));
        values[row + 5] = static_cast<std::int16_t>(dice.between(30, 100));
    }
    putName(values, kPatternNames[static_cast<std::size_t>(position)]);
    ByteImage image(kPatternBytes, 0);
    arpParamsToImage(values, image);
    return image;
}

ByteImage joined(int members, int memberBytes, int firstPosition, ByteImage (*member)(int))
{
    ByteImage bank;
    bank.reserve(static_cast<std::size_t>(members * memberBytes));
    for (int i = 0; i < members; ++i) {
        const ByteImage one = member(firstPosition + i);
        bank.insert(bank.end(), one.begin(), one.end());
    }
    return bank;
}

// The settings dumps are carried through whole and never read: any data of
// the right size will do, as long as Global and MIDI differ.
SysExImage settingsData(std::uint8_t seed)
{
    ByteImage image(kGlobalOrMidiBytes, 0);
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<std::uint8_t>((i * 37u + seed) % 256u);
    return packBytes(image);
}

Z1Memory makeMemory()
{
    Z1Memory memory;
    const ByteImage bankA = joined(kPatchesPerBank, kPatchBytes, 0, seededPatch);
    const ByteImage bankB = joined(kPatchesPerBank, kPatchBytes, kPatchesPerBank, seededPatch);
    const ByteImage multiA = joined(kMultisPerBank, kMultiBytes, 0, seededMulti);
    const ByteImage multiB = joined(kMultisPerBank, kMultiBytes, kMultisPerBank, seededMulti);
    const ByteImage arps = joined(kPatternsPerBank, kPatternBytes, 0, seededPattern);
    memory.bankA = DATAtoMIDI(kPatchBankA, bankA);
    memory.bankB = DATAtoMIDI(kPatchBankB, bankB);
    memory.multiBankA = DATAtoMIDI(kMultiBankA, multiA);
    memory.multiBankB = DATAtoMIDI(kMultiBankB, multiB);
    memory.arpBank = DATAtoMIDI(kArpBank, arps);
    // The instrument starts on the first patch and multiset and the first
    // user pattern.
    memory.currentPatch = DATAtoMIDI(kPatch, ByteImage(bankA.begin(), bankA.begin() + kPatchBytes));
    memory.currentMulti = DATAtoMIDI(kMultiset, ByteImage(multiA.begin(), multiA.begin() + kMultiBytes));
    constexpr int kFirstUserPattern = 5;
    const auto pattern = arps.begin() + kFirstUserPattern * kPatternBytes;
    memory.currentPattern = DATAtoMIDI(kPattern, ByteImage(pattern, pattern + kPatternBytes));
    memory.global = settingsData(0);
    memory.midi = settingsData(1);
    return memory;
}

}  // namespace

const Z1Memory& z1FactoryMemory()
{
    static const Z1Memory memory = makeMemory();
    return memory;
}

std::string factoryPatchName(int position)
{
    if (position < 0 || position >= 2 * kPatchesPerBank)
        return {};
    return patchNames()[static_cast<std::size_t>(position)];
}

std::string factoryMultiName(int position)
{
    if (position < 0 || position >= static_cast<int>(kMultiNames.size()))
        return {};
    return std::string(kMultiNames[static_cast<std::size_t>(position)]);
}

std::string factoryPatternName(int position)
{
    if (position < 0 || position >= static_cast<int>(kPatternNames.size()))
        return {};
    return std::string(kPatternNames[static_cast<std::size_t>(position)]);
}

}  // namespace quillon
