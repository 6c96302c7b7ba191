// Saving while the geoset in memory is one that Delete Current Geoset took out of the model.
#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/save_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class RemovedGeosetTest : public ModelFlowTest {
protected:
    /// Opens a geoset of a model of three, and removes it. Returns the model's path.
    std::string openAndRemove(const std::string& number) {
        const std::string path = openNew("three.mdl", modelOf(threeGeosets()), number);
        deleteGeoset();
        return path;
    }

    void expectQuestionAboutGeoset(const std::string& number) {
        const auto question =
            std::ranges::find(dialogs.asked, "yesno", &ScriptedDialogs::Asked::kind);
        ASSERT_NE(question, dialogs.asked.end());
        EXPECT_EQ(question->title, "Warning");
        EXPECT_EQ(question->text,
                  "The geoset in memory was removed from the model. Saving writes it over geoset " +
                      number + ", which has its number now. Write it?");
    }

    /// The model without geoset 2, and with what was geoset 2 written over the next one.
    static std::string writtenOver() {
        ModelParts parts = threeWithoutTheSecond();
        parts.geosets[1] = squareAt("2");
        return modelOf(parts);
    }

    /// The model without its last geoset.
    static std::string withoutTheThird() {
        return modelOf({.geosets = {squareAt("1"), squareAt("2")},
                        .animations = {"0", "1"},
                        .bones = {{"0", "0"}, {"1", "1"}, {"Multiple", "None"}}});
    }
};

TEST_F(RemovedGeosetTest, YesWritesItOverTheGeosetThatHasItsNumber) {
    openAndRemove("2");
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    expectQuestionAboutGeoset("2");
    EXPECT_EQ(modelBytes(), writtenOver());
    EXPECT_EQ(workBytes(), writtenOver());
    EXPECT_EQ(store().geosetNumber, 2);

    // Now it is geoset 2: no more questions, and it can be removed again.
    vertex(1).pos = {7, 8, 9};
    save();
    EXPECT_EQ(askedKinds(), "");
    ModelParts parts = threeWithoutTheSecond();
    parts.geosets[1] = squareAt("2");
    parts.geosets[1].vertices[0] = "9, 7, 8";
    EXPECT_EQ(modelBytes(), modelOf(parts));
    deleteGeoset();
    EXPECT_EQ(askedKinds(), "yesno");
}

TEST_F(RemovedGeosetTest, YesAtSaveAsWritesTheNewFile) {
    const std::string old = openAndRemove("2");
    dialogs.yesNos.push_back(true);
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save yesno");  // the question comes after the file dialog
    expectQuestionAboutGeoset("2");
    EXPECT_EQ(modelBytes(), writtenOver());
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().modelPath, folder.path("new.mdl"));
    EXPECT_EQ(store().workPath, folder.path("new_TMP.tdl"));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(RemovedGeosetTest, NoWritesTheWorkingCopyAsItIsAndAnotherGeosetIsChosen) {
    const std::string path = openAndRemove("2");
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    vertex(1).pos = {7, 8, 9};
    dialogs.yesNos.push_back(false);
    dialogs.inputs.push_back("2");
    save();
    ASSERT_EQ(askedKinds(), "yesno input");
    expectQuestionAboutGeoset("2");
    EXPECT_EQ(dialogs.last().text, "Geoset to import(1 - 2):");
    EXPECT_EQ(readFile(path), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
    EXPECT_FALSE(hasUndoStep());
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(front.primitives().size(), 12U);  // 2 axis marks, 6 edges, 4 vertices

    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), modelOf(threeWithoutTheSecond()));
}

TEST_F(RemovedGeosetTest, NoAtSaveAsWritesTheWorkingCopyToTheNewFile) {
    const std::string old = openAndRemove("2");
    dialogs.yesNos.push_back(false);
    dialogs.inputs.push_back("1");
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save yesno input");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().modelPath, folder.path("new.mdl"));
    EXPECT_EQ(store().workPath, folder.path("new_TMP.tdl"));
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 1}));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(RemovedGeosetTest, NoWithATargetThatCannotBeWrittenLeavesEverything) {
    openAndRemove("2");
    const Before before = remember();
    const std::string target = folder.path("missing/new.mdl");
    dialogs.yesNos.push_back(false);
    saveAs(target);
    ASSERT_EQ(askedKinds(), "save yesno message");
    expectLast("message", "Error",
               "The model was not saved.\n" + target +
                   ": No such file or directory\n\nNo file was written, and your edits are still "
                   "here: mend the cause and save again, or save to another place with Save As.");
    store().modelPath = before.modelPath;
    expectUnchanged(before);
}

TEST_F(RemovedGeosetTest, YesWithATargetThatCannotBeWrittenAsksAgainAtTheNextSave) {
    openAndRemove("2");
    dialogs.yesNos.push_back(true);
    saveAs(folder.path("missing/new.mdl"));
    EXPECT_EQ(askedKinds(), "save yesno message");
    dialogs.yesNos.push_back(true);
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save yesno");
    EXPECT_EQ(modelBytes(), writtenOver());
}

TEST_F(RemovedGeosetTest, CancellingSaveAsAsksNothing) {
    openAndRemove("2");
    const Before before = remember();
    dialogs.asked.clear();
    dialogs.files.push_back(std::nullopt);
    corvane::saveAs(editor);
    EXPECT_EQ(askedKinds(), "save");
    expectUnchanged(before);
}

TEST_F(RemovedGeosetTest, TheQuestionComesBeforeAnEmptiedGeosetIsNoticed) {
    openAndRemove("2");
    deleteAllVertices();
    dialogs.yesNos.push_back(false);
    dialogs.inputs.push_back("1");
    save();
    EXPECT_EQ(askedKinds(), "yesno input");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
}

// Yes means to write over that geoset, not to remove it.
TEST_F(RemovedGeosetTest, AfterAYesAnEmptiedGeosetLeavesTheOneWithItsNumberAlone) {
    openAndRemove("2");
    deleteAllVertices();
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(askedKinds(), "yesno message");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
}

TEST_F(RemovedGeosetTest, SaveGeosetAsksNothing) {
    const std::string old = openAndRemove("2");
    saveGeosetAs(folder.path("part.mdl"));
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(modelBytes(), singleGeosetModelOf(squareAt("2")));
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(store().geosetNumber, 1);
    save();  // it is the geoset of that file now
    EXPECT_EQ(askedKinds(), "");
}

TEST_F(RemovedGeosetTest, WhereNoGeosetHasItsNumberTheRestIsSavedWithoutAQuestion) {
    const std::string path = openAndRemove("3");
    EXPECT_EQ(workBytes(), withoutTheThird());
    save();
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(readFile(path), withoutTheThird());
    EXPECT_EQ(workBytes(), withoutTheThird());
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));  // still in memory

    save();
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(readFile(path), withoutTheThird());
}

TEST_F(RemovedGeosetTest, WhereNoGeosetHasItsNumberSaveAsWritesTheRestToTheNewFile) {
    const std::string old = openAndRemove("3");
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save message");
    EXPECT_EQ(modelBytes(), withoutTheThird());
    EXPECT_EQ(workBytes(), withoutTheThird());
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(RemovedGeosetTest, WhereNoGeosetHasItsNumberAnEditToItIsNotTakenForSaved) {
    openAndRemove("3");
    vertex(1).pos[0] = 99;
    store().revisions.noteChanged();
    save();
    EXPECT_EQ(modelBytes(), withoutTheThird());
    EXPECT_TRUE(store().isModified());
}

TEST_F(RemovedGeosetTest, TheOnlyGeosetLeavesAModelWithoutGeosets) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    deleteGeoset();
    save();
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(modelBytes(), modelOf({}));
    EXPECT_EQ(workBytes(), modelOf({}));
}

// What stands beside the sections of a geoset that was removed is its own, not its neighbour's.
TEST_F(RemovedGeosetTest, SaveGeosetWritesItWithTheLinesThatItHad) {
    ModelParts parts = threeGeosets();
    std::string text = modelOf(parts);
    const std::size_t second = text.find("Geoset {", text.find("Geoset {") + 1);
    const std::size_t material = text.find("\tMaterialID 0,", second);
    text.replace(material, 14, "\tMaterialID 7,");
    openNew("three.mdl", text, "2");
    deleteGeoset();
    saveGeosetAs(folder.path("part.mdl"));
    std::string expected = singleGeosetModelOf(squareAt("2"));
    expected.replace(expected.find("\tMaterialID 0,"), 14, "\tMaterialID 7,");
    EXPECT_EQ(readFile(folder.path("part.mdl")), expected);
}

TEST_F(RemovedGeosetTest, SaveGeosetWritesTheModelsLastOneToo) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    deleteGeoset();
    saveGeosetAs(folder.path("part.mdl"));
    EXPECT_EQ(readFile(folder.path("part.mdl")), singleGeosetModelOf(squareAt("5")));
    EXPECT_FALSE(store().isGeosetRemoved());
}

TEST_F(RemovedGeosetTest, MergingIntoAModelWithoutGeosetsIsRefusedBeforeTheFileDialog) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    deleteGeoset();
    dialogs.asked.clear();
    mergeGeoset(editor);
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(store().Vertices.size(), 4U);
    EXPECT_FALSE(hasUndoStep());
}

}  // namespace
}  // namespace corvane
