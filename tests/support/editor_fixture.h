// An editor without a window: recording pictures, scripted dialogs, a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "editor/editor.h"
#include "scripted_dialogs.h"
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

/// A folder that is deleted in the end.
class TempFolder {
public:
    TempFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// The path of a file in the folder.
    std::string path(const std::string& name) const { return (path_ / name).string(); }

    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    /// The names of everything in the folder, hidden files included, sorted.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            found.push_back(entry.path().filename().string());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    std::filesystem::path path_;
};

inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

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
