#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

struct KindOps {
    int kind;
    int bytes;
    const std::vector<ParamDef>& rows;
    const ParamValues& defaults;
    void (*read)(std::span<const std::uint8_t>, ParamValues&, LoadReport&);
    void (*write)(const ParamValues&, std::span<std::uint8_t>);
};

std::vector<KindOps> allKinds()
{
    const auto& t = paramTables();
    return {
        {kPatch, kPatchBytes, t.patch, t.patchDefaults, imageToPatchParams, patchParamsToImage},
        {kMultiset, kMultiBytes, t.multi, t.multiDefaults, imageToMultiParams, multiParamsToImage},
        {kPattern, kPatternBytes, t.arp, t.arpDefaults, imageToArpParams, arpParamsToImage},
    };
}

ByteImage randomImage(std::mt19937& rng, int bytes)
{
    std::uniform_int_distribution<int> byte(0, 255);
    ByteImage image(bytes);
    for (auto& b : image)
        b = static_cast<std::uint8_t>(byte(rng));
    return image;
}

ParamValues randomValues(std::mt19937& rng, const std::vector<ParamDef>& rows)
{
    ParamValues values(rows.size(), 0);
    for (std::size_t r = 1; r < rows.size(); ++r) {
        std::uniform_int_distribution<int> v(rows[r].min, std::max(rows[r].min, rows[r].max));
        values[r] = static_cast<std::int16_t>(v(rng));
    }
    return values;
}

TEST(ImageRoundTrip, RandomValuesOverARandomImageWriteBackByteIdentical)
{
    std::mt19937 rng(20261122);
    for (const auto& k : allKinds()) {
        for (int round = 0; round < 200; ++round) {
            ByteImage image = randomImage(rng, k.bytes);
            const ParamValues values = randomValues(rng, k.rows);
            k.write(values, image);
            const ByteImage written = image;

            ParamValues readBack = k.defaults;
            LoadReport report;
            k.read(written, readBack, report);
            ByteImage again = written;
            k.write(readBack, again);
            ASSERT_EQ(again, written) << "kind " << k.kind << " round " << round;
        }
    }
}

// A field of w bits tells 2^w values apart. Reserved rows whose range is wider
// than their field (a 1-bit field from -99 to 99, a byte from -255 to 255)
// and the reversed row 691 cannot give back every value; their bits survive
// all the same, which the test above checks.
bool holdsItsWholeRange(int kind, const ParamDef& def)
{
    if (kind == kPatch && def.id == 691)
        return false;
    const int width = def.endB - def.startB + 1;
    return def.max - def.min + 1 <= (1 << width);
}

TEST(ImageRoundTrip, InRangeValuesReadBackAsWritten)
{
    std::mt19937 rng(7);
    for (const auto& k : allKinds()) {
        for (int round = 0; round < 100; ++round) {
            ByteImage image = randomImage(rng, k.bytes);
            const ParamValues values = randomValues(rng, k.rows);
            k.write(values, image);
            ParamValues readBack = values;
            LoadReport report;
            k.read(image, readBack, report);
            for (int r : rowsInForce(k.kind, values)) {
                if (holdsItsWholeRange(k.kind, k.rows[r])) {
                    ASSERT_EQ(readBack[r], values[r]) << "kind " << k.kind << " row " << r;
                }
            }
        }
    }
}

TEST(ImageRoundTrip, RandomRawImageSettlesAfterOneReadAndWrite)
{
    std::mt19937 rng(1999);
    for (const auto& k : allKinds()) {
        for (int round = 0; round < 200; ++round) {
            ByteImage image = randomImage(rng, k.bytes);
            ParamValues values = k.defaults;
            LoadReport report;
            k.read(image, values, report);
            k.write(values, image);
            for (int again = 0; again < 3; ++again) {
                const ByteImage before = image;
                const ParamValues valuesBefore = values;
                LoadReport quiet;
                k.read(image, values, quiet);
                k.write(values, image);
                ASSERT_EQ(image, before) << "kind " << k.kind << " round " << round;
                ASSERT_EQ(values, valuesBefore) << "kind " << k.kind << " round " << round;
                ASSERT_EQ(quiet.changeCount(), 0) << "kind " << k.kind << " round " << round;
            }
        }
    }
}

}  // namespace
}  // namespace quillon
