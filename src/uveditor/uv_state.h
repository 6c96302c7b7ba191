// The texture editor's own data: copies of the geoset's texture coordinates, and how its view
// looks at them. Nothing here reaches the geoset until the user saves the changes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/geoset.h"
#include "base/tool_mode.h"
#include "views/drawing_surface.h"

namespace corvane {

/// What is handed over to the texture editor, one entry a vertex (a face).
struct UVData {
    std::vector<double> u;
    std::vector<double> v;
    std::vector<bool> deleted;
    std::vector<bool> selected;
    /// 0-based vertex indices; the faces' own deleted flags do not come along.
    std::vector<std::array<std::int16_t, 3>> faces;
};

/// Copies of what the texture editor works on.
UVData uvDataOf(const Geoset& geoset);

/// What the texture editor knows, for as long as its window exists.
struct UVState {
    DrawingSurface& picture;  ///< the view, in pixels

    UVData data{};
    bool dataReceived = false;
    /// The mesh that the data was taken from, and the one that Save Changes wrote to last, as
    /// Revisions::mesh() counts them.
    std::optional<std::uint64_t> takenFrom{};
    std::optional<std::uint64_t> savedTo{};
    /// How many of the geoset's first vertices are still those that the data was taken from.
    std::size_t same = 0;
    bool undone = false;   ///< Undo took coordinates back that Save Changes had written
    bool unsaved = false;  ///< coordinates were changed that Save Changes has not written yet
    /// The coordinates as Save Changes last wrote them to the mesh `savedTo`, or as they were taken
    /// from it since.
    std::vector<double> savedU{};
    std::vector<double> savedV{};

    bool imageLoaded = false;
    bool imageChosen = false;   ///< by the user; otherwise it is the model's own texture
    std::string imagePath{};    ///< of the picture under the view
    std::string lastPicture{};  ///< chosen last in the file dialog or taken from the model; whether
                                ///< or not it could be read

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
