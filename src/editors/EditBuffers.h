#pragma once

#include "editors/ArpEditorState.h"
#include "model/DataTypes.h"

#include <array>

namespace quillon {

// The versions of one item's parameter values that the editor keeps.
struct ItemBuffers {
    ParamValues current;     // what is edited, shown, saved and sent
    ParamValues loaded;      // right after the last load, New or save
    ParamValues prevLoaded;  // Current as it stood when the next load or New began
    ParamValues last;        // one level of undo
    ParamValues defaults;    // the values of a new item
    ParamValues user;        // the user's stored values (patch and multiset)
};

// The buffers of the patch, the multiset and the pattern, by Kind. Kinds other
// than 1, 4 and 5 have none, and the operations quietly ignore them.
class EditBuffers {
public:
    // Fills every buffer of each Kind with its default values.
    EditBuffers();

    static bool hasBuffers(int kind);

    ItemBuffers& of(int kind);
    const ItemBuffers& of(int kind) const;

    void updateLoaded(int kind);         // Current to Loaded
    void updatePrevLoaded(int kind);     // Current to PrevLoaded
    // Current to Last; for the pattern also the step on show, which
    // updateCurrentLast puts back into updStepNum with Last.
    void updateLast(int kind);
    void updateCurrentLast(int kind);    // Last to Current
    void updateCurrentDefaults(int kind);  // Defaults to Current

    // The arpeggiator screen's step and tools.
    ArpEditorState arpEditor;

private:
    std::array<ItemBuffers, 3> items_;  // patch, multiset, pattern
};

}  // namespace quillon
