// A received or loaded message taken apart for every Kind: STRINGtoMIDI
// strips it to its packed data, MIDItoDATA unpacks it, and the image is read
// into parameter values (each member of a bank on its own), named, shown as
// text and packed back. The packed data is also unpacked directly as each
// Kind, the miscellaneous dumps included.
//
// The first byte of the input picks the message length (one of the eight
// that carry an item, else the input's own), and the bank and multi bank the
// message goes to; the second the Kind the data is also unpacked as, the
// third the member of a bank that is read; the rest is the message, filled
// up with zeros to the length picked.

#include "FuzzSupport.h"

#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "sysex/SysExFraming.h"
#include "sysex/SysExPacking.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace {

using namespace quillon;

const std::vector<ParamDef>& defsOf(int kind)
{
    const ParamTables& tables = paramTables();
    return kind == kPatch ? tables.patch : kind == kMultiset ? tables.multi : tables.arp;
}

// Rows shown as text per item: a window of them, placed by the input, keeps
// each run short.
constexpr std::size_t kShownRows = 64;

// An item's image read into values, some values shown as the screen shows
// them, and written back.
void readItem(int kind, std::span<const std::uint8_t> image, int chosen, LoadReport& report)
{
    ParamValues values = makeParamValues(kind);
    imageToParams(kind, image, values, report);
    const std::vector<ParamDef>& defs = defsOf(kind);
    const std::size_t rows = std::min(defs.size(), values.size());
    const std::size_t first = 1 + static_cast<std::size_t>(chosen) * kShownRows % rows;
    for (std::size_t row = first; row < rows && row < first + kShownRows; ++row)
        decodeValue(defs[row].table, values[row]);
    std::vector<std::uint8_t> written(image.begin(), image.end());
    paramsToImage(kind, values, written);
    DATAtoMIDI(kind, written);
}

// The members of a bank named one by one, as the bank screen names them,
// and one of them (`chosen`) read as the take-out reads it.
void readBank(int kind, const ByteImage& image, int chosen, LoadReport& report)
{
    const bool patches = kind == kPatchBankA || kind == kPatchBankB;
    const bool multis = kind == kMultiBankA || kind == kMultiBankB;
    const int itemKind = patches ? kPatch : multis ? kMultiset : kPattern;
    const int members = patches ? kPatchesPerBank : multis ? kMultisPerBank : kPatternsPerBank;
    const std::size_t bytes = static_cast<std::size_t>(byteImageSize(itemKind));
    // One member before the first and one past the last, which name nothing.
    for (int member = -1; member <= members; ++member) {
        if (patches) {
            bankPatchName(image, true, kind, member);
            for (int field = 0; field <= 11; ++field)
                bankPatchAttribute(image, member, field);
        } else if (multis) {
            bankMultiName(image, true, kind, member);
        } else {
            bankPatternName(image, true, member);
        }
        if (member != chosen % members)
            continue;
        const std::size_t from = static_cast<std::size_t>(member) * bytes;
        if (from + bytes <= image.size())
            readItem(itemKind, std::span<const std::uint8_t>(image).subspan(from, bytes), chosen, report);
    }
    DATAtoMIDI(kind, image);
}

void readImage(int kind, const ByteImage& image, int chosen, LoadReport& report)
{
    if (kind == kPatch || kind == kMultiset || kind == kPattern)
        readItem(kind, image, chosen, report);
    else if (kind >= kPatchBankA && kind <= kArpBank)
        readBank(kind, image, chosen, report);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::InputReader input(data, size);
    const std::uint8_t choice = input.byte();
    const std::uint8_t directKind = input.byte();
    const std::uint8_t member = input.byte();
    const std::span<const std::uint8_t> rest = input.rest();

    std::vector<std::uint8_t> message(rest.begin(), rest.end());
    const std::span<const MessageShape> shapes = messageShapes();
    const std::size_t shape = choice % (shapes.size() + 1);
    if (shape < shapes.size())
        message.resize(static_cast<std::size_t>(shapes[shape].length), 0);
    const int bankTarget = (choice & 0x10) ? kPatchBankB : kPatchBankA;
    const int multiBankTarget = (choice & 0x20) ? kMultiBankB : kMultiBankA;

    LoadReport report;
    StringToMidiResult framed = STRINGtoMIDI(message, bankTarget, multiBankTarget);
    if (framed.handled && framed.success) {
        const ByteImage image = MIDItoDATA(framed.target, framed.packed, report);
        readImage(framed.target, image, member, report);
        // A second unpacking of the same buffer reports the high bits again.
        MIDItoDATA(framed.target, framed.packed, report);
    }

    // The packed data as it stands, unpacked as each Kind (0 and 10 are
    // none).
    const int kind = directKind % 11;
    SysExImage packed(rest.begin(), rest.end());
    const ByteImage image = MIDItoDATA(kind, packed, report);
    readImage(kind, image, member, report);
    return 0;
}
