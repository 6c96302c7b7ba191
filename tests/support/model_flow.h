// A fixture for the commands that open and write models: real files in a folder of the test's own,
// and dialogs that answer from a list.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "editor_fixture.h"
#include "model/commands/delete_geoset.h"
#include "model/commands/open_model.h"
#include "model/commands/save_model.h"
#include "model_texts.h"
#include "test_models.h"

namespace corvane {

class ModelFlowTest : public EditorTest {
protected:
    void TearDown() override {
        EXPECT_TRUE(dialogs.files.empty()) << "a file dialog did not come";
        EXPECT_TRUE(dialogs.inputs.empty()) << "an input box did not come";
        EXPECT_TRUE(dialogs.yesNos.empty()) << "a question did not come";
    }

    /// The command Open; `geosetAnswer` is typed where the model has several geosets.
    void open(const std::string& path, const std::string& geosetAnswer = "") {
        dialogs.asked.clear();
        dialogs.files.push_back(path);
        if (!geosetAnswer.empty()) dialogs.inputs.push_back(geosetAnswer);
        openCommand(editor);
    }

    /// Writes a model, opens it and forgets what was asked. Returns its path.
    std::string openNew(const std::string& name, const std::string& text,
                        const std::string& geosetAnswer = "") {
        const std::string path = folder.write(name, text);
        open(path, geosetAnswer);
        dialogs.asked.clear();
        return path;
    }

    void save() {
        dialogs.asked.clear();
        corvane::save(editor);
        expectBlocksAsScanned();
    }
    void saveAs(const std::string& path) {
        dialogs.asked.clear();
        dialogs.files.push_back(path);
        corvane::saveAs(editor);
    }
    void saveGeosetAs(const std::string& path) {
        dialogs.asked.clear();
        dialogs.files.push_back(path);
        saveGeoset(editor);
    }

    /// The blocks that are known of the text in memory are those that are in it.
    void expectBlocksAsScanned() const {
        if (!editor.store.modelLoaded) return;
        const ModelBase& base = editor.store.base();
        const auto texts = [&](const std::vector<ModelBlock>& blocks) {
            std::vector<std::string> lines;
            for (const ModelBlock& block : blocks) {
                lines.push_back(std::string(block.keyword) + ' ' + std::to_string(block.begin) +
                                ' ' + std::to_string(block.bodyBegin) + ' ' +
                                std::to_string(block.bodyEnd) + ' ' + std::to_string(block.end) +
                                ' ' + std::to_string(block.strayAt) +
                                (block.closed ? "" : " open"));
            }
            return lines;
        };
        EXPECT_EQ(texts(base.blocks), texts(scanBlocks(base.text.view())));
        EXPECT_EQ(texts(base.geosets), texts(scanGeosets(base.text.view())));
    }

    /// Delete Current Geoset, confirmed.
    void deleteGeoset() {
        dialogs.asked.clear();
        dialogs.yesNos.push_back(true);
        deleteCurrentGeoset(editor);
    }

    /// Flags every vertex deleted.
    void deleteAllVertices() {
        for (VertexRecord& vertex : store().Vertices) vertex.deleted = true;
    }

    /// The kinds of the dialogs that were shown, in order, with blanks between.
    std::string askedKinds() const {
        std::string kinds;
        for (const auto& asked : dialogs.asked) kinds += (kinds.empty() ? "" : " ") + asked.kind;
        return kinds;
    }

    void expectLast(const std::string& kind, const std::string& title, const std::string& text) {
        ASSERT_FALSE(dialogs.asked.empty()) << "nothing was asked";
        EXPECT_EQ(dialogs.last().kind, kind);
        EXPECT_EQ(dialogs.last().title, title);
        EXPECT_EQ(dialogs.last().text, text);
    }

    std::string modelBytes() const { return readFile(editor.store.modelPath); }
    std::string workBytes() const { return readFile(editor.store.workPath); }
    bool hasUndoStep() const { return editor.undo.slots.front().valid; }

    /// All that a command that fails must leave alone.
    struct Before {
        Geoset geoset;
        std::string modelPath;
        std::string workPath;
        int geosetNumber = 0;
        bool modelLoaded = false;
        bool modified = false;
        std::string modelBytes;
        std::string workBytes;
        bool geosetRemoved = false;
        std::vector<std::tuple<bool, std::string, Triple>> undo;
        std::vector<Primitive> drawn;
        std::vector<std::string> names;
    };

    Before remember() const {
        const GeosetStore& now = editor.store;
        Before before{.geoset = now,
                      .modelPath = now.modelPath,
                      .workPath = now.workPath,
                      .geosetNumber = now.geosetNumber,
                      .modelLoaded = now.modelLoaded,
                      .modified = now.isModified(),
                      .modelBytes = modelBytes(),
                      .workBytes = workBytes(),
                      .geosetRemoved = editor.store.isGeosetRemoved(),
                      .undo = {},
                      .drawn = front.primitives(),
                      .names = folder.names()};
        for (const UndoRecord& step : editor.undo.slots) {
            before.undo.emplace_back(step.valid, step.name, step.numbers);
        }
        return before;
    }

    void expectUnchanged(const Before& before) const {
        const Before now = remember();
        EXPECT_EQ(now.geoset, before.geoset);
        EXPECT_EQ(now.modelPath, before.modelPath);
        EXPECT_EQ(now.workPath, before.workPath);
        EXPECT_EQ(now.geosetNumber, before.geosetNumber);
        EXPECT_EQ(now.modelLoaded, before.modelLoaded);
        EXPECT_EQ(now.modified, before.modified);
        EXPECT_EQ(now.modelBytes, before.modelBytes);
        EXPECT_EQ(now.workBytes, before.workBytes);
        EXPECT_EQ(now.geosetRemoved, before.geosetRemoved);
        EXPECT_EQ(now.undo, before.undo);
        EXPECT_EQ(now.drawn, before.drawn);
        EXPECT_EQ(now.names, before.names);
    }
};

}  // namespace corvane
