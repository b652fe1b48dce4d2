#include "model/ValueDecoder.h"

#include "model/DecoderLabels.h"
#include "model/NumberFormat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>

namespace quillon {

namespace {

constexpr int kNoteNameTable = 30;
constexpr int kKeyNameTable = 31;
constexpr int kLfoFrequencyTable = 91;

bool isWithin(int value, int min, int max)
{
    return value >= min && value <= max;
}

// --- Values shown as a whole number with a unit ---

// A value that shows a word instead of its number.
struct ValueWord {
    int value = 0;
    std::string_view word;  // empty: no word
};

// A table that shows the value, moved by an offset, between a prefix and a
// suffix; up to two values show a word instead.
struct NumberTable {
    int table;
    int min;
    int max;
    std::string_view prefix;
    int offset;
    std::string_view suffix;
    std::array<ValueWord, 2> words;
};

constexpr NumberTable kNumberTables[] = {
    {11, 0, 230, "PE no ", 0, "", {}},
    {19, 0, 100, "", 0, " %", {}},
    {20, 0, 15, "", 1, "", {}},
    {26, 0, 255, "", 30, "", {}},
    {35, 0, 15, "GROUP", 1, "", {}},
    {51, 0, 200, "", 0, " msec", {}},
    {57, 0, 16, "", 0, "", {{{0, "0.5"}}}},
    {61, -18, 18, "", 0, " dB", {}},
    {67, 4, 24, "", 0, " bit", {}},
    {78, -1, 99, "", 0, "", {{{-1, "OFF"}}}},
    {94, 0, 12, "", 0, "", {{{0, "OFF"}}}},
    {98, 0, 128, "", 0, "", {{{128, "PRG"}}}},
    {99, 0, 101, "", 0, "", {{{101, "PRG"}}}},
    {100, 0, 16, "", 1, "", {{{16, "GLB"}}}},
    {102, 1, 129, "", 0, "", {{{128, "KEY"}, {129, "STEP"}}}},
    {103, 0, 101, "", 0, "%", {{{101, "STEP"}}}},
    {107, 1, 128, "", 0, "", {{{128, "KEY"}}}},
    {108, 0, 101, "", 0, "%", {{{0, "OFF"}, {101, "LGAT"}}}},
};

const NumberTable* findNumberTable(int table)
{
    const auto* found = std::find_if(std::begin(kNumberTables), std::end(kNumberTables),
                                     [table](const NumberTable& t) { return t.table == table; });
    return found == std::end(kNumberTables) ? nullptr : found;
}

std::string showNumber(const NumberTable& numberTable, int value)
{
    if (!isWithin(value, numberTable.min, numberTable.max))
        return {};
    for (const ValueWord& word : numberTable.words) {
        if (!word.word.empty() && word.value == value)
            return std::string(word.word);
    }
    std::string text(numberTable.prefix);
    text += std::to_string(value + numberTable.offset);
    text += numberTable.suffix;
    return text;
}

// A change away from a centre, in cents or percent: "-5 cent", "0 cent",
// "+5 cent". Only the centre itself goes without a sign.
std::string showChange(int value, int min, int max, std::string_view unit)
{
    if (!isWithin(value, min, max))
        return {};
    std::string text = value > 0 ? "+" : "";
    text += std::to_string(value);
    text += unit;
    return text;
}

// Pan from "LEFT 64" through "CENTRE" at 64 to "RIGHT 63".
std::string showPan(int value)
{
    if (!isWithin(value, 0, 127))
        return {};
    if (value < 64)
        return "LEFT " + std::to_string(64 - value);
    if (value == 64)
        return "CENTRE";
    return "RIGHT " + std::to_string(value - 64);
}

// Delay times grow in steps of 1 msec up to 50, of 2 msec up to 300 and of
// 5 msec up to 680.
std::string showDelayTime(int value)
{
    if (!isWithin(value, 0, 251))
        return {};
    int milliseconds = value;
    if (value > 175)
        milliseconds = (value - 175) * 5 + 300;
    else if (value > 50)
        milliseconds = (value - 50) * 2 + 50;
    return std::to_string(milliseconds) + " msec";
}

// The Z1 names keys with the octave number changing at A, not at C: key 8 is
// G#-1, key 9 is A0, key 12 is C0 and key 21 is A1.
std::string nameKey(int value)
{
    if (!isWithin(value, 0, 127))
        return {};
    const int octave = (value + 3) / 12 - 1;
    return std::string(findLabel(kNoteNameTable, value % 12).value_or("")) +
           std::to_string(octave);
}

// The tables whose text is worked out by a rule of their own.
std::string showOtherNumber(int table, int value)
{
    switch (table) {
    case 0:
        return std::to_string(value);
    case 16:  // one character of a name, in ASCII
        return isWithin(value, 32, 127) ? std::string(1, static_cast<char>(value)) : "";
    case 18:
        return showChange(value, -50, 99, " cent");
    case 38:
        return showPan(value);
    case 52:
        return showDelayTime(value);
    case 93:
        return isWithin(value, 0, 127) ? formatNumber(value, "000") : "";
    case 101:
        return showChange(value, -50, 50, " cent");
    case 104:
        return showChange(value, -50, 50, "%");
    default:
        return {};
    }
}

// --- Values shown with decimals ---

enum class Step { Multiply, Divide, PowerOfTwo };

// One row of a computed table: x is (value + offset) multiplied or divided by
// the operand, or 2 raised to (value + offset) / operand, and then add is
// added. x is held in single precision, so the last digit shown is that of a
// 32-bit float, as the program has always shown it. Where x is a whole number
// the float holds it exactly and it is written with the same format.
struct ComputedRow {
    int table;
    int min;
    int max;
    int offset;
    Step step;
    double operand;
    double add;
    std::string_view format;
    std::string_view unit;
};

constexpr ComputedRow kComputedRows[] = {
    {22, -50, 100, 0, Step::Multiply, 0.02, 0, "0.00", ""},
    {23, -100, 100, 0, Step::Multiply, 0.1, 0, "#0.0", ""},
    {25, -36, 36, 0, Step::Multiply, 0.5, 0, "#0.0", " dB"},
    {28, 0, 49, 0, Step::PowerOfTwo, 10, 0, "#0.00", " kHz"},
    {53, 0, 100, 0, Step::Divide, 10, 0, "#0.0", " msec"},
    {53, 101, 140, -100, Step::Multiply, 1, 10, "#0.0", " msec"},
    // Reverb times: the instrument counts them in seconds, but the program has
    // always written " msec" after them, and Quillon keeps that.
    {54, 1, 100, 0, Step::Divide, 10, 0, "#0.0", " msec"},
    {55, 1, 30, 0, Step::Divide, 10, 0, "0.0", " msec"},
    {56, 0, 95, 0, Step::Divide, 10, 0.5, "#0.0", ""},
    // LFO frequencies of the effects, finer at the slow end.
    {58, 1, 50, 0, Step::Divide, 25, 0, "#0.00", " Hz"},
    {58, 51, 80, -50, Step::Divide, 10, 2, "#0.00", " Hz"},
    {58, 81, 105, -80, Step::Divide, 5, 5, "#0.00", " Hz"},
    {58, 106, 115, -105, Step::Multiply, 1, 10, "#0.00", " Hz"},
    {59, 5, 120, 0, Step::Divide, 5, 0, "#0.0", " kHz"},
    // How far a modulation moves those frequencies, in either direction.
    {63, -115, -105, 95, Step::Multiply, 1, 0, "#0.00", " Hz"},
    {63, -104, -80, 80, Step::Divide, 5, -5, "#0.00", " Hz"},
    {63, -79, -50, 50, Step::Divide, 10, -2, "#0.00", " Hz"},
    {63, -49, 50, 0, Step::Divide, 25, 0, "#0.00", " Hz"},
    {63, 51, 79, -50, Step::Divide, 10, 2, "#0.00", " Hz"},
    {63, 80, 104, -80, Step::Divide, 5, 5, "#0.00", " Hz"},
    {63, 105, 115, -95, Step::Multiply, 1, 0, "#0.00", " Hz"},
    {66, -120, 120, 0, Step::Divide, 5, 0, "#0.0", " kHz"},
    // LFO frequency; 0 shows "0 Hz" on its own.
    {91, 1, 49, 1, Step::Multiply, 0.02, 0, "0.00", " Hz"},
    {91, 50, 69, -49, Step::Multiply, 0.05, 1, "0.00", " Hz"},
    {91, 70, 148, -69, Step::Multiply, 0.1, 2, "0.00", " Hz"},
    {91, 149, 199, -149, Step::Multiply, 1, 10, "00.0", " Hz"},
};

bool hasComputedRows(int table)
{
    return std::any_of(std::begin(kComputedRows), std::end(kComputedRows),
                       [table](const ComputedRow& row) { return row.table == table; });
}

float computeX(const ComputedRow& row, int value)
{
    const double moved = value + row.offset;
    double x = 0;
    switch (row.step) {
    case Step::Multiply:
        x = moved * row.operand;
        break;
    case Step::Divide:
        x = moved / row.operand;
        break;
    case Step::PowerOfTwo:
        x = std::pow(2.0, moved / row.operand);
        break;
    }
    return static_cast<float>(x + row.add);
}

std::string showComputed(int table, int value)
{
    for (const ComputedRow& row : kComputedRows) {
        if (row.table == table && isWithin(value, row.min, row.max))
            return formatNumber(computeX(row, value), row.format) + std::string(row.unit);
    }
    return {};
}

// Frequencies that double every few steps: f = 2^(value / divisor) × base
// for the values 0 to 49, shown in Hz below 1000 Hz and in kHz from there.
struct FrequencyCurve {
    int table;
    double divisor;
    double base;
    std::string_view kilohertzFormat;
};

constexpr FrequencyCurve kFrequencyCurves[] = {
    {29, 8, 20, "0.00"},   {62, 8, 20, "0.00"},  {64, 8, 20, "0.00"},
    {65, 8, 200, "#0.00"}, {68, 6, 50, "#0.00"}, {69, 9, 500, "#0.00"},
};

const FrequencyCurve* findFrequencyCurve(int table)
{
    const auto* found = std::find_if(std::begin(kFrequencyCurves), std::end(kFrequencyCurves),
                                     [table](const FrequencyCurve& c) { return c.table == table; });
    return found == std::end(kFrequencyCurves) ? nullptr : found;
}

std::string showFrequency(const FrequencyCurve& curve, int value)
{
    if (!isWithin(value, 0, 49))
        return {};
    const auto hertz = static_cast<float>(std::pow(2.0, value / curve.divisor) * curve.base);
    if (hertz >= 1000.0f)
        return formatNumber(hertz / 1000.0f, curve.kilohertzFormat) + " kHz";
    return formatNumber(hertz, "##0.00") + " Hz";
}

}  // namespace

std::string decodeValue(int table, int value)
{
    if (hasLabels(table))
        return std::string(findLabel(table, value).value_or(""));
    if (table == kKeyNameTable)
        return nameKey(value);
    if (const NumberTable* numberTable = findNumberTable(table))
        return showNumber(*numberTable, value);
    if (const FrequencyCurve* curve = findFrequencyCurve(table))
        return showFrequency(*curve, value);
    if (table == kLfoFrequencyTable && value == 0)
        return "0 Hz";
    if (hasComputedRows(table))
        return showComputed(table, value);
    return showOtherNumber(table, value);
}

}  // namespace quillon
