#include "model/ValueDecoder.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

// A value of a table and the text it must show.
struct Shown {
    int table;
    int value;
    const char* text;
};

void expectShown(const Shown& s)
{
    EXPECT_EQ(decodeValue(s.table, s.value), s.text)
        << "table " << s.table << ", value " << s.value;
}

// The lowest and highest value a table shows, their texts, and that one step
// beyond either end shows nothing.
struct Range {
    int table;
    int min;
    const char* minText;
    int max;
    const char* maxText;
};

void expectRange(const Range& r)
{
    SCOPED_TRACE("table " + std::to_string(r.table));
    EXPECT_EQ(decodeValue(r.table, r.min), r.minText);
    EXPECT_EQ(decodeValue(r.table, r.max), r.maxText);
    EXPECT_EQ(decodeValue(r.table, r.min - 1), "");
    EXPECT_EQ(decodeValue(r.table, r.max + 1), "");
}

// --- Tables that do not exist, and the plain number ---

TEST(ValueDecoder, SwitchTableHasNoTextForTwo)
{
    EXPECT_EQ(decodeValue(17, 2), "");
}

TEST(ValueDecoder, TableAboveHundredAndEightGivesEmptyText)
{
    EXPECT_EQ(decodeValue(200, 1), "");
    EXPECT_EQ(decodeValue(109, 0), "");
    EXPECT_EQ(decodeValue(32767, 0), "");
}

TEST(ValueDecoder, NegativeTableGivesEmptyText)
{
    EXPECT_EQ(decodeValue(-1, 0), "");
    EXPECT_EQ(decodeValue(-32768, 5), "");
}

TEST(ValueDecoder, PlainNumberShowsNegativeWithMinusSign)
{
    EXPECT_EQ(decodeValue(0, -5), "-5");
}

TEST(ValueDecoder, PlainNumberShowsEverySixteenBitValue)
{
    EXPECT_EQ(decodeValue(0, -32768), "-32768");
    EXPECT_EQ(decodeValue(0, 0), "0");
    EXPECT_EQ(decodeValue(0, 42), "42");
    EXPECT_EQ(decodeValue(0, 32767), "32767");
}

// --- Pan, cents and delay times ---

TEST(ValueDecoder, PanSixtyFourIsCentre)
{
    EXPECT_EQ(decodeValue(38, 64), "CENTRE");
}

TEST(ValueDecoder, PanSixtyThreeIsLeftOne)
{
    EXPECT_EQ(decodeValue(38, 63), "LEFT 1");
}

TEST(ValueDecoder, PanSixtyFiveIsRightOne)
{
    EXPECT_EQ(decodeValue(38, 65), "RIGHT 1");
}

TEST(ValueDecoder, ZeroCentHasNoSign)
{
    EXPECT_EQ(decodeValue(18, 0), "0 cent");
}

TEST(ValueDecoder, PositiveCentHasPlusSign)
{
    EXPECT_EQ(decodeValue(18, 1), "+1 cent");
}

TEST(ValueDecoder, NegativeCentHasMinusSign)
{
    EXPECT_EQ(decodeValue(18, -1), "-1 cent");
    EXPECT_EQ(decodeValue(101, -50), "-50 cent");
}

TEST(ValueDecoder, DelayTimeStepsWidenAtFiftyOneAndAtHundredSeventySix)
{
    EXPECT_EQ(decodeValue(52, 50), "50 msec");
    EXPECT_EQ(decodeValue(52, 51), "52 msec");
    EXPECT_EQ(decodeValue(52, 52), "54 msec");
    EXPECT_EQ(decodeValue(52, 175), "300 msec");
    EXPECT_EQ(decodeValue(52, 176), "305 msec");
    EXPECT_EQ(decodeValue(52, 251), "680 msec");
}

// --- LFO frequency ---

TEST(ValueDecoder, LfoFrequencyZeroIsZeroHertz)
{
    EXPECT_EQ(decodeValue(91, 0), "0 Hz");
    EXPECT_EQ(decodeValue(91, 1), "0.04 Hz");
}

TEST(ValueDecoder, LfoFrequencyRowsJoinWithoutJumps)
{
    for (const Shown& s : {Shown{91, 49, "1.00 Hz"}, Shown{91, 50, "1.05 Hz"},
                           Shown{91, 69, "2.00 Hz"}, Shown{91, 70, "2.10 Hz"},
                           Shown{91, 148, "9.90 Hz"}, Shown{91, 149, "10.0 Hz"},
                           Shown{91, 199, "60.0 Hz"}})
        expectShown(s);
}

TEST(ValueDecoder, LfoFrequencyAboveTenHertzKeepsTwoLeadingDigits)
{
    EXPECT_EQ(decodeValue(91, 150), "11.0 Hz");
    EXPECT_EQ(decodeValue(91, 189), "50.0 Hz");
}

// --- Labels ---

TEST(ValueDecoder, OffAtMinusOne)
{
    EXPECT_EQ(decodeValue(78, -1), "OFF");
    EXPECT_EQ(decodeValue(78, 0), "0");
}

TEST(ValueDecoder, SwitchOneMasterFxKeepsItsTrailingBlank)
{
    EXPECT_EQ(decodeValue(7, 1), "Master FX ");
}

TEST(ValueDecoder, OtherMasterFxLabelsHaveNoTrailingBlank)
{
    EXPECT_EQ(decodeValue(8, 1), "Master FX");
    EXPECT_EQ(decodeValue(9, 4), "Master FX");
    EXPECT_EQ(decodeValue(14, 46), "Master FX");
    EXPECT_EQ(decodeValue(9, 1), "MIDI Damp");
    EXPECT_EQ(decodeValue(14, 1), "EG1");
}

TEST(ValueDecoder, PatchCategorySixteenIsArpeggio)
{
    EXPECT_EQ(decodeValue(1, 16), "Arpeggio");
}

TEST(ValueDecoder, FxModulationSourceHasNoLabelsForOneToTen)
{
    EXPECT_EQ(decodeValue(15, 0), "Off");
    for (int value = 1; value <= 10; ++value)
        EXPECT_EQ(decodeValue(15, value), "") << "value " << value;
    EXPECT_EQ(decodeValue(15, 11), "Note[Line]");
}

TEST(ValueDecoder, FxModulationSourceNamesBreathControlShorter)
{
    EXPECT_EQ(decodeValue(15, 40), "MIDI B Ctrl");
    EXPECT_EQ(decodeValue(14, 40), "MIDI Br Ctrl");
}

TEST(ValueDecoder, ModulationLfoHasLabelsForSixToNineOnly)
{
    EXPECT_EQ(decodeValue(74, 5), "");
    EXPECT_EQ(decodeValue(74, 6), "LFO1");
    EXPECT_EQ(decodeValue(74, 7), "LFO2");
    EXPECT_EQ(decodeValue(74, 8), "LFO3");
    EXPECT_EQ(decodeValue(74, 9), "LFO4");
    EXPECT_EQ(decodeValue(74, 10), "");
    EXPECT_EQ(decodeValue(74, 0), "");
}

TEST(ValueDecoder, TablesStartingAtOneHaveNoLabelForZero)
{
    EXPECT_EQ(decodeValue(32, 0), "");
    EXPECT_EQ(decodeValue(34, 0), "");
    EXPECT_EQ(decodeValue(40, 0), "");
}

TEST(ValueDecoder, EveryLabelTableShowsItsLabelsAndNothingBeyond)
{
    const Range ranges[] = {
        {1, 0, "Synth-Hard", 17, "SFX/Other"},
        {2, 0, "Equal Temp", 10, "User Scale2"},
        {3, 0, "Tri '0", 17, "Exp Saw Dn"},
        {4, 0, "Standard OSC", 12, "Bowed String"},
        {5, 0, "Overdrive", 14, "R/Spkr L"},
        {6, 0, "Stereo Del", 2, "Rvb-Room"},
        {7, 0, "Mod.SW1", 7, "Unison"},
        {8, 0, "Mod.SW2", 7, "Unison"},
        {9, 0, "Foot SW", 12, "Pad Hold"},
        {10, 0, "Pedal(CC#4)", 5, "Expression"},
        {12, 0, "Brass 1", 16, "ReedSynth"},
        {13, 0, "Hard Sax 1", 16, "ReedSynth"},
        {14, 0, "Off", 48, "FX2 OFF/ON"},
        {15, 0, "Off", 45, "MIDI Port SW"},
        {17, 0, "OFF", 1, "ON"},
        {21, 0, "0", 15, "12"},
        {24, 0, "16T", 5, "4"},
        {27, 0, "32'", 3, "4'"},
        {30, 0, "C", 11, "B"},
        {32, 1, "EG1", 5, "A.EG"},
        {33, 0, "FIXED", 1, "DYNAMIC"},
        {34, 1, "FLT1", 3, "FLT1+2"},
        {36, 0, "LAST", 2, "HIGH"},
        {37, 0, "LATCH", 1, "UNLATCH"},
        {39, 0, "LINE", 3, "SW"},
        {40, 1, "LPF", 5, "2BPF"},
        {41, 0, "MONO_MULT", 2, "POLY"},
        {42, 0, "NORMAL", 1, "FINGERED"},
        {43, 0, "SEMIQUAV", 7, "SEMIBREVE"},
        {44, 0, "OFF", 3, "6"},
        {45, 0, "OFF", 2, "by VOICE"},
        {46, 0, "SAW", 3, "SINE"},
        {47, 0, "SERIAL1", 2, "PARALLEL"},
        {48, 0, "THRU", 3, "BPF"},
        {49, 0, "UP", 19, "U3-5"},
        {50, 0, "+", 2, "+-"},
        {60, 0, "1", 1, "2"},
        {70, 0, "A", 4, "O"},
        {71, 0, "AUTO", 1, "MOD.SCE"},
        {72, 0, "BPF", 1, "LPF"},
        {73, 0, "CLIP", 1, "RESO"},
        {74, 6, "LFO1", 9, "LFO4"},
        {75, 0, "MANUAL", 1, "MOD.SCE"},
        {76, 0, "Normal", 4, "Pan2"},
        {77, 0, "OD", 1, "DIST"},
        {79, 0, "OSC1(2)", 4, "Filter2"},
        {80, 0, "PEAKING", 1, "SHELVING"},
        {81, 0, "ROTATE", 1, "STOP"},
        {82, 0, "SAW", 1, "PULSE"},
        {83, 0, "SAW", 7, "Filter2"},
        {84, 0, "OSC2(1)+Nse", 5, "Impulse"},
        {85, 0, "SINE1", 3, "TRIANGLE"},
        {86, 0, "SINGLE", 1, "MULTI"},
        {87, 0, "SLOW", 1, "FAST"},
        {88, 0, "Smooth", 1, "Jump"},
        {89, 0, "Stereo", 1, "Cross"},
        {90, 0, "TRIANGLE", 1, "SINE"},
        {92, 0, "A", 1, "B"},
        {95, 0, "CMN", 1, "PRG"},
        {96, 0, "DIS", 1, "ENA"},
        {97, 0, "DIS", 2, "PRG"},
        {105, 0, "As Played", 3, "UP + DOWN"},
        {106, 0, "UP", 3, "PARALLEL"},
    };
    for (const Range& r : ranges)
        expectRange(r);
}

TEST(ValueDecoder, LabelsInsideTheirTablesKeepBlanksAndCase)
{
    for (const Shown& s : {
             Shown{2, 3, "Arabic Temp"},     Shown{3, 1, "Tri '90"},
             Shown{3, 9, "Random(S/H)"},     Shown{4, 7, "Organ Model"},
             Shown{5, 9, "R/Spkr S"},        Shown{8, 4, "Oct Up"},
             Shown{9, 8, "Oct Down"},        Shown{10, 4, "Panpot"},
             Shown{12, 5, "ReedBrass"},      Shown{13, 5, "DblReed 1"},
             Shown{14, 22, "ATHalf+ModW"},   Shown{14, 23, "X[+/-]"},
             Shown{21, 1, "/8"},             Shown{21, 4, "1"},
             Shown{43, 3, "CROTCHET3"},      Shown{45, 1, "by TIMBRE"},
             Shown{49, 5, "U1-1"},           Shown{50, 1, "-"},
             Shown{70, 1, "I"},              Shown{84, 1, "SubOSC+Nse"},
             Shown{97, 1, "CMN"},            Shown{105, 1, "As Pl.(Fill)"},
         })
        expectShown(s);
}

// --- Key names ---

TEST(ValueDecoder, KeyOctaveNumberChangesAtA)
{
    for (const Shown& s : {Shown{31, 0, "C-1"}, Shown{31, 8, "G#-1"}, Shown{31, 9, "A0"},
                           Shown{31, 11, "B0"}, Shown{31, 12, "C0"}, Shown{31, 20, "G#0"},
                           Shown{31, 21, "A1"}, Shown{31, 24, "C1"}, Shown{31, 60, "C4"},
                           Shown{31, 127, "G9"}})
        expectShown(s);
}

TEST(ValueDecoder, KeyNamesCoverZeroToHundredTwentySeven)
{
    expectRange({31, 0, "C-1", 127, "G9"});
    EXPECT_EQ(decodeValue(31, 118), "A#9");
}

// --- Numbers with a unit or a small change ---

TEST(ValueDecoder, EveryNumberTableShowsItsEndsAndNothingBeyond)
{
    const Range ranges[] = {
        {11, 0, "PE no 0", 230, "PE no 230"},
        {16, 32, " ", 127, "\x7f"},
        {18, -50, "-50 cent", 99, "+99 cent"},
        {19, 0, "0 %", 100, "100 %"},
        {20, 0, "1", 15, "16"},
        {26, 0, "30", 255, "285"},
        {35, 0, "GROUP1", 15, "GROUP16"},
        {38, 0, "LEFT 64", 127, "RIGHT 63"},
        {51, 0, "0 msec", 200, "200 msec"},
        {52, 0, "0 msec", 251, "680 msec"},
        {57, 0, "0.5", 16, "16"},
        {61, -18, "-18 dB", 18, "18 dB"},
        {67, 4, "4 bit", 24, "24 bit"},
        {78, -1, "OFF", 99, "99"},
        {93, 0, "000", 127, "127"},
        {94, 0, "OFF", 12, "12"},
        {98, 0, "0", 128, "PRG"},
        {99, 0, "0", 101, "PRG"},
        {100, 0, "1", 16, "GLB"},
        {101, -50, "-50 cent", 50, "+50 cent"},
        {102, 1, "1", 129, "STEP"},
        {103, 0, "0%", 101, "STEP"},
        {104, -50, "-50%", 50, "+50%"},
        {107, 1, "1", 128, "KEY"},
        {108, 0, "OFF", 101, "LGAT"},
    };
    for (const Range& r : ranges)
        expectRange(r);
}

TEST(ValueDecoder, NumberTablesInsideTheirRanges)
{
    for (const Shown& s : {
             Shown{16, 65, "A"},       Shown{16, 126, "~"},     Shown{20, 7, "8"},
             Shown{35, 4, "GROUP5"},   Shown{38, 1, "LEFT 63"}, Shown{57, 1, "1"},
             Shown{61, 3, "3 dB"},     Shown{93, 7, "007"},     Shown{93, 42, "042"},
             Shown{94, 1, "1"},        Shown{98, 127, "127"},   Shown{99, 100, "100"},
             Shown{100, 15, "16"},     Shown{101, 0, "0 cent"}, Shown{101, 3, "+3 cent"},
             Shown{102, 127, "127"},   Shown{102, 128, "KEY"},  Shown{103, 100, "100%"},
             Shown{104, 0, "0%"},      Shown{104, -1, "-1%"},   Shown{104, 1, "+1%"},
             Shown{107, 127, "127"},   Shown{108, 1, "1%"},     Shown{108, 100, "100%"},
         })
        expectShown(s);
}

// --- Computed numbers ---

TEST(ValueDecoder, EveryComputedTableShowsItsEndsAndNothingBeyond)
{
    const Range ranges[] = {
        {22, -50, "-1.00", 100, "2.00"},
        {23, -100, "-10.0", 100, "10.0"},
        {25, -36, "-18.0 dB", 36, "18.0 dB"},
        {28, 0, "1.00 kHz", 49, "29.86 kHz"},
        {29, 0, "20.00 Hz", 49, "1.40 kHz"},
        {53, 0, "0.0 msec", 140, "50.0 msec"},
        {54, 1, "0.1 msec", 100, "10.0 msec"},
        {55, 1, "0.1 msec", 30, "3.0 msec"},
        {56, 0, "0.5", 95, "10.0"},
        {58, 1, "0.04 Hz", 115, "20.00 Hz"},
        {59, 5, "1.0 kHz", 120, "24.0 kHz"},
        {62, 0, "20.00 Hz", 49, "1.40 kHz"},
        {63, -115, "-20.00 Hz", 115, "20.00 Hz"},
        {64, 0, "20.00 Hz", 49, "1.40 kHz"},
        {65, 0, "200.00 Hz", 49, "13.96 kHz"},
        {66, -120, "-24.0 kHz", 120, "24.0 kHz"},
        {68, 0, "50.00 Hz", 49, "14.37 kHz"},
        {69, 0, "500.00 Hz", 49, "21.77 kHz"},
        {91, 0, "0 Hz", 199, "60.0 Hz"},
    };
    for (const Range& r : ranges)
        expectRange(r);
}

TEST(ValueDecoder, SmallStepsShowTheirDecimals)
{
    for (const Shown& s : {
             Shown{22, 1, "0.02"},      Shown{22, -1, "-0.02"},   Shown{22, 0, "0.00"},
             Shown{22, 37, "0.74"},     Shown{23, -1, "-0.1"},    Shown{23, 7, "0.7"},
             Shown{25, 1, "0.5 dB"},    Shown{25, -3, "-1.5 dB"}, Shown{28, 10, "2.00 kHz"},
             Shown{28, 5, "1.41 kHz"},  Shown{55, 10, "1.0 msec"}, Shown{56, 1, "0.6"},
             Shown{59, 6, "1.2 kHz"},   Shown{66, -1, "-0.2 kHz"}, Shown{66, 0, "0.0 kHz"},
         })
        expectShown(s);
}

TEST(ValueDecoder, EarlyReflectionTimeSwitchesToWholeStepsAfterHundred)
{
    EXPECT_EQ(decodeValue(53, 99), "9.9 msec");
    EXPECT_EQ(decodeValue(53, 100), "10.0 msec");
    EXPECT_EQ(decodeValue(53, 101), "11.0 msec");
    EXPECT_EQ(decodeValue(53, 139), "49.0 msec");
}

TEST(ValueDecoder, EffectLfoFrequencyRowsJoinWithoutJumps)
{
    for (const Shown& s : {Shown{58, 25, "1.00 Hz"}, Shown{58, 50, "2.00 Hz"},
                           Shown{58, 51, "2.10 Hz"}, Shown{58, 80, "5.00 Hz"},
                           Shown{58, 81, "5.20 Hz"}, Shown{58, 105, "10.00 Hz"},
                           Shown{58, 106, "11.00 Hz"}})
        expectShown(s);
    EXPECT_EQ(decodeValue(58, 0), "");
}

TEST(ValueDecoder, EffectLfoIntensityMirrorsTheFrequencySteps)
{
    for (const Shown& s : {
             Shown{63, -105, "-10.00 Hz"}, Shown{63, -104, "-9.80 Hz"},
             Shown{63, -80, "-5.00 Hz"},   Shown{63, -79, "-4.90 Hz"},
             Shown{63, -50, "-2.00 Hz"},   Shown{63, -49, "-1.96 Hz"},
             Shown{63, -1, "-0.04 Hz"},    Shown{63, 0, "0.00 Hz"},
             Shown{63, 50, "2.00 Hz"},     Shown{63, 51, "2.10 Hz"},
             Shown{63, 79, "4.90 Hz"},     Shown{63, 80, "5.00 Hz"},
             Shown{63, 104, "9.80 Hz"},    Shown{63, 105, "10.00 Hz"},
         })
        expectShown(s);
}

TEST(ValueDecoder, FilterFrequencyFromTwentyHertz)
{
    EXPECT_EQ(decodeValue(29, 0), "20.00 Hz");
    EXPECT_EQ(decodeValue(29, 49), "1.40 kHz");
    EXPECT_EQ(decodeValue(29, 8), "40.00 Hz");
    EXPECT_EQ(decodeValue(29, 19), "103.75 Hz");
}

TEST(ValueDecoder, FrequencyTablesFromTwentyHertzAgree)
{
    for (int value = 0; value <= 49; ++value) {
        EXPECT_EQ(decodeValue(62, value), decodeValue(29, value)) << "value " << value;
        EXPECT_EQ(decodeValue(64, value), decodeValue(29, value)) << "value " << value;
    }
}

TEST(ValueDecoder, FrequencyFromTwoHundredHertz)
{
    EXPECT_EQ(decodeValue(65, 0), "200.00 Hz");
    EXPECT_EQ(decodeValue(65, 46), "10.76 kHz");
}

TEST(ValueDecoder, FrequencyFromFiveHundredHertz)
{
    EXPECT_EQ(decodeValue(69, 0), "500.00 Hz");
    EXPECT_EQ(decodeValue(69, 10), "1.08 kHz");
    EXPECT_EQ(decodeValue(69, 4), "680.40 Hz");
}

TEST(ValueDecoder, FrequencyFromFiftyHertzDoublesEverySixSteps)
{
    EXPECT_EQ(decodeValue(68, 6), "100.00 Hz");
    EXPECT_EQ(decodeValue(68, 24), "800.00 Hz");
    EXPECT_EQ(decodeValue(68, 48), "12.80 kHz");
}

TEST(ValueDecoder, FrequencyOfAThousandHertzOrMoreIsShownInKilohertz)
{
    EXPECT_EQ(decodeValue(69, 8), "925.87 Hz");
    EXPECT_EQ(decodeValue(69, 9), "1.00 kHz");
    EXPECT_EQ(decodeValue(29, 45), "987.01 Hz");
    EXPECT_EQ(decodeValue(29, 46), "1.08 kHz");
    EXPECT_EQ(decodeValue(65, 18), "951.37 Hz");
    EXPECT_EQ(decodeValue(65, 19), "1.04 kHz");
    EXPECT_EQ(decodeValue(68, 25), "897.97 Hz");
    EXPECT_EQ(decodeValue(68, 26), "1.01 kHz");
}

}  // namespace
}  // namespace quillon
