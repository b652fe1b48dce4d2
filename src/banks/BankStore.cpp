#include "banks/BankStore.h"

#include "model/BankImage.h"
#include "model/Kind.h"

#include <algorithm>
#include <stdexcept>

namespace quillon {

BankStore::BankStore(KindFlags& flags)
    : flags_(flags),
      patchBanks_{ByteImage(byteImageSize(kPatchBankA), 0), ByteImage(byteImageSize(kPatchBankB), 0)},
      multiBanks_{ByteImage(byteImageSize(kMultiBankA), 0), ByteImage(byteImageSize(kMultiBankB), 0)},
      arpBank_(byteImageSize(kArpBank), 0)
{
}

ByteImage& BankStore::image(int kind)
{
    switch (kind) {
    case kPatchBankA: return patchBanks_[0];
    case kPatchBankB: return patchBanks_[1];
    case kMultiBankA: return multiBanks_[0];
    case kMultiBankB: return multiBanks_[1];
    case kArpBank: return arpBank_;
    default: throw std::out_of_range("no bank of kind " + std::to_string(kind));
    }
}

const ByteImage& BankStore::image(int kind) const { return const_cast<BankStore*>(this)->image(kind); }

namespace {

ByteImage member(const ByteImage& bank, int position, int memberBytes)
{
    const auto first = bank.begin() + static_cast<std::ptrdiff_t>(position) * memberBytes;
    return ByteImage(first, first + memberBytes);
}

}  // namespace

ByteImage BankStore::readBankPatch(int bank, int position) const
{
    return member(image(bank), position, kPatchBytes);
}

ByteImage BankStore::readBankMulti(int bank, int position) const
{
    return member(image(bank), position, kMultiBytes);
}

ByteImage BankStore::readBankPattern(int position) const { return member(arpBank_, position, kPatternBytes); }

void BankStore::writeMember(int kind, int position, int memberBytes, std::span<const std::uint8_t> data)
{
    ByteImage& bank = image(kind);
    auto target = bank.begin() + static_cast<std::ptrdiff_t>(position) * memberBytes;
    const auto count = std::min<std::size_t>(data.size(), static_cast<std::size_t>(memberBytes));
    if (!flags_.changed[kind] && !std::equal(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(count), target))
        flags_.changed[kind] = true;
    std::copy(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(count), target);
}

void BankStore::writeBankPatch(int bank, int position, std::span<const std::uint8_t> data)
{
    writeMember(bank, position, kPatchBytes, data);
}

void BankStore::writeBankMulti(int bank, int position, std::span<const std::uint8_t> data)
{
    writeMember(bank, position, kMultiBytes, data);
}

void BankStore::writeBankPattern(int position, std::span<const std::uint8_t> data)
{
    writeMember(kArpBank, position, kPatternBytes, data);
}

std::string BankStore::bankPatchName(int bank, int position) const
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return {};
    return quillon::bankPatchName(image(bank), flags_.loaded[bank], bank, position);
}

std::string BankStore::bankMultiName(int bank, int position) const
{
    if (bank != kMultiBankA && bank != kMultiBankB)
        return {};
    return quillon::bankMultiName(image(bank), flags_.loaded[bank], bank, position);
}

std::string BankStore::bankPatternName(int position) const
{
    return quillon::bankPatternName(arpBank_, flags_.loaded[kArpBank], position);
}

int BankStore::bankPatchAttribute(int bank, int position, int key) const
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return 0;
    return quillon::bankPatchAttribute(image(bank), position, key);
}

}  // namespace quillon
