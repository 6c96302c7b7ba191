// A save that finds no vertex or no face left removes the geoset from the file.
#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/save_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class EmptiedGeosetTest : public ModelFlowTest {
protected:
    /// Opens geoset 2 of a model of three, with a step in the history.
    std::string openThree() {
        const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
        pushUndo(editor, {}, {}, "Delete");
        return path;
    }
};

TEST_F(EmptiedGeosetTest, WithNoVertexLeftItIsRemovedFromFileAndWorkingCopyAndAnotherIsChosen) {
    const std::string path = openThree();
    deleteAllVertices();
    dialogs.inputs.push_back("2");
    save();
    ASSERT_EQ(askedKinds(), "message input");
    EXPECT_EQ(dialogs.asked[0].title, "Warning");
    EXPECT_EQ(dialogs.asked[0].text, "Removing geoset");
    EXPECT_EQ(dialogs.asked[1].text, "Geoset to import(1 - 2):");
    EXPECT_EQ(dialogs.asked[1].title, "Geoset to open");
    EXPECT_EQ(dialogs.asked[1].defaultText, "1");
    EXPECT_EQ(readFile(path), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(store().workPath, folder.path("three_TMP.tdl"));
    // What was geoset 3 is read as geoset 2.
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
    EXPECT_FALSE(vertex(1).deleted);
    EXPECT_FALSE(hasUndoStep());
    EXPECT_FALSE(store().isModified());
    EXPECT_FALSE(editor.store.isGeosetRemoved());
    EXPECT_EQ(front.primitives().size(), 12U);  // 2 axis marks, 6 edges, 4 vertices
}

TEST_F(EmptiedGeosetTest, WithNoFaceLeftItIsRemovedThoughVerticesAreKept) {
    openThree();
    vertex(1).deleted = true;  // both faces use it
    dialogs.yesNos.push_back(true);
    dialogs.inputs.push_back("1");
    save();
    EXPECT_EQ(askedKinds(), "yesno message input");
    EXPECT_EQ(dialogs.asked[0].title, "Warning");
    EXPECT_EQ(dialogs.asked[0].text,
              "The geoset has 3 vertices but no face, and a save removes it from the model. Remove "
              "it?");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 1}));
}

TEST_F(EmptiedGeosetTest, VerticesWithoutAFaceAreNotRemovedAfterANo) {
    openThree();
    vertex(1).deleted = true;
    const Before before = remember();
    dialogs.yesNos.push_back(false);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    expectUnchanged(before);
    for (const auto command : {&corvane::saveAs, &corvane::saveGeoset}) {
        dialogs.asked.clear();
        dialogs.files.push_back(folder.path("other.mdl"));
        dialogs.yesNos.push_back(false);
        command(editor);
        EXPECT_EQ(askedKinds(), "save yesno");
        expectUnchanged(before);
    }
}

TEST_F(EmptiedGeosetTest, AGeosetThatNeverHadAFaceIsRemovedToo) {
    GeosetText points = squareAt("9");
    std::string text = modelOf({.geosets = {squareAt("1"), points}});
    const std::size_t faces = text.rfind("\tFaces");
    text.erase(faces, text.find("\tGroups", faces) - faces);
    openNew("points.mdl", text, "2");
    EXPECT_EQ(store().Vertices.size(), 4U);
    EXPECT_TRUE(store().Faces.empty());
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(askedKinds(), "yesno message");  // the only geoset left needs no question
    EXPECT_EQ(modelBytes(), modelOf({.geosets = {squareAt("1")}}));
    EXPECT_EQ(store().geosetNumber, 1);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 1}));
}

TEST_F(EmptiedGeosetTest, FacesThatAreDeletedThemselvesDoNotEmptyIt) {
    openThree();
    store().Faces[0].deleted = true;
    save();
    EXPECT_EQ(askedKinds(), "");
    ModelParts parts = threeGeosets();
    parts.geosets[1].triangles = "0, 2, 3";
    EXPECT_EQ(modelBytes(), modelOf(parts));
}

TEST_F(EmptiedGeosetTest, WithAModelsOnlyGeosetTheStoreIsLeftEmpty) {
    openNew("hero.mdl",
            modelOf({.geosets = {squareAt("5")}, .animations = {"0"}, .bones = {{"0", "0"}}}));
    deleteAllVertices();
    save();
    EXPECT_EQ(askedKinds(), "message");
    const std::string bare = modelOf({.geosets = {}, .bones = {{"Multiple", "None"}}});
    EXPECT_EQ(modelBytes(), bare);
    EXPECT_EQ(workBytes(), bare);
    EXPECT_TRUE(store().Vertices.empty());
    EXPECT_TRUE(store().Faces.empty());
    EXPECT_TRUE(store().modelLoaded);

    save();
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Error",
               "The model was not saved.\nThe open model holds no geoset 1 to write to.\n\nYour "
               "edits are still here. Switch Geoset chooses another geoset of the model, if it has "
               "one.");
    EXPECT_EQ(modelBytes(), bare);
}

TEST_F(EmptiedGeosetTest, SaveAsWritesTheRestToTheNewFileAndLeavesTheOld) {
    const std::string old = openThree();
    deleteAllVertices();
    dialogs.inputs.push_back("1");
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save message input");
    EXPECT_EQ(readFile(folder.path("new.mdl")), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().modelPath, folder.path("new.mdl"));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));

    // The next save goes to the new file and takes the working copy there.
    vertex(1).pos = {7, 8, 9};
    save();
    ModelParts parts = threeWithoutTheSecond();
    parts.geosets[0].vertices[0] = "9, 7, 8";
    EXPECT_EQ(readFile(folder.path("new.mdl")), modelOf(parts));
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().workPath, folder.path("new_TMP.tdl"));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(EmptiedGeosetTest, SaveGeosetRemovesItLikeSaveAs) {
    const std::string old = openThree();
    deleteAllVertices();
    dialogs.inputs.push_back("1");
    saveGeosetAs(folder.path("part.mdl"));
    EXPECT_EQ(askedKinds(), "save message input");
    EXPECT_EQ(readFile(folder.path("part.mdl")), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().geosetNumber, 1);
}

TEST_F(EmptiedGeosetTest, ATargetThatCannotBeWrittenLeavesEverything) {
    openThree();
    deleteAllVertices();
    const Before before = remember();
    const std::string target = folder.path("missing/new.mdl");
    saveAs(target);
    ASSERT_EQ(askedKinds(), "save message message");
    EXPECT_EQ(dialogs.asked[1].text, "Removing geoset");
    expectLast("message", "Error",
               "The model was not saved.\n" + target +
                   ": No such file or directory\n\nNo file was written, and your edits are still "
                   "here: mend the cause and save again, or save to another place with Save As.");
    EXPECT_EQ(store().modelPath, target);
    store().modelPath = before.modelPath;
    expectUnchanged(before);
}

TEST_F(EmptiedGeosetTest, AMissingWorkingCopyIsPutBackWithTheRest) {
    openThree();
    deleteAllVertices();
    std::filesystem::remove(store().workPath);
    dialogs.inputs.push_back("1");
    save();
    EXPECT_EQ(askedKinds(), "message input");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
}

TEST_F(EmptiedGeosetTest, WithTheFolderGoneTheRestIsSavedElsewhere) {
    std::filesystem::create_directory(folder.path("gone"));
    openNew("gone/three.mdl", modelOf(threeGeosets()), "2");
    deleteAllVertices();
    std::filesystem::remove_all(folder.path("gone"));
    save();
    ASSERT_EQ(askedKinds(), "message message");
    EXPECT_EQ(dialogs.last().title, "Error");
    dialogs.inputs.push_back("2");
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save message input");
    EXPECT_EQ(readFile(folder.path("new.mdl")), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
}

TEST_F(EmptiedGeosetTest, WhereTheNextGeosetCannotBeReadTheSaveStandsAndTheStoreStays) {
    openNew("two.mdl", modelOf({.geosets = {squareAt("1"), unreadableSquare()}}), "1");
    pushUndo(editor, {}, {}, "Delete");
    deleteAllVertices();
    save();
    ASSERT_EQ(askedKinds(), "message message");
    const std::string rest = modelOf({.geosets = {unreadableSquare()}});
    expectLast("message", "Error",
               "Geoset 1 cannot be read.\n" + store().modelPath + ", line " +
                   lineOf(rest, "5, 6, 7") +
                   ": the matrix group has more than 7 matrix indices.\n\nThe geoset in memory "
                   "stays as it is. Mend the line in a text editor, or choose another geoset.");
    EXPECT_EQ(modelBytes(), rest);
    EXPECT_EQ(workBytes(), rest);
    EXPECT_EQ(store().Vertices.size(), 4U);
    EXPECT_TRUE(hasUndoStep());

    // What is in memory now is no part of the file: writing it over the other geoset is asked for.
    undoLast(editor);
    for (VertexRecord& vertex : store().Vertices) vertex.deleted = false;
    dialogs.yesNos.push_back(false);
    save();
    EXPECT_EQ(askedKinds(), "yesno message");
    EXPECT_EQ(modelBytes(), rest);
}

}  // namespace
}  // namespace corvane
