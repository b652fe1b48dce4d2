#include "files/SysExFileLoading.h"

#include "files/AtomicFile.h"
#include "files/LoadFlow.h"
#include "files/SysExFileRecognition.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExFraming.h"
#include "sysex/SysExPacking.h"

#include <optional>
#include <vector>

namespace quillon {

namespace {

constexpr int kLoadHelpContext = 65;

// The boxes of one loader: its title, the text when no message of its kind
// is in the file, and the text when the file cannot be read or the message
// is not of the instrument.
struct LoaderTexts {
    int band;
    const char* title;
    const char* notFound;
    const char* problem;
};

constexpr LoaderTexts kPatchTexts{4, "Load Patch", "Could not find patch data in file", "Problem loading patch file"};
constexpr LoaderTexts kMultisetTexts{7, "Load (Single) Multiset", "Could not find multiset data in file",
                                     "Problem loading multiset file"};
constexpr LoaderTexts kPatternTexts{9, "Load (Single) Arp Pattern", "Could not find arp pattern data in file",
                                    "Problem loading arp pattern file"};
constexpr LoaderTexts kBankTexts{3, "Load Bank", "Could not find bank data in file", "Problem loading bank file"};
constexpr LoaderTexts kMultiBankTexts{6, "Load multibank", "Could not find multibank data in file",
                                      "Problem loading multibank file"};
constexpr LoaderTexts kArpBankTexts{8, "Load Arpeggiator", "Could not find arpeggiator data in file",
                                    "Problem loading arpeggiator file"};

bool fail(AppModel& model, const std::string& title, const std::string& text)
{
    MessageRequest request;
    request.title = title;
    request.text = text;
    request.icon = MessageIcon::Critical;
    request.help = true;
    request.helpContext = kLoadHelpContext;
    model.host().showMessage(request);
    return false;
}

// The file's message as its loader finds it; on any failure the loader's box
// has been shown and nothing is returned.
std::optional<std::vector<std::uint8_t>> findLoaderMessage(AppModel& model, const std::string& path,
                                                           const LoaderTexts& texts)
{
    std::vector<std::uint8_t> file;
    if (!readWholeFile(path, file)) {
        fail(model, texts.title, texts.problem);
        return std::nullopt;
    }
    MessageSearch search = findMessageInFile(file, texts.band);
    if (search.result == SearchResult::Error) {
        fail(model, texts.title, texts.problem);
        return std::nullopt;
    }
    if (search.result == SearchResult::NotFound) {
        fail(model, texts.title, texts.notFound);
        return std::nullopt;
    }
    return std::move(search.message);
}

// The packed data behind the message's header, with the closing F7, when
// the first five bytes are of a type its length accepts.
bool takePackedData(const std::vector<std::uint8_t>& message, SysExImage& packed)
{
    const MessageShape* shape = findMessageShape(message.size());
    if (!shape)
        return false;
    packed.assign(message.begin() + shape->headerBytes, message.end());
    return shape->accepts(classifySysEx(message));
}

bool loadSingleItem(AppModel& model, int kind, const std::string& path, const LoaderTexts& texts)
{
    AppModel::Batch batch(model);
    const auto message = findLoaderMessage(model, path, texts);
    if (!message)
        return false;
    // The packed data is taken even when the header then fails; the values
    // in the editor stay as they were.
    if (!takePackedData(*message, model.packed[kind]))
        return fail(model, texts.title, texts.problem);

    model.itemPath[kind] = path;
    takeSingleItem(model, kind);
    return true;
}

bool loadBank(AppModel& model, int firstOfPair, const std::string& path, const LoaderTexts& texts)
{
    BusyPointer busy(model.host());
    AppModel::Batch batch(model);
    const auto message = findLoaderMessage(model, path, texts);
    if (!message)
        return false;
    const int target = bankNamedBy(*message, firstOfPair);
    SysExImage packed;
    if (!takePackedData(*message, packed))
        return fail(model, texts.title, texts.problem);

    model.saveCancelled = false;
    if (!doPreLoad(model, target))
        return false;
    if (firstOfPair == kPatchBankA)
        model.bankTarget = target;
    else if (firstOfPair == kMultiBankA)
        model.multiBankTarget = target;
    model.packed[target] = std::move(packed);
    model.itemPath[target] = path;
    return true;
}

}  // namespace

bool doLoadPatchFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadSingleItem(model, kPatch, path, kPatchTexts);
}

bool doLoadMultisetFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadSingleItem(model, kMultiset, path, kMultisetTexts);
}

bool doLoadPatternFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadSingleItem(model, kPattern, path, kPatternTexts);
}

bool doLoadBankFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadBank(model, kPatchBankA, path, kBankTexts);
}

bool doLoadMultiBankFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadBank(model, kMultiBankA, path, kMultiBankTexts);
}

bool doLoadArpBankFile(AppModel& model, const std::string& path, std::uintmax_t)
{
    return loadBank(model, kArpBank, path, kArpBankTexts);
}

bool doLoadMiscFile(AppModel& model, const std::string& path, std::uintmax_t fileLength)
{
    model.misc.message.clear();
    const int band = recognizeFileSize(fileLength);
    if (!isMiscBand(band))
        return false;
    std::string name(miscFileName(band));

    std::vector<std::uint8_t> file;
    MessageSearch search;
    if (readWholeFile(path, file))
        search = findMessageInFile(file, band);
    else
        search.result = SearchResult::Error;
    if (search.result == SearchResult::Error)
        return fail(model, "Loading " + name, "Problem loading file");
    if (search.result == SearchResult::NotFound) {
        model.misc.name.clear();
        return fail(model, "Load " + name, "Could not find Z1 data in file");
    }
    model.misc.message = std::move(search.message);
    if (miscWantedLength(band) == 483)
        name = globalOrMidiName(model.misc.message);
    model.misc.name = name;
    return true;
}

}  // namespace quillon
