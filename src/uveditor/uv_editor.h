// The texture editor's own data: copies of the geoset's texture coordinates, and how its view
// looks at them. Nothing here reaches the geoset until the user saves the changes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "dialogs.h"
#include "model/geoset_store.h"
#include "views/drawing_surface.h"
#include "views/tool_modes.h"

namespace corvane {

struct Editor;

/// What is handed over to the texture editor, one entry a vertex (a face).
struct UVData {
    std::vector<double> u;
    std::vector<double> v;
    std::vector<bool> deleted;
    std::vector<bool> selected;
    /// 0-based vertex indices; the faces' own deleted flags do not come along.
    std::vector<std::array<std::int16_t, 3>> faces;
};

/// What the texture editor asks of its window. Kept narrow so that a test can stand in for it.
class UVWindow {
public:
    virtual ~UVWindow() = default;

    /// Brings buttons and title in line with the editor's state.
    virtual void updateButtons() = 0;

    /// Loads a picture for the background. Nothing where it was loaded; else the reason why not,
    /// and the picture that was there stays.
    virtual std::string loadPicture(const std::string& path) = 0;
};

/// All that the texture editor owns, for as long as its window exists.
struct UVEditor {
    DrawingSurface& picture;  ///< the view, in pixels
    UVWindow& window;
    Dialogs& dialogs;

    UVData data;
    bool dataReceived = false;
    bool unsaved = false;  ///< coordinates were changed that Save Changes has not written yet
    /// The coordinates as Save Changes last wrote them to the geoset; empty after a hand-over.
    std::vector<double> savedU;
    std::vector<double> savedV;

    bool imageLoaded = false;
    std::string imagePath;

    double zoom = 1.0;      ///< about the view's centre
    std::int32_t panX = 0;  ///< pixels, added after zooming
    std::int32_t panY = 0;

    SelectMode selectMode = SelectMode::Select;
    TransformMode transformMode = TransformMode::Move;  ///< never Extrude
    bool xEnabled = true;
    bool yEnabled = true;

    /// The drag, in texture coordinates.
    double uStart = 0;
    double vStart = 0;
    double uEnd = 0;
    double vEnd = 0;
};

}  // namespace corvane
