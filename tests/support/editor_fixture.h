// An editor without a window: recording pictures, scripted dialogs, a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editor/editor.h"
#include "scripted_dialogs.h"
#include "temp_folder.h"
#include "uveditor/commands/uv_editor.h"
#include "views/recording_surface.h"

namespace corvane {

/// Stands in for the main window.
class TestWindow : public EditorWindow {
public:
    void updateButtons() override {
        ++buttonUpdates;
        if (onUpdateButtons) onUpdateButtons();
    }
    void showTip(const std::string& text) override { tip = text; }
    void showNotice(const std::string& text) override { notice = text; }
    void startSelectTimer() override { ++timerStarts; }
    void showTextureEditor(UVData data) override { textureData = std::move(data); }
    void copyText(const std::string& text) override { clipboard = text; }
    void showRecover() override { ++recoverShown; }

    int buttonUpdates = 0;
    int timerStarts = 0;
    int recoverShown = 0;
    std::string tip;
    std::string notice;
    std::string clipboard;
    std::optional<UVData> textureData;      ///< what the texture editor was last shown with
    std::function<void()> onUpdateButtons;  ///< called whenever the buttons are refreshed
};

/// The size of the main window's pictures at the start, twips.
inline constexpr double kPictureWidth = 3135;
inline constexpr double kPictureHeight = 3015;

class EditorTest : public testing::Test {
protected:
    RecordingSurface front{kPictureWidth, kPictureHeight};
    RecordingSurface top{kPictureWidth, kPictureHeight};
    RecordingSurface left{kPictureWidth, kPictureHeight};
    RecordingSurface perspective{kPictureWidth, kPictureHeight};
    TestWindow window;
    ScriptedDialogs dialogs;
    TempFolder folder;
    Editor editor{.pictures = {front, top, left, perspective},
                  .window = window,
                  .dialogs = dialogs,
                  .userNumbers = {}};

    GeosetStore& store() { return editor.store; }

    /// Puts vertices at these positions (slot order) into the store, as if a model were open.
    void loadVertices(const std::vector<Triple>& positions) {
        store().Vertices.clear();
        for (const Triple& pos : positions) {
            VertexRecord vertex;
            vertex.pos = pos;
            store().Vertices.push_back(vertex);
        }
        store().modelLoaded = true;
    }

    /// Adds a face with these 0-based corners.
    void addFace(int a, int b, int c) {
        FaceRecord face;
        face.corner = {static_cast<std::int16_t>(a), static_cast<std::int16_t>(b),
                       static_cast<std::int16_t>(c)};
        store().Faces.push_back(face);
    }

    /// Selects exactly the vertices with these 1-based numbers.
    void select(const std::vector<int>& numbers) {
        for (VertexRecord& vertex : store().Vertices) vertex.selected = false;
        for (const int number : numbers) {
            store().Vertices.at(static_cast<std::size_t>(number) - 1).selected = true;
        }
    }

    /// The vertex with a 1-based number.
    VertexRecord& vertex(int number) {
        return store().Vertices.at(static_cast<std::size_t>(number) - 1);
    }
};

}  // namespace corvane
