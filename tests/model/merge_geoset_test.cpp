#include "model/commands/merge_geoset.h"

#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/open_model.h"
#include "model/commands/save_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class MergeGeosetTest : public ModelFlowTest {
protected:
    /// The command Merge with that file, and that geoset where it has several.
    void merge(const std::string& path, const std::string& geosetAnswer = "") {
        dialogs.asked.clear();
        dialogs.files.push_back(path);
        if (!geosetAnswer.empty()) dialogs.inputs.push_back(geosetAnswer);
        mergeGeoset(editor);
    }

    /// Opens geoset 2 of a model of three.
    void openThree() { openNew("three.mdl", modelOf(threeGeosets()), "2"); }

    std::string writeTriangle() {
        return folder.write("part.mdl", modelOf({.geosets = {triangleAt("7")}}));
    }

    const UndoRecord& newest() const { return editor.undo.slots.front(); }
};

TEST_F(MergeGeosetTest, AppendsTheVerticesAndFacesOfTheOtherGeoset) {
    openThree();
    const Geoset before = store();
    merge(writeTriangle());
    ASSERT_EQ(store().Vertices.size(), 7U);
    ASSERT_EQ(store().Faces.size(), 3U);
    for (int i = 1; i <= 4; ++i) {
        EXPECT_EQ(vertex(i), before.Vertices[static_cast<std::size_t>(i) - 1]);
    }
    EXPECT_EQ(vertex(6), (VertexRecord{.pos = {0, 7, 4},
                                       .normal = {0, 1, 0},
                                       .tu = 0.5,
                                       .tv = 0,
                                       .group = 0,
                                       .selected = true}));
    EXPECT_EQ(store().Faces[0], before.Faces[0]);
    EXPECT_EQ(store().Faces[1], before.Faces[1]);
    // The corners count on behind the four old vertices.
    EXPECT_EQ(store().Faces[2], (FaceRecord{.corner = {4, 5, 6}}));
}

TEST_F(MergeGeosetTest, SelectsWhatWasMergedAndNothingElse) {
    openThree();
    select({1, 3});
    merge(writeTriangle());
    std::vector<bool> selection;
    for (const VertexRecord& vertex : store().Vertices) selection.push_back(vertex.selected);
    EXPECT_EQ(selection, (std::vector<bool>{false, false, false, false, true, true, true}));
}

TEST_F(MergeGeosetTest, KeepsVertexGroupNumbersAndDiscardsMatrixGroups) {
    openThree();
    const std::vector<MatrixGroup> groups = store().matrixGroups;
    GeosetText part = triangleAt("7");
    part.groups = {"0", "5", "1"};
    part.matrices = {"9", "8", "7", "6, 5", "4", "3"};
    part.matrixCount = 7;
    merge(folder.write("part.mdl", modelOf({.geosets = {part}})));
    EXPECT_EQ(vertex(5).group, 0);
    EXPECT_EQ(vertex(6).group, 5);
    EXPECT_EQ(vertex(7).group, 1);
    EXPECT_EQ(store().matrixGroups, groups);
}

TEST_F(MergeGeosetTest, DeletedVerticesAndFacesStayDeleted) {
    openThree();
    vertex(4).deleted = true;
    store().Faces[1].deleted = true;
    merge(writeTriangle());
    EXPECT_TRUE(vertex(4).deleted);
    EXPECT_TRUE(store().Faces[1].deleted);
    EXPECT_EQ(store().Faces[2].corner, (std::array<std::int16_t, 3>{4, 5, 6}));
    EXPECT_FALSE(store().Faces[2].deleted);
}

TEST_F(MergeGeosetTest, AsksForTheFileAndTheGeosetAsOpeningDoes) {
    openThree();
    folder.write("parts.mdl", modelOf({.geosets = {triangleAt("1"), triangleAt("7")}}));
    for (const char* refused : {"0", "3", "x", ""}) dialogs.inputs.push_back(refused);
    merge(folder.path("parts.mdl"), "2");
    ASSERT_EQ(askedKinds(), "open input input input input input");
    EXPECT_EQ(dialogs.asked[0].text, "Warcraft III MDL|*.mdl");
    for (std::size_t i = 1; i < dialogs.asked.size(); ++i) {
        EXPECT_EQ(dialogs.asked[i].text, "Geoset to import(1 - 2):");
        EXPECT_EQ(dialogs.asked[i].title, "Geoset to open");
        EXPECT_EQ(dialogs.asked[i].defaultText, "1");
    }
    EXPECT_EQ(vertex(5).pos, (Triple{0, 7, 0}));
}

TEST_F(MergeGeosetTest, LeavesTheOpenModelsFilesAndNumbersAlone) {
    openThree();
    const Before before = remember();
    merge(writeTriangle());
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(store().modelPath, before.modelPath);
    EXPECT_EQ(store().workPath, before.workPath);
    EXPECT_EQ(modelBytes(), before.modelBytes);
    EXPECT_EQ(workBytes(), before.workBytes);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"part.mdl", "three.mdl", "three_TMP.tdl"}));
    EXPECT_TRUE(store().isModified());
}

TEST_F(MergeGeosetTest, IsSavedIntoTheEditedGeoset) {
    openThree();
    merge(writeTriangle());
    save();
    ModelParts parts = threeGeosets();
    GeosetText& merged = parts.geosets[1];
    for (const char* row : {"0, 0, 7", "4, 0, 7", "0, 4, 7"}) merged.vertices.emplace_back(row);
    for (int i = 0; i < 3; ++i) merged.normals.emplace_back("0, 0, 1");
    for (const char* row : {"0, 0", "0.5, 0", "0, 0.5"}) merged.texture.emplace_back(row);
    for (int i = 0; i < 3; ++i) merged.groups.emplace_back("0");
    merged.triangles = "0, 1, 2, 0, 2, 3, 4, 5, 6";
    merged.indexCount = 9;
    EXPECT_EQ(modelBytes(), modelOf(parts));
}

TEST_F(MergeGeosetTest, IsOneStepThatIsUndone) {
    openThree();
    select({1, 3});
    const Geoset before = store();
    merge(writeTriangle());
    EXPECT_EQ(newest().name, "Merge");
    EXPECT_EQ(newest().numbers, (Triple{0, 0, 0}));
    EXPECT_EQ(newest().selection, nullptr);
    ASSERT_NE(newest().vertices, nullptr);
    ASSERT_NE(newest().faces, nullptr);
    EXPECT_FALSE(editor.undo.slots[1].valid);
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
}

TEST_F(MergeGeosetTest, RedrawsTheViewsAndHoldsBoxSelectionBack) {
    openThree();
    editor.modes.selectEnabled = true;
    editor.modes.editButtonsEnabled = false;
    merge(writeTriangle());
    EXPECT_EQ(front.primitives().size(), 18U);  // 2 axis marks, 9 edges, 7 vertices
    EXPECT_EQ(left.primitives().size(), 18U);
    EXPECT_FALSE(editor.modes.selectEnabled);
    EXPECT_EQ(window.timerStarts, 2);
    EXPECT_TRUE(editor.modes.editButtonsEnabled);
}

TEST_F(MergeGeosetTest, TheOpenModelItselfCanBeMerged) {
    openThree();
    merge(store().modelPath, "3");
    EXPECT_EQ(store().Vertices.size(), 8U);
    EXPECT_EQ(vertex(5).pos, (Triple{0, 0, 3}));
}

TEST_F(MergeGeosetTest, CancellingRecordsAStepThatChangesNothing) {
    openThree();
    select({2});
    const Before before = remember();
    dialogs.asked.clear();
    dialogs.files.push_back(std::nullopt);
    mergeGeoset(editor);
    EXPECT_EQ(askedKinds(), "open");
    EXPECT_EQ(static_cast<const Geoset&>(store()), before.geoset);
    EXPECT_EQ(newest().name, "Merge");
    undoLast(editor);
    EXPECT_EQ(static_cast<const Geoset&>(store()), before.geoset);
    EXPECT_FALSE(newest().valid);
}

TEST_F(MergeGeosetTest, AFileThatIsNotThereIsABadFileName) {
    openThree();
    pushUndo(editor, {}, {}, "Move");
    const Before before = remember();
    merge(folder.path("missing.mdl"));
    ASSERT_EQ(askedKinds(), "open message");
    expectLast("message", "Error", "Bad file name");
    expectUnchanged(before);
}

TEST_F(MergeGeosetTest, AGeosetThatCannotBeReadChangesNothing) {
    openThree();
    pushUndo(editor, {}, {}, "Move");
    const std::string text = modelOf({.geosets = {triangleAt("1"), unreadableSquare()}});
    const std::string path = folder.write("part.mdl", text);
    const Before before = remember();
    merge(path, "2");
    ASSERT_EQ(askedKinds(), "open input message");
    expectLast("message", "Error",
               "Geoset 2 cannot be read.\n" + path + ", line " + lineOf(text, "5, 6, 7") +
                   ": the matrix group has more than 7 matrix indices.\n\nNothing was merged. Mend "
                   "the line in a text editor, or choose another geoset or model.");
    expectUnchanged(before);
}

TEST_F(MergeGeosetTest, AModelWithoutGeosetsChangesNothing) {
    openThree();
    const std::string path = folder.write("bare.mdl", modelOf({}));
    const Before before = remember();
    merge(path);
    ASSERT_EQ(askedKinds(), "open message");
    expectLast("message", "Error",
               "That file holds no geoset (no line \"Geoset {\"). Nothing was merged.");
    expectUnchanged(before);
}

TEST_F(MergeGeosetTest, TooManyVerticesAreRefusedWithTheNumbers) {
    openThree();
    store().Vertices.resize(32765);
    const std::string path = writeTriangle();
    const Before before = remember();
    merge(path);
    ASSERT_EQ(askedKinds(), "open message");
    expectLast("message", "Error",
               "The merged geoset would be too large: 32765 + 3 = 32768 vertices (at most 32767), "
               "2 + 1 = 3 faces (at most 32767). Nothing was changed.");
    expectUnchanged(before);
}

TEST_F(MergeGeosetTest, TooManyFacesAreRefusedWithTheNumbers) {
    openThree();
    store().Faces.resize(32767);
    const std::string path = writeTriangle();
    const Before before = remember();
    merge(path);
    ASSERT_EQ(askedKinds(), "open message");
    expectLast("message", "Error",
               "The merged geoset would be too large: 4 + 3 = 7 vertices (at most 32767), 32767 + "
               "1 = 32768 faces (at most 32767). Nothing was changed.");
    expectUnchanged(before);
}

TEST_F(MergeGeosetTest, ExactlyAsManyAsThereMayBeAreMerged) {
    openThree();
    store().Vertices.resize(32764);
    store().Faces.resize(32766);
    merge(writeTriangle());
    EXPECT_EQ(askedKinds(), "open");
    EXPECT_EQ(store().Vertices.size(), 32767U);
    ASSERT_EQ(store().Faces.size(), 32767U);
    EXPECT_EQ(store().Faces.back().corner, (std::array<std::int16_t, 3>{32764, 32765, 32766}));
    EXPECT_TRUE(store().Vertices.back().selected);
}

}  // namespace
}  // namespace corvane
