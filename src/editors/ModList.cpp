#include "editors/ModList.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/ValueBox.h"
#include "editors/ValueGestures.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/ValueDecoder.h"
#include "output/ListFormat.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

const ModRow* rowAt(const ModList& list, int row)
{
    if (row < 0 || row >= kModScreenRows || !list.screen[static_cast<std::size_t>(row)].visible)
        return nullptr;
    const int index = list.ModOffset + row;
    return index >= 0 && index < static_cast<int>(list.rows.size()) ? &list.rows[static_cast<std::size_t>(index)]
                                                                     : nullptr;
}

int valueOf(const AppModel& model, int param)
{
    return model.buffers.of(kPatch).current[static_cast<std::size_t>(param)];
}

// The spin control takes a value: within its limits, and the box follows.
void setSpin(AppModel& model, ModList& list, int row, int value)
{
    const ModRow* source = rowAt(list, row);
    if (!source)
        return;
    changeModValue(model, list, row, std::to_string(std::clamp(value, source->Min, std::max(source->Min, source->Max))));
}

std::string column(std::string text)
{
    if (static_cast<int>(text.size()) < kModPrintColumn)
        text.resize(static_cast<std::size_t>(kModPrintColumn), ' ');
    return text;
}

}  // namespace

bool canOpenModSources(AppModel& model)
{
    if (model.flags.loaded[kPatch])
        return true;
    showInformation(model.host(), kModSourcesTitle, "No patch loaded", kModSourcesHelp);
    return false;
}

void buildModList(const AppModel& model, ModList& list)
{
    const ParamValues& current = model.buffers.of(kPatch).current;
    const bool selectedOnly = model.settings.modulationShow;
    list.rows = collectModRows(current, selectedOnly);
    list.showHead = selectedOnly ? kModShowSelected : kModShowAll;
    list.title = "Modulation sources [" + trimmedRight(nameFromParams(current)) + "]";
    const int count = static_cast<int>(list.rows.size());
    list.scrollEnabled = count >= kModScreenRows;
    list.scrollMax = list.scrollEnabled ? count - (kModScreenRows - 1) : 0;
    list.ModOffset = std::clamp(list.ModOffset, 0, list.scrollMax);
}

void showModRows(const AppModel& model, ModList& list)
{
    for (int r = 0; r < kModScreenRows; ++r) {
        ModScreenRow& screen = list.screen[static_cast<std::size_t>(r)];
        const int index = list.ModOffset + r;
        if (index < 0 || index >= static_cast<int>(list.rows.size())) {
            screen.visible = false;
            continue;
        }
        const ModRow& row = list.rows[static_cast<std::size_t>(index)];
        screen.visible = true;
        screen.sect = row.Section;
        screen.subsect = row.Subsection;
        screen.paramName = row.ParamName;
        // Limits wide first, then the value, then the source's own range, so
        // that the range of the row shown before cannot clamp the value.
        screen.min = row.Min;
        screen.max = std::max(row.Min, row.Max);
        screen.value = std::clamp(valueOf(model, row.Param), screen.min, screen.max);
        screen.valueText = std::to_string(valueOf(model, row.Param));
        screen.decode = decodeValue(row.Table, valueOf(model, row.Param));
    }
}

void scrollModList(const AppModel& model, ModList& list, int offset)
{
    if (!list.scrollEnabled)
        return;
    list.ModOffset = std::clamp(offset, 0, list.scrollMax);
    showModRows(model, list);
}

void changeModValue(AppModel& model, ModList& list, int row, const std::string& text)
{
    const ModRow* source = rowAt(list, row);
    if (!source)
        return;
    ModScreenRow& screen = list.screen[static_cast<std::size_t>(row)];
    int value = boxNumber(text);
    screen.valueText = text;
    if (value > source->Max || value < source->Min) {
        value = value > source->Max ? source->Max : source->Min;
        screen.valueText = std::to_string(value);
    }
    model.buffers.of(kPatch).current[static_cast<std::size_t>(source->Param)] = static_cast<std::int16_t>(value);
    screen.value = value;
    screen.decode = decodeValue(source->Table, value);
    model.changed(kBuffersChanged);
}

void doubleClickModValue(AppModel& model, ModList& list, int row)
{
    const ModRow* source = rowAt(list, row);
    if (!source)
        return;
    const ModScreenRow& screen = list.screen[static_cast<std::size_t>(row)];
    changeModValue(model, list, row,
                   std::to_string(doubleClickedValue(boxNumber(screen.valueText), screen.min, screen.max)));
}

void doubleClickModName(AppModel& model, ModList& list, int row)
{
    if (const ModRow* source = rowAt(list, row))
        setSpin(model, list, row, model.buffers.of(kPatch).user[static_cast<std::size_t>(source->Param)]);
}

void doubleClickModDecode(AppModel& model, ModList& list, int row)
{
    if (const ModRow* source = rowAt(list, row))
        setSpin(model, list, row, model.buffers.of(kPatch).loaded[static_cast<std::size_t>(source->Param)]);
}

void stepModValue(AppModel& model, ModList& list, int row, bool up)
{
    if (!rowAt(list, row))
        return;
    const ModScreenRow& screen = list.screen[static_cast<std::size_t>(row)];
    setSpin(model, list, row, spinStep(screen.value, screen.min, screen.max, up));
}

bool goToModSubsection(AppModel& model, const ModList& list, int row)
{
    const ModRow* source = rowAt(list, row);
    if (!source)
        return false;
    const int subsection = subsectionOfPatchParam(source->Param);
    AppModel::Batch batch(model);
    if (model.mode != kPatch) {
        model.labels.showLabelHighlight(kPatch);
        model.changed(kLabelsChanged);
        setUpSendMenu(model, kPatch);
        setUpScreen(model, kPatch);
    }
    const int frame = fnFrame(model, kPatch);
    fraPatchHeaders(model, frame, 0, subsection);
    return true;
}

void closeModList(AppModel& model) { fraPatchDisplayRefresh(model); }

void resetModSources(AppModel& model, ModList& list)
{
    if (!askYesNo(model.host(), kResetModTitle, kResetModQuestion, kModSourcesHelp))
        return;
    ParamValues& current = model.buffers.of(kPatch).current;
    for (const ModRow& row : list.rows)
        current[static_cast<std::size_t>(row.Param)] = static_cast<std::int16_t>(row.Min);
    zeroIntensity(model);
    buildModList(model, list);
    showModRows(model, list);
}

std::vector<std::string> modListPrintLines(const AppModel& model, const ModList& list)
{
    const ParamValues& current = model.buffers.of(kPatch).current;
    std::vector<std::string> lines;
    lines.push_back(trimmedRight(nameFromParams(current)));
    lines.push_back(column("Section") + column("Subsection") + column("Parameter") + "Modulator");
    for (const ModRow& row : list.rows) {
        lines.push_back(column(row.Section) + column(row.Subsection) + column(row.ParamName) +
                        decodeValue(row.Table, current[static_cast<std::size_t>(row.Param)]));
    }
    return lines;
}

}  // namespace quillon
