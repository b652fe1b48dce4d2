#include "files/FactoryFiles.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/SystemSettingsFile.h"
#include "model/ParamTables.h"

#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

namespace quillon {

namespace {

// Made at build time from files/data/pe-destinations.tsv.
const char* const kPeDestinationNames[] = {
#include "files/data/PeDestinations.inc"
};

GenerationSettings factoryGeneration(int percentage)
{
    GenerationSettings g;
    // The main groups, as "Select main" chooses them.
    g.eg.fill(true);
    g.lfo.fill(true);
    g.osc.fill(true);
    g.fx.fill(true);
    g.filter.fill(true);
    g.varEG = g.varLFO = g.varOSC = g.varSONO = g.varFX = g.varFilter = percentage;
    g.varModInt = g.varAmpEG = g.varCSS = percentage;
    g.resetAll = percentage;
    return g;
}

std::vector<std::string> valueLines(const ParamValues& values)
{
    std::vector<std::string> lines;
    for (std::size_t p = 1; p < values.size(); ++p)
        lines.push_back(std::to_string(values[p]));
    return lines;
}

std::string peRecords()
{
    std::string records;
    for (const char* name : kPeDestinationNames) {
        std::string record(name);
        record.resize(kPeRecordLength, ' ');
        records += record;
    }
    return records;
}

bool writeSettingsBackup(const std::filesystem::path& file)
{
    return writeLinesAtomically(file, systemSettingsLines(factorySystemSettings()));
}

bool writeUserPatchBackup(const std::filesystem::path& file)
{
    return writeLinesAtomically(file, valueLines(paramTables().patchDefaults));
}

bool writeUserMultiBackup(const std::filesystem::path& file)
{
    return writeLinesAtomically(file, valueLines(paramTables().multiDefaults));
}

bool writePeBackup(const std::filesystem::path& file)
{
    const std::string records = peRecords();
    return writeFileAtomically(file,
                               std::span(reinterpret_cast<const std::uint8_t*>(records.data()), records.size()));
}

struct FactoryFile {
    const char* name;
    bool (*write)(const std::filesystem::path& file);
};

const FactoryFile kFactoryFiles[] = {
    {kSystemSettingsBackup, writeSettingsBackup},
    {kUserPatchBackup, writeUserPatchBackup},
    {kUserMultiBackup, writeUserMultiBackup},
    {kPeBackup, writePeBackup},
};

}  // namespace

SystemSettings factorySystemSettings()
{
    SystemSettings s;
    s.takeStoredView = false;
    s.storedFrameMode = s.frameMode = 1;
    for (std::size_t k = 1; k <= 5; ++k)
        s.storedShowMode[k] = s.showMode[k] = 1;  // tree mode
    s.suggestNames = true;
    s.fileNameFormat = 0;
    s.userFileNumber = 0;
    s.random = factoryGeneration(20);
    s.spread = factoryGeneration(20);
    s.inputDevice = s.outputDevice = 0;
    s.inputChannel = s.outputChannel = 1;
    s.toneLength = 10;  // one second
    s.toneVelocity = 100;
    s.tonePitch = 60;  // middle C
    s.soundShow = {5, 1, 20, 5};
    s.graphicEnvelope = true;
    s.modulationShow = true;
    s.recentFilesShown = 0;
    s.recentFilesMax = 10;
    return s;
}

std::span<const char* const> peDestinationNames() { return kPeDestinationNames; }

bool installFactoryFiles(const std::filesystem::path& dataFolder)
{
    bool allWritten = true;
    for (const FactoryFile& factory : kFactoryFiles) {
        const std::filesystem::path file = dataFolder / factory.name;
        std::error_code error;
        if (!std::filesystem::exists(file, error) && !factory.write(file))
            allWritten = false;
    }
    return allWritten;
}

}  // namespace quillon
