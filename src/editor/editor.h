// The state of the main window in one place: everything the program knows while it runs. The
// commands take it by reference; nothing else is global.
#pragma once

#include <string>

#include "base/numbers.h"
#include "edit/undo_history.h"
#include "editor/dialogs.h"
#include "editor/editor_window.h"
#include "editor/way_back.h"
#include "model/geoset_store.h"
#include "views/drawing_surface.h"
#include "views/markers.h"
#include "views/tool_modes.h"
#include "views/view_state.h"

namespace corvane {

/// The drawing surfaces of the four pictures. Not owned; they outlive the Editor.
struct Pictures {
    DrawingSurface& front;
    DrawingSurface& top;
    DrawingSurface& left;
    DrawingSurface& perspective;
};

/// All that the main window owns, for the lifetime of the window.
struct Editor {
    Pictures pictures;
    EditorWindow& window;
    Dialogs& dialogs;
    UserNumberFormat userNumbers{};

    /// Where the page about decimal separators is, as the warning about commas names it.
    std::string decimalSeparatorPage = "docs/decimal-separator.md";

    GeosetStore store{};
    UndoHistory undo{};
    ToolModes modes{};
    DragPoints drag{};
    ViewStates views{};
    PerspectiveState perspective{};
    MarkerTable markers{};

    /// Where that goes which a command would drop; null where nothing is kept. Outlives the Editor.
    WayBack* wayBack = nullptr;
};

}  // namespace corvane
