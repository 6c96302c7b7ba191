// Editors without a window, for measuring, and the large model's file.
#pragma once

#include <stdexcept>
#include <string>

#include "editor_fixture.h"
#include "large_model.h"
#include "model/commands/open_model.h"
#include "model/commands/save_model.h"

namespace corvane {

/// Takes what is drawn and does nothing with it.
class IdleSurface : public DrawingSurface {
public:
    IdleSurface(double width, double height) : width_(width), height_(height) {}

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override {}
    void line(double, double, double, double, Colour) override {}
    void box(double, double, double, double, Colour) override {}
    void circle(double, double, double, Colour) override {}
    void image(double, double, double, double) override {}

private:
    double width_;
    double height_;
};

/// An editor whose four pictures are surfaces of one kind, in their size at the start.
template <class Surface>
struct BenchEditor {
    Surface front{kPictureWidth, kPictureHeight};
    Surface top{kPictureWidth, kPictureHeight};
    Surface left{kPictureWidth, kPictureHeight};
    Surface perspective{kPictureWidth, kPictureHeight};
    TestWindow window;
    ScriptedDialogs dialogs;
    Editor editor{.pictures = {front, top, left, perspective},
                  .window = window,
                  .dialogs = dialogs,
                  .userNumbers = {}};

    /// Puts the sphere at the format's limits into the store, as if a model were open.
    void loadSphere() {
        static_cast<Geoset&>(editor.store) = sphereAtLimit(kFittingRadius);
        editor.store.modelLoaded = true;
    }

    /// The command Open, for the large model.
    void open(const std::string& path) {
        dialogs.files.emplace_back(path);
        dialogs.inputs.emplace_back(std::to_string(kEditedGeoset));
        openCommand(editor);
        expectNoMessage();
    }

    /// The command Save.
    void save() {
        corvane::save(editor);
        expectNoMessage();
    }

private:
    // A measurement of something that failed would mislead.
    void expectNoMessage() {
        for (const auto& asked : dialogs.asked) {
            if (asked.kind == "message") throw std::runtime_error(asked.text);
        }
        dialogs.asked.clear();
    }
};

/// The large model in a folder of its own.
class LargeModelFile {
public:
    LargeModelFile() {
        std::ofstream out(path(), std::ios::binary);
        writeLargeModel(out);
        if (!out.flush()) throw std::runtime_error(path() + " cannot be written");
    }

    std::string path() const { return folder_.path("large.mdl"); }
    std::string copyPath() const { return folder_.path("copy.mdl"); }
    double size() const { return static_cast<double>(std::filesystem::file_size(path())); }

private:
    TempFolder folder_;
};

}  // namespace corvane
