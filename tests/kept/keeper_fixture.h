// A keeper with a folder and a clock of the test's own, and something to be kept.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "editor_fixture.h"
#include "kept/keeper.h"
#include "model/geoset_reader.h"

namespace corvane {

/// A model with one triangle whose first corner lies at x.
inline std::string triangleAt(int x) {
    return "Version {\n\tFormatVersion 800,\n}\n"
           "Geoset {\n\tVertices 3 {\n\t\t{ " +
           std::to_string(x) +
           ", 0, 0 },\n\t\t{ 0, 1, 0 },\n\t\t{ 0, 0, 1 },\n\t}\n"
           "\tNormals 3 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t}\n"
           "\tTVertices 3 {\n\t\t{ 0, 0 },\n\t\t{ 1, 0 },\n\t\t{ 0, 1 },\n\t}\n"
           "\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t0,\n\t}\n"
           "\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n"
           "\tGroups 1 1 {\n\t\tMatrices { 0 },\n\t}\n\tMaterialID 0,\n}\n";
}

inline SharedBase textOf(const std::string& text, const std::string& path = "/models/hero.mdl") {
    return std::make_shared<const ModelBase>(ModelText(path, text));
}

/// An unsaved edit of a model: its first corner was moved to x.
inline Snapshot editedTo(int x, const std::string& path = "/models/hero.mdl") {
    const SharedBase base = textOf(triangleAt(0), path);
    Snapshot snapshot{.base = base,
                      .geosetNumber = 1,
                      .modelPath = path,
                      .geoset = parseGeoset(base->text, base->geosets, 1)};
    // In the file's order x comes first; in a slot it may stand elsewhere.
    const SharedBase moved = textOf(triangleAt(x), path);
    snapshot.geoset.Vertices = parseGeoset(moved->text, moved->geosets, 1).Vertices;
    return snapshot;
}

class KeeperTest : public testing::Test {
protected:
    TempFolder folder;
    std::atomic<std::int64_t> now{1'700'000'000'000};
    std::vector<std::string> told;  // what could not be kept, "" where it can be again

    std::string kept() const { return folder.path("kept"); }

    std::unique_ptr<Keeper> makeKeeper(const KeptLimits& limits = {},
                                       std::function<void()> beforeWork = {}) {
        auto keeper = std::make_unique<Keeper>(KeeperOptions{.folder = kept(),
                                                             .limits = limits,
                                                             .now = [this] { return now.load(); },
                                                             .beforeWork = std::move(beforeWork)});
        keeper->onState([this](const std::string& failure) { told.push_back(failure); });
        return keeper;
    }

    /// All that is in the folder, whoever kept it, as "model: reason", newest first.
    std::vector<std::string> all() const {
        std::vector<std::string> texts;
        for (const KeptEntry& entry : readEntries(kept())) {
            texts.push_back(std::filesystem::path(entry.modelPath).stem().string() + ": " +
                            reasonText(entry.because));
        }
        return texts;
    }

    /// The models of the entries, newest first.
    std::vector<std::string> models() const {
        std::vector<std::string> texts;
        for (const KeptEntry& entry : readEntries(kept())) {
            texts.push_back(readFile(keptModelPath(kept(), entry.name)));
        }
        return texts;
    }
};

}  // namespace corvane
