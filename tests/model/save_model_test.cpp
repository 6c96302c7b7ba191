// Saving: what the file, the working copy and the store hold afterwards. Saves that fail are in
// save_failures_test.cpp, those that find the geoset emptied in emptied_geoset_test.cpp.
#include "model/commands/save_model.h"

#include <filesystem>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/transforms.h"
#include "edit/undo_history.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

using SaveModelTest = ModelFlowTest;

/// Three geosets with the first vertex of the second moved by (1, 2, 4) in slot order.
ModelParts threeWithAMovedVertex() {
    ModelParts parts = threeGeosets();
    parts.geosets[1].vertices[0] = "6, 1, 2";
    return parts;
}

TEST_F(SaveModelTest, AnUnchangedModelComesOutByteForByte) {
    const std::string text = modelOf(threeGeosets());
    for (const char* number : {"1", "2", "3"}) {
        openNew("three.mdl", text, number);
        save();
        EXPECT_EQ(modelBytes(), text);
        EXPECT_EQ(workBytes(), text);
    }
}

TEST_F(SaveModelTest, OnlyTheEditedGeosetChangesInTheFile) {
    const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
    select({1});
    moveSelection(editor, {1, 2, 4});
    EXPECT_TRUE(store().isModified());
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), modelOf(threeWithAMovedVertex()));
    EXPECT_EQ(workBytes(), modelOf(threeWithAMovedVertex()));
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(store().savePath, path);
    EXPECT_EQ(store().workPath, folder.path("three_TMP.tdl"));
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"three.mdl", "three_TMP.tdl"}));
}

TEST_F(SaveModelTest, TheFilesOwnLineBreaksAreKept) {
    openNew("three.mdl", withCrLf(modelOf(threeGeosets())), "2");
    select({1});
    moveSelection(editor, {1, 2, 4});
    save();
    EXPECT_EQ(modelBytes(), withCrLf(modelOf(threeWithAMovedVertex())));
    EXPECT_EQ(workBytes(), modelBytes());
}

TEST_F(SaveModelTest, TheStoreAndTheHistoryStayAsTheyAre) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    select({2});
    deleteSelection(editor);
    const Geoset before = store();
    save();
    EXPECT_EQ(static_cast<const Geoset&>(store()), before);
    EXPECT_EQ(editor.undo.slots[0].name, "Delete");
}

TEST_F(SaveModelTest, ADeletedVertexLeavesTheFileWithItsFacesAndTheOthersAreRenumbered) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    openNew("hero.mdl", text);
    select({2});
    deleteSelection(editor);
    save();
    GeosetText kept = squareAt("5");
    kept.vertices = {"5, 0, 0", "5, 10, 10", "5, 0, 10"};
    kept.normals.pop_back();
    kept.texture = {"0, 1", "1, 0", "0, 0"};
    kept.groups = {"0", "1", "1"};
    kept.triangles = "0, 1, 2";  // was 0, 2, 3; the other face used the deleted vertex
    kept.indexCount = 3;
    const std::string saved = modelOf({.geosets = {kept}});
    EXPECT_EQ(modelBytes(), saved);
    EXPECT_EQ(workBytes(), saved);

    // The deleted vertex is still in memory: saving again gives the same, undoing brings it back.
    save();
    EXPECT_EQ(modelBytes(), saved);
    undoLast(editor);
    EXPECT_TRUE(store().isModified());
    save();
    EXPECT_EQ(modelBytes(), text);
}

TEST_F(SaveModelTest, ADeletedFaceIsStillCountedInTheHeader) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    store().Faces[0].deleted = true;
    save();
    GeosetText kept = squareAt("5");
    kept.triangles = "0, 2, 3";
    kept.indexCount = 6;
    EXPECT_EQ(modelBytes(), modelOf({.geosets = {kept}}));
}

TEST_F(SaveModelTest, PositionsAreWrittenInFullNormalsAndTextureCoordinatesRounded) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(1).pos = {1.23456789012, -0.0, 1e-7};
    vertex(1).normal = {0.12345678, -0.0000004, 1};
    vertex(1).tu = 0.12345678;
    vertex(1).tv = 2.5e-6;  // halfway: to the even millionth
    save();
    GeosetText written = squareAt("5");
    written.vertices[0] = "1e-7, 1.23456789012, 0";
    written.normals[0] = "1, 0.123457, 0";
    written.texture[0] = "0.123457, 2e-6";
    EXPECT_EQ(modelBytes(), modelOf({.geosets = {written}}));
}

TEST_F(SaveModelTest, NumbersAreWrittenWithAPeriodWhateverTheUserWrites) {
    editor.userNumbers.decimalPoint = ",";
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(1).pos[0] = 1.5;
    save();
    GeosetText written = squareAt("5");
    written.vertices[0] = "5, 1.5, 0";
    EXPECT_EQ(modelBytes(), modelOf({.geosets = {written}}));
}

TEST_F(SaveModelTest, AGroupThatNoMatrixGroupBacksIsWrittenAsItWas) {
    GeosetText geoset = squareAt("5");
    geoset.groups[3] = "77";
    const std::string text = modelOf({.geosets = {geoset}});
    openNew("hero.mdl", text);
    save();
    EXPECT_EQ(modelBytes(), text);
}

TEST_F(SaveModelTest, BeforeAModelIsOpenNothingIsAskedOrWritten) {
    save();
    corvane::saveAs(editor);
    saveGeoset(editor);
    EXPECT_EQ(askedKinds(), "");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(SaveModelTest, SaveAsMakesTheNewFileTheModelAndMovesTheWorkingCopy) {
    const std::string text = modelOf(threeGeosets());
    const std::string old = openNew("three.mdl", text, "2");
    select({1});
    moveSelection(editor, {1, 2, 4});
    const std::string path = folder.path("new.mdl");
    saveAs(path);
    ASSERT_EQ(askedKinds(), "save");
    EXPECT_EQ(dialogs.last().title, "Save As");
    EXPECT_EQ(dialogs.last().text, "Warcraft III MDL|*.mdl");
    EXPECT_EQ(dialogs.last().defaultText, old);
    EXPECT_EQ(readFile(path), modelOf(threeWithAMovedVertex()));
    EXPECT_EQ(readFile(old), text);
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(store().savePath, path);
    EXPECT_EQ(store().workPath, folder.path("new_TMP.tdl"));
    EXPECT_EQ(workBytes(), modelOf(threeWithAMovedVertex()));
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));

    // From now on Save writes there.
    vertex(1).pos = {0, 0, 2};
    save();
    EXPECT_EQ(readFile(path), text);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(SaveModelTest, SaveAsOntoTheModelItselfIsASave) {
    const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
    select({1});
    moveSelection(editor, {1, 2, 4});
    saveAs(path);
    EXPECT_EQ(readFile(path), modelOf(threeWithAMovedVertex()));
    EXPECT_EQ(workBytes(), modelOf(threeWithAMovedVertex()));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"three.mdl", "three_TMP.tdl"}));
}

TEST_F(SaveModelTest, SaveAsReplacesAnotherFileWhole) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    const std::string path = folder.write("other.mdl", std::string(100000, 'x'));
    saveAs(path);
    EXPECT_EQ(readFile(path), modelOf(threeGeosets()));
}

TEST_F(SaveModelTest, SaveAsIntoAnotherFolderTakesTheWorkingCopyAlong) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    std::filesystem::create_directory(folder.path("sub"));
    saveAs(folder.path("sub/new.mdl"));
    EXPECT_EQ(store().workPath, folder.path("sub/new_TMP.tdl"));
    EXPECT_EQ(workBytes(), modelOf(threeGeosets()));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"sub", "three.mdl"}));
}

TEST_F(SaveModelTest, SaveGeosetWritesThatGeosetAloneAsTheModelFromNowOn) {
    const std::string text = modelOf(threeGeosets());
    const std::string old = openNew("three.mdl", text, "2");
    const Geoset before = store();
    const std::string path = folder.path("part.mdl");
    saveGeosetAs(path);
    ASSERT_EQ(askedKinds(), "save");
    EXPECT_EQ(dialogs.last().text, "Warcraft III MDL|*.mdl");
    const std::string part = singleGeosetModelOf(squareAt("2"));
    EXPECT_EQ(readFile(path), part);
    EXPECT_EQ(workBytes(), part);
    EXPECT_EQ(readFile(old), text);
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(store().workPath, folder.path("part_TMP.tdl"));
    EXPECT_EQ(store().geosetNumber, 1);
    Geoset expected = before;
    for (VertexRecord& vertex : expected.Vertices) vertex.group = 0;
    expected.matrixGroups = {{0, -1, -1, -1, -1, -1, -1}};
    EXPECT_EQ(static_cast<const Geoset&>(store()), expected);
    EXPECT_FALSE(hasUndoStep());
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"part.mdl", "part_TMP.tdl", "three.mdl"}));
}

TEST_F(SaveModelTest, AfterSaveGeosetASaveWritesTheOneGeosetOfThatFile) {
    openNew("three.mdl", modelOf(threeGeosets()), "3");
    saveGeosetAs(folder.path("part.mdl"));
    vertex(1).pos[0] = 1.5;
    save();
    EXPECT_EQ(askedKinds(), "");
    // The part has one bone, and so has memory.
    EXPECT_EQ(modelBytes(), replacedOnce(singleGeosetModelOf(squareAt("3")), "\t\t{ 3, 0, 0 },\n",
                                         "\t\t{ 3, 1.5, 0 },\n"));
}

TEST_F(SaveModelTest, AfterSaveGeosetTheRowsOfThatFileFollowItsVertices) {
    const std::string text = replacedOnce(
        modelOf({.geosets = {squareAt("1")}}), "\tVertexGroup {\n",
        "\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 2, 0, 0, 1 },\n\t\t{ 3, 0, 0, 1 },\n"
        "\t\t{ 4, 0, 0, 1 },\n\t}\n\tVertexGroup {\n");
    openNew("hero.mdl", text);
    vertex(2).deleted = true;
    saveGeosetAs(folder.path("part.mdl"));
    EXPECT_EQ(store().rowSections.size(), 1U);
    EXPECT_EQ(store().sectionsRead.size(), 6U);
    EXPECT_EQ(vertex(1).fileRow, 0);
    EXPECT_EQ(vertex(2).fileRow, kNoRow);
    EXPECT_EQ(vertex(4).fileRow, 2);
    store().Vertices.push_back(vertex(4));  // as a clone of it
    save();
    EXPECT_NE(modelBytes().find("\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 3, 0, 0, 1 },\n"
                                "\t\t{ 4, 0, 0, 1 },\n\t\t{ 4, 0, 0, 1 },\n\t}\n"),
              std::string::npos)
        << modelBytes();
}

TEST_F(SaveModelTest, ASavedGeosetKeepsTheFilesLineBreaks) {
    openNew("three.mdl", withCrLf(modelOf(threeGeosets())), "1");
    saveGeosetAs(folder.path("part.mdl"));
    EXPECT_EQ(modelBytes(), withCrLf(singleGeosetModelOf(squareAt("1"))));
}

TEST_F(SaveModelTest, CancellingTheDialogWritesNothing) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    select({1});
    moveSelection(editor, {1, 2, 4});
    const Before before = remember();
    for (const auto command : {&corvane::saveAs, &corvane::saveGeoset}) {
        dialogs.asked.clear();
        dialogs.files.push_back(std::nullopt);
        command(editor);
        EXPECT_EQ(askedKinds(), "save");
        expectUnchanged(before);
    }
}

TEST_F(SaveModelTest, TheButtonsAreRefreshedOnceTheModelIsWritten) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    vertex(1).pos[0] = 1;
    store().revisions.noteChanged();
    bool modified = true;
    window.onUpdateButtons = [&] { modified = store().isModified(); };
    save();
    EXPECT_FALSE(modified);
    std::string path;
    window.onUpdateButtons = [&] { path = store().modelPath; };
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(path, folder.path("new.mdl"));
}

}  // namespace
}  // namespace corvane
