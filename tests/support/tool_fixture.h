// A fixture for the tools that change the geoset: everything a tool must leave alone, and the step
// that it records, compared whole.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "edit/undo_history.h"
#include "editor/run_edit.h"
#include "editor_fixture.h"
#include "test_commands.h"
#include "views/ortho_view.h"

namespace corvane {

/// All fields of a vertex on one line.
inline std::string vertexText(const VertexRecord& vertex) {
    std::ostringstream out;
    out.precision(17);
    out << "pos";
    for (const double coordinate : vertex.pos) out << ' ' << coordinate;
    out << ", normal";
    for (const double component : vertex.normal) out << ' ' << component;
    out << ", texture " << vertex.tu << ' ' << vertex.tv << ", group " << vertex.group
        << (vertex.selected ? ", selected" : "") << (vertex.deleted ? ", deleted" : "");
    return out.str();
}

/// All fields of a face on one line.
inline std::string faceText(const FaceRecord& face) {
    std::ostringstream out;
    out << face.corner[0] << ' ' << face.corner[1] << ' ' << face.corner[2]
        << (face.deleted ? ", deleted" : "");
    return out.str();
}

/// A matrix group's rows on one line.
inline std::string matrixGroupText(const MatrixGroup& group) {
    std::ostringstream out;
    for (const std::int16_t matrix : group) out << matrix << ' ';
    return out.str();
}

class ToolTest : public EditorTest {
protected:
    void TearDown() override { EXPECT_TRUE(dialogs.inputs.empty()) << "an input box did not come"; }

    const UndoRecord& newest() const { return editor.undo.slots.front(); }

    /// What is in the store now.
    Geoset geoset() const { return editor.store; }

    /// Gives the fields that only travel along with a vertex values of its own.
    void fillOtherFields() {
        double number = 0;
        for (VertexRecord& vertex : store().Vertices) {
            ++number;
            vertex.normal = {number, number + 0.25, -number};
            vertex.tu = number / 8;
            vertex.tv = number / 16;
            vertex.group = static_cast<std::int16_t>(number * 10);
        }
        store().matrixGroups = {{0, 3, -1, -1, -1, -1, -1}, {7, -1, -1, -1, -1, -1, -1}};
    }

    /// Flags exactly the vertices with these 1-based numbers deleted.
    void flagDeleted(const std::vector<int>& numbers) {
        for (VertexRecord& vertex : store().Vertices) vertex.deleted = false;
        for (const int number : numbers) vertex(number).deleted = true;
    }

    /// The face with a 1-based number.
    FaceRecord& face(int number) { return store().Faces.at(static_cast<std::size_t>(number) - 1); }

    /// The 1-based numbers of the selected vertices.
    std::vector<int> selected() const {
        std::vector<int> numbers;
        for (std::size_t i = 0; i < editor.store.Vertices.size(); ++i) {
            if (editor.store.Vertices[i].selected) numbers.push_back(static_cast<int>(i) + 1);
        }
        return numbers;
    }

    /// The corners of each face, with ", deleted" where it is.
    std::vector<std::string> faces() const {
        std::vector<std::string> texts;
        for (const FaceRecord& face : editor.store.Faces) texts.push_back(faceText(face));
        return texts;
    }

    /// Compares every field of every record.
    void expectGeoset(const Geoset& expected) const {
        const Geoset& actual = editor.store;
        const auto texts = [](const auto& records, auto textOf) {
            std::vector<std::string> lines;
            for (const auto& record : records) lines.push_back(textOf(record));
            return lines;
        };
        EXPECT_EQ(texts(actual.Vertices, vertexText), texts(expected.Vertices, vertexText));
        EXPECT_EQ(texts(actual.Faces, faceText), texts(expected.Faces, faceText));
        EXPECT_EQ(texts(actual.matrixGroups, matrixGroupText),
                  texts(expected.matrixGroups, matrixGroupText));
        EXPECT_TRUE(actual == expected);
    }

    void expectPosition(int number, const Triple& expected, double tolerance = 1e-9) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(vertex(number).pos[i], expected[i], tolerance)
                << "vertex " << number << ", slot " << i;
        }
    }

    void expectNormal(int number, const Triple& expected, double tolerance = 1e-15) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(vertex(number).normal[i], expected[i], tolerance)
                << "vertex " << number << ", slot " << i;
        }
    }

    void expectMessage(const std::string& caption, const std::string& text) const {
        ASSERT_EQ(dialogs.asked.size(), 1U);
        EXPECT_EQ(dialogs.last().kind, "message");
        EXPECT_EQ(dialogs.last().title, caption);
        EXPECT_EQ(dialogs.last().text, text);
    }

    /// The newest step, recorded before anything changed, and which copies it keeps.
    void expectStep(const std::string& name, UndoCopies copies, const Triple& numbers,
                    const Geoset& before) const {
        EXPECT_TRUE(newest().valid);
        EXPECT_EQ(newest().name, name);
        EXPECT_EQ(newest().numbers, numbers);
        ASSERT_EQ(newest().vertices != nullptr, copies.keepVertices);
        ASSERT_EQ(newest().faces != nullptr, copies.keepFaces);
        ASSERT_EQ(newest().selection != nullptr, copies.keepSelection);
        EXPECT_TRUE(!copies.keepVertices || *newest().vertices == before.Vertices);
        EXPECT_TRUE(!copies.keepFaces || *newest().faces == before.Faces);
        if (copies.keepSelection) {
            std::vector<bool> flags;
            for (const VertexRecord& vertex : before.Vertices) flags.push_back(vertex.selected);
            EXPECT_EQ(*newest().selection, flags);
        }
    }

    void expectNoStep() const { EXPECT_FALSE(newest().valid) << newest().name; }

    /// Exactly one step was recorded; undoing it leads back to `before`.
    void expectUndoneTo(const Geoset& before) {
        EXPECT_TRUE(newest().valid);
        undoLast(editor);
        expectGeoset(before);
        expectNoStep();
    }

    /// The three views show the store as it is.
    void expectDrawn() {
        ASSERT_FALSE(front.primitives().empty());
        const std::vector<std::vector<Primitive>> drawn = {front.primitives(), top.primitives(),
                                                           left.primitives()};
        redrawAll(editor);
        EXPECT_TRUE(drawn[0] == front.primitives());
        EXPECT_TRUE(drawn[1] == top.primitives());
        EXPECT_TRUE(drawn[2] == left.primitives());
    }

    void expectNotDrawn() const {
        EXPECT_TRUE(front.primitives().empty());
        EXPECT_TRUE(top.primitives().empty());
        EXPECT_TRUE(left.primitives().empty());
    }

    /// Runs a tool before any model is loaded: no step, nothing drawn, the store stays empty.
    void expectNothingBeforeAModelIsLoaded(const std::function<void()>& tool) {
        store() = {};
        editor.undo = {};
        for (RecordingSurface* surface : {&front, &top, &left}) surface->clear();
        tool();
        expectGeoset({});
        EXPECT_FALSE(store().modelLoaded);
        EXPECT_FALSE(store().isModified());
        expectNoStep();
        expectNotDrawn();
    }
};

}  // namespace corvane
