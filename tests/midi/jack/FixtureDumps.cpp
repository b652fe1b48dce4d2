#include "FixtureDumps.h"

#include "midi/backends/SimulatedZ1.h"
#include "model/Kind.h"
#include "sysex/MessageCatalogue.h"

#include <array>
#include <fstream>

namespace quillon {

std::vector<SysExMessage> fixtureDumps(int channel)
{
    const SimulatedZ1 factory(channel);
    const Z1Memory& memory = factory.memory();
    return {
        factory.dumpFor(0),
        patchBankDump(kPatchBankA, channel, memory.bankB),
        patchBankDump(kPatchBankB, channel, memory.bankA),
        factory.dumpFor(3),
        multiBankDump(kMultiBankA, channel, memory.multiBankB),
        multiBankDump(kMultiBankB, channel, memory.multiBankA),
        factory.dumpFor(6),
        factory.dumpFor(7),
    };
}

std::string fixtureFileName(int requestIndex)
{
    static const std::array<const char*, 8> names{"current-patch.syx", "bank-a.syx",          "bank-b.syx",
                                                  "current-multi.syx", "multi-bank-a.syx",    "multi-bank-b.syx",
                                                  "current-pattern.syx", "arpeggiator-bank.syx"};
    return names.at(static_cast<std::size_t>(requestIndex));
}

bool writeFixtureDumps(const std::filesystem::path& folder)
{
    const auto dumps = fixtureDumps(1);
    for (int i = 0; i < static_cast<int>(dumps.size()); ++i) {
        std::ofstream file(folder / fixtureFileName(i), std::ios::binary);
        const auto& dump = dumps[static_cast<std::size_t>(i)];
        file.write(reinterpret_cast<const char*>(dump.data()), static_cast<std::streamsize>(dump.size()));
        if (!file)
            return false;
    }
    return true;
}

}  // namespace quillon
