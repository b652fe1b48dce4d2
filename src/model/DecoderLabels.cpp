#include "model/DecoderLabels.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace quillon {

namespace {

struct ValueLabel {
    int value;
    std::string_view label;
};

// Each array holds the labels of one table, in value order.

// Table 1: patch category.
constexpr ValueLabel kPatchCategory[] = {
    {0, "Synth-Hard"}, {1, "Synth-Soft"}, {2, "Synth-Lead"}, {3, "Synth-Motn"}, {4, "Synth-Bass"},
    {5, "E.Piano"}, {6, "Organ"}, {7, "Keyboard"}, {8, "Bell"}, {9, "Strings"}, {10, "Choir"},
    {11, "Brass"}, {12, "Reed/Wind"}, {13, "Gtr/Pluck"}, {14, "Bass"}, {15, "Percussive"},
    {16, "Arpeggio"}, {17, "SFX/Other"},
};
// Table 2: scale type.
constexpr ValueLabel kScaleType[] = {
    {0, "Equal Temp"}, {1, "Pure Major"}, {2, "Pure Minor"}, {3, "Arabic Temp"}, {4, "Pythagorean"},
    {5, "Werckmeister"}, {6, "Kirnberger"}, {7, "Slendro"}, {8, "Pelog"}, {9, "User Scale1"},
    {10, "User Scale2"},
};
// Table 3: LFO wave form.
constexpr ValueLabel kLfoWaveForm[] = {
    {0, "Tri '0"}, {1, "Tri '90"}, {2, "Tri Random"}, {3, "Sin"}, {4, "Saw Up '0"},
    {5, "Saw Up '180"}, {6, "Saw Dn '0"}, {7, "Saw Dn '180"}, {8, "Square"}, {9, "Random(S/H)"},
    {10, "Random(Vect)"}, {11, "Step Tri4"}, {12, "Step Tri6"}, {13, "Step Saw4"},
    {14, "Step Saw6"}, {15, "Exp Tri"}, {16, "Exp Saw Up"}, {17, "Exp Saw Dn"},
};
// Table 4: oscillator type.
constexpr ValueLabel kOscillatorType[] = {
    {0, "Standard OSC"}, {1, "Comb Filter"}, {2, "VPM OSC"}, {3, "Resonance"}, {4, "Ring Mod"},
    {5, "Cross Mod"}, {6, "Sync OSC"}, {7, "Organ Model"}, {8, "Elec Piano"}, {9, "Brass Model"},
    {10, "Reed Model"}, {11, "Pluck String"}, {12, "Bowed String"},
};
// Table 5: FX1 and FX2 type.
constexpr ValueLabel kEffectType[] = {
    {0, "Overdrive"}, {1, "Compressor"}, {2, "4 Band PEQ"}, {3, "Wah"}, {4, "Exciter"},
    {5, "Decimator"}, {6, "Chorus"}, {7, "Flanger"}, {8, "Phaser"}, {9, "R/Spkr S"},
    {10, "Delay-mono"}, {11, "Talking Mod"}, {12, "MultiT Del"}, {13, "Ensemble"}, {14, "R/Spkr L"},
};
// Table 6: Master FX type.
constexpr ValueLabel kMasterEffectType[] = {{0, "Stereo Del"}, {1, "Rvb-Hall"}, {2, "Rvb-Room"}};
// Table 7: SW1 function.
// The SW1 list has always shown "Master FX " with a trailing blank; the SW2,
// foot switch and modulation source lists show it without.
constexpr ValueLabel kSwitch1Function[] = {
    {0, "Mod.SW1"}, {1, "Master FX "}, {2, "FX1 OFF/ON"}, {3, "FX2 OFF/ON"}, {4, "Octave Up"},
    {5, "Octave Dn"}, {6, "Mono SW"}, {7, "Unison"},
};
// Table 8: SW2 function.
constexpr ValueLabel kSwitch2Function[] = {
    {0, "Mod.SW2"}, {1, "Master FX"}, {2, "FX1 OFF/ON"}, {3, "FX2 OFF/ON"}, {4, "Oct Up"},
    {5, "Oct Dn"}, {6, "Mono SW"}, {7, "Unison"},
};
// Table 9: foot switch function.
constexpr ValueLabel kFootSwitchFunction[] = {
    {0, "Foot SW"}, {1, "MIDI Damp"}, {2, "MIDI Port"}, {3, "MIDI Sost"}, {4, "Master FX"},
    {5, "FX1 OFF/ON"}, {6, "FX2 OFF/ON"}, {7, "Oct Up"}, {8, "Oct Down"}, {9, "Mono SW"},
    {10, "Unison"}, {11, "Arpeggio"}, {12, "Pad Hold"},
};
// Table 10: pedal function.
constexpr ValueLabel kPedalFunction[] = {
    {0, "Pedal(CC#4)"}, {1, "Breath Ctrl"}, {2, "Porta Time"}, {3, "Volume"}, {4, "Panpot"},
    {5, "Expression"},
};
// Table 12: brass instrument type.
constexpr ValueLabel kBrassInstrumentType[] = {
    {0, "Brass 1"}, {1, "Brass 2"}, {2, "Brass 3"}, {3, "Horn 1"}, {4, "Horn 2"}, {5, "ReedBrass"},
    {6, "DblReed 2"}, {7, "Bassoon"}, {8, "Clarinet"}, {9, "Flute 1"}, {10, "Flute 2"},
    {11, "PanFlute"}, {12, "Ocarina"}, {13, "Shakuhachi"}, {14, "Harmonica 1"}, {15, "Harmonica 2"},
    {16, "ReedSynth"},
};
// Table 13: reed instrument type.
constexpr ValueLabel kReedInstrumentType[] = {
    {0, "Hard Sax 1"}, {1, "Hard Sax 2"}, {2, "Hard Sax 3"}, {3, "Soft Sax 1"}, {4, "Soft Sax 2"},
    {5, "DblReed 1"}, {6, "DblReed 2"}, {7, "Bassoon"}, {8, "Clarinet"}, {9, "Flute 1"},
    {10, "Flute 2"}, {11, "PanFlute"}, {12, "Ocarina"}, {13, "Shakuhachi"}, {14, "Harmonica 1"},
    {15, "Harmonica 2"}, {16, "ReedSynth"},
};
// Table 14: modulation source.
constexpr ValueLabel kModulationSource[] = {
    {0, "Off"}, {1, "EG1"}, {2, "EG2"}, {3, "EG3"}, {4, "EG4"}, {5, "Amp EG"}, {6, "LFO1"},
    {7, "LFO2"}, {8, "LFO3"}, {9, "LFO4"}, {10, "Portamento"}, {11, "Note[Line]"},
    {12, "Note[Exp]"}, {13, "Note Spl Hi"}, {14, "Note Spl Lo"}, {15, "Vel[Soft]"},
    {16, "Vel[Medium]"}, {17, "Vel[Hard]"}, {18, "Pitch Bend"}, {19, "After Touch"},
    {20, "Mod Wheel"}, {21, "AT+ModW"}, {22, "ATHalf+ModW"}, {23, "X[+/-]"}, {24, "X[+]"},
    {25, "X[-]"}, {26, "Y[+/-]"}, {27, "Y[+]"}, {28, "Y[-]"}, {29, "Knob1"}, {30, "Knob2"},
    {31, "Knob3"}, {32, "Knob4"}, {33, "Knob5"}, {34, "Mod.SW1"}, {35, "Mod.SW2"}, {36, "Foot SW"},
    {37, "Foot Pedal"}, {38, "Damper"}, {39, "Sostenuto"}, {40, "MIDI Br Ctrl"},
    {41, "MIDI Volume"}, {42, "MIDI Panpot"}, {43, "MIDI Expr"}, {44, "MIDI Port T"},
    {45, "MIDI Port SW"}, {46, "Master FX"}, {47, "FX1 OFF/ON"}, {48, "FX2 OFF/ON"},
};
// Table 15: FX modulation source.
// The effects number their sources as the modulation source list does but
// skip 1 to 10, the envelopes, LFOs and portamento of the voices: those values
// have no label, although the parameters that use this list run from 0 to 45.
constexpr ValueLabel kEffectModulationSource[] = {
    {0, "Off"}, {11, "Note[Line]"}, {12, "Note[Exp]"}, {13, "Note Spl Hi"}, {14, "Note Spl Lo"},
    {15, "Vel[Soft]"}, {16, "Vel[Medium]"}, {17, "Vel[Hard]"}, {18, "Pitch Bend"},
    {19, "After Touch"}, {20, "Mod Wheel"}, {21, "AT+ModW"}, {22, "ATHalf+ModW"}, {23, "X[+/-]"},
    {24, "X[+]"}, {25, "X[-]"}, {26, "Y[+/-]"}, {27, "Y[+]"}, {28, "Y[-]"}, {29, "Knob1"},
    {30, "Knob2"}, {31, "Knob3"}, {32, "Knob4"}, {33, "Knob5"}, {34, "Mod.SW1"}, {35, "Mod.SW2"},
    {36, "Foot SW"}, {37, "Foot Pedal"}, {38, "Damper"}, {39, "Sostenuto"}, {40, "MIDI B Ctrl"},
    {41, "MIDI Volume"}, {42, "MIDI Panpot"}, {43, "MIDI Expr"}, {44, "MIDI Port T"},
    {45, "MIDI Port SW"},
};
// Table 17: switch.
constexpr ValueLabel kSwitch[] = {{0, "OFF"}, {1, "ON"}};
// Table 21: pitch bend step.
constexpr ValueLabel kPitchBendStep[] = {
    {0, "0"}, {1, "/8"}, {2, "/4"}, {3, "/2"}, {4, "1"}, {5, "2"}, {6, "3"}, {7, "4"}, {8, "5"},
    {9, "6"}, {10, "7"}, {11, "8"}, {12, "9"}, {13, "10"}, {14, "11"}, {15, "12"},
};
// Table 24: arpeggio resolution.
constexpr ValueLabel kArpeggioResolution[] = {
    {0, "16T"}, {1, "16"}, {2, "8T"}, {3, "8"}, {4, "4T"}, {5, "4"},
};
// Table 27: octave.
constexpr ValueLabel kOctave[] = {{0, "32'"}, {1, "16'"}, {2, "8'"}, {3, "4'"}};
// Table 30: scale key.
constexpr ValueLabel kScaleKey[] = {
    {0, "C"}, {1, "C#"}, {2, "D"}, {3, "D#"}, {4, "E"}, {5, "F"}, {6, "F#"}, {7, "G"}, {8, "G#"},
    {9, "A"}, {10, "A#"}, {11, "B"},
};
// Table 32: envelope.
constexpr ValueLabel kEnvelope[] = {{1, "EG1"}, {2, "EG2"}, {3, "EG3"}, {4, "EG4"}, {5, "A.EG"}};
// Table 33: unison mode.
constexpr ValueLabel kUnisonMode[] = {{0, "FIXED"}, {1, "DYNAMIC"}};
// Table 34: filter EG target.
constexpr ValueLabel kFilterEgTarget[] = {{1, "FLT1"}, {2, "FLT2"}, {3, "FLT1+2"}};
// Table 36: key priority.
constexpr ValueLabel kKeyPriority[] = {{0, "LAST"}, {1, "LOW"}, {2, "HIGH"}};
// Table 37: switch mode.
constexpr ValueLabel kSwitchMode[] = {{0, "LATCH"}, {1, "UNLATCH"}};
// Table 39: knob curve.
constexpr ValueLabel kKnobCurve[] = {{0, "LINE"}, {1, "EXPO"}, {2, "LOG"}, {3, "SW"}};
// Table 40: filter type.
constexpr ValueLabel kFilterType[] = {{1, "LPF"}, {2, "HPF"}, {3, "BPF"}, {4, "BRF"}, {5, "2BPF"}};
// Table 41: voice assign mode.
constexpr ValueLabel kVoiceAssignMode[] = {{0, "MONO_MULT"}, {1, "MONO_SING"}, {2, "POLY"}};
// Table 42: portamento mode.
constexpr ValueLabel kPortamentoMode[] = {{0, "NORMAL"}, {1, "FINGERED"}};
// Table 43: MIDI sync base.
constexpr ValueLabel kMidiSyncBase[] = {
    {0, "SEMIQUAV"}, {1, "QUAVER3"}, {2, "QUAVER"}, {3, "CROTCHET3"}, {4, "CROTCHET"},
    {5, "MINIM3"}, {6, "MINIM"}, {7, "SEMIBREVE"},
};
// Table 44: unison type.
constexpr ValueLabel kUnisonType[] = {{0, "OFF"}, {1, "2"}, {2, "3"}, {3, "6"}};
// Table 45: key sync.
constexpr ValueLabel kKeySync[] = {{0, "OFF"}, {1, "by TIMBRE"}, {2, "by VOICE"}};
// Table 46: basic wave.
constexpr ValueLabel kBasicWave[] = {{0, "SAW"}, {1, "SQUARE"}, {2, "TRIANGLE"}, {3, "SINE"}};
// Table 47: filter routing.
constexpr ValueLabel kFilterRouting[] = {{0, "SERIAL1"}, {1, "SERIAL2"}, {2, "PARALLEL"}};
// Table 48: noise filter type.
constexpr ValueLabel kNoiseFilterType[] = {{0, "THRU"}, {1, "LPF"}, {2, "HPF"}, {3, "BPF"}};
// Table 49: arpeggio pattern.
constexpr ValueLabel kArpeggioPattern[] = {
    {0, "UP"}, {1, "DOWN"}, {2, "ALT1"}, {3, "ALT2"}, {4, "RANDOM"}, {5, "U1-1"}, {6, "U1-2"},
    {7, "U1-3"}, {8, "U1-4"}, {9, "U1-5"}, {10, "U2-1"}, {11, "U2-2"}, {12, "U2-3"}, {13, "U2-4"},
    {14, "U2-5"}, {15, "U3-1"}, {16, "U3-2"}, {17, "U3-3"}, {18, "U3-4"}, {19, "U3-5"},
};
// Table 50: output phase.
constexpr ValueLabel kOutputPhase[] = {{0, "+"}, {1, "-"}, {2, "+-"}};
// Table 60: wave shape type.
constexpr ValueLabel kWaveShapeType[] = {{0, "1"}, {1, "2"}};
// Table 70: vowel.
constexpr ValueLabel kVowel[] = {{0, "A"}, {1, "I"}, {2, "U"}, {3, "E"}, {4, "O"}};
// Table 71: sweep mode.
constexpr ValueLabel kSweepMode[] = {{0, "AUTO"}, {1, "MOD.SCE"}};
// Table 72: filter mode.
constexpr ValueLabel kFilterMode[] = {{0, "BPF"}, {1, "LPF"}};
// Table 73: wave shape table.
constexpr ValueLabel kWaveShapeTable[] = {{0, "CLIP"}, {1, "RESO"}};
// Table 74: modulation LFO.
// The LFOs keep their numbers from the modulation source list: 6 to 9.
constexpr ValueLabel kModulationLfo[] = {{6, "LFO1"}, {7, "LFO2"}, {8, "LFO3"}, {9, "LFO4"}};
// Table 75: control mode.
constexpr ValueLabel kControlMode[] = {{0, "MANUAL"}, {1, "MOD.SCE"}};
// Table 76: multitap type.
constexpr ValueLabel kMultitapType[] = {
    {0, "Normal"}, {1, "Cross1"}, {2, "Cross2"}, {3, "Pan1"}, {4, "Pan2"},
};
// Table 77: overdrive mode.
constexpr ValueLabel kOverdriveMode[] = {{0, "OD"}, {1, "DIST"}};
// Table 79: input select.
constexpr ValueLabel kInputSelect[] = {
    {0, "OSC1(2)"}, {1, "Sub OSC"}, {2, "Noise"}, {3, "Filter1"}, {4, "Filter2"},
};
// Table 80: EQ type.
constexpr ValueLabel kEqType[] = {{0, "PEAKING"}, {1, "SHELVING"}};
// Table 81: rotary mode.
constexpr ValueLabel kRotaryMode[] = {{0, "ROTATE"}, {1, "STOP"}};
// Table 82: wave.
constexpr ValueLabel kWave[] = {{0, "SAW"}, {1, "PULSE"}};
// Table 83: modulator wave.
constexpr ValueLabel kModulatorWave[] = {
    {0, "SAW"}, {1, "SQUARE"}, {2, "TRIANGLE"}, {3, "SINE"}, {4, "OSC1(2)"}, {5, "Sub OSC"},
    {6, "Filter1"}, {7, "Filter2"},
};
// Table 84: comb input select.
constexpr ValueLabel kCombInputSelect[] = {
    {0, "OSC2(1)+Nse"}, {1, "SubOSC+Nse"}, {2, "Filt1+Nse"}, {3, "Filt2+Nse"}, {4, "Pulse Noise"},
    {5, "Impulse"},
};
// Table 85: drawbar wave.
constexpr ValueLabel kDrawbarWave[] = {{0, "SINE1"}, {1, "SINE2"}, {2, "SINE3"}, {3, "TRIANGLE"}};
// Table 86: trigger mode.
constexpr ValueLabel kTriggerMode[] = {{0, "SINGLE"}, {1, "MULTI"}};
// Table 87: rotary speed.
constexpr ValueLabel kRotarySpeed[] = {{0, "SLOW"}, {1, "FAST"}};
// Table 88: pitch bend mode.
constexpr ValueLabel kPitchBendMode[] = {{0, "Smooth"}, {1, "Jump"}};
// Table 89: stereo delay type.
constexpr ValueLabel kStereoDelayType[] = {{0, "Stereo"}, {1, "Cross"}};
// Table 90: chorus LFO wave.
constexpr ValueLabel kChorusLfoWave[] = {{0, "TRIANGLE"}, {1, "SINE"}};
// Table 92: patch bank.
constexpr ValueLabel kPatchBank[] = {{0, "A"}, {1, "B"}};
// Table 95: scale select.
constexpr ValueLabel kScaleSelect[] = {{0, "CMN"}, {1, "PRG"}};
// Table 96: enable.
constexpr ValueLabel kEnable[] = {{0, "DIS"}, {1, "ENA"}};
// Table 97: pitch bend enable.
constexpr ValueLabel kPitchBendEnable[] = {{0, "DIS"}, {1, "CMN"}, {2, "PRG"}};
// Table 105: arpeggio type.
constexpr ValueLabel kArpeggioType[] = {
    {0, "As Played"}, {1, "As Pl.(Fill)"}, {2, "Running UP"}, {3, "UP + DOWN"},
};
// Table 106: octave motion.
constexpr ValueLabel kOctaveMotion[] = {{0, "UP"}, {1, "DOWN"}, {2, "BOTH"}, {3, "PARALLEL"}};

struct LabelTable {
    int table;
    std::span<const ValueLabel> labels;
};

constexpr LabelTable kLabelTables[] = {
    {1, kPatchCategory}, {2, kScaleType}, {3, kLfoWaveForm}, {4, kOscillatorType}, {5, kEffectType},
    {6, kMasterEffectType}, {7, kSwitch1Function}, {8, kSwitch2Function}, {9, kFootSwitchFunction},
    {10, kPedalFunction}, {12, kBrassInstrumentType}, {13, kReedInstrumentType},
    {14, kModulationSource}, {15, kEffectModulationSource}, {17, kSwitch}, {21, kPitchBendStep},
    {24, kArpeggioResolution}, {27, kOctave}, {30, kScaleKey}, {32, kEnvelope}, {33, kUnisonMode},
    {34, kFilterEgTarget}, {36, kKeyPriority}, {37, kSwitchMode}, {39, kKnobCurve},
    {40, kFilterType}, {41, kVoiceAssignMode}, {42, kPortamentoMode}, {43, kMidiSyncBase},
    {44, kUnisonType}, {45, kKeySync}, {46, kBasicWave}, {47, kFilterRouting},
    {48, kNoiseFilterType}, {49, kArpeggioPattern}, {50, kOutputPhase}, {60, kWaveShapeType},
    {70, kVowel}, {71, kSweepMode}, {72, kFilterMode}, {73, kWaveShapeTable}, {74, kModulationLfo},
    {75, kControlMode}, {76, kMultitapType}, {77, kOverdriveMode}, {79, kInputSelect},
    {80, kEqType}, {81, kRotaryMode}, {82, kWave}, {83, kModulatorWave}, {84, kCombInputSelect},
    {85, kDrawbarWave}, {86, kTriggerMode}, {87, kRotarySpeed}, {88, kPitchBendMode},
    {89, kStereoDelayType}, {90, kChorusLfoWave}, {92, kPatchBank}, {95, kScaleSelect},
    {96, kEnable}, {97, kPitchBendEnable}, {105, kArpeggioType}, {106, kOctaveMotion},
};

const LabelTable* findLabelTable(int table)
{
    const auto* found = std::find_if(std::begin(kLabelTables), std::end(kLabelTables),
                                     [table](const LabelTable& t) { return t.table == table; });
    return found == std::end(kLabelTables) ? nullptr : found;
}

}  // namespace

bool hasLabels(int table)
{
    return findLabelTable(table) != nullptr;
}

std::optional<std::string_view> findLabel(int table, int value)
{
    const LabelTable* labelTable = findLabelTable(table);
    if (labelTable == nullptr)
        return std::nullopt;
    const auto found =
        std::find_if(labelTable->labels.begin(), labelTable->labels.end(),
                     [value](const ValueLabel& entry) { return entry.value == value; });
    if (found == labelTable->labels.end())
        return std::nullopt;
    return found->label;
}

}  // namespace quillon
