// Delete Current Geoset: the geoset leaves the working copy, and the file with the next save. It
// stays in memory meanwhile; saving it then is in removed_geoset_test.cpp.
#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/save_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

using DeleteGeosetTest = ModelFlowTest;

TEST_F(DeleteGeosetTest, AsksForConfirmationWithBothPaths) {
    const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
    const Before before = remember();
    dialogs.yesNos.push_back(false);
    deleteCurrentGeoset(editor);
    ASSERT_EQ(askedKinds(), "yesno");
    expectLast("yesno", "Confirmation",
               "Removing a geoset is not undoable. Are you sure you want to continue?" + path +
                   folder.path("three_TMP.tdl"));
    expectUnchanged(before);
    deleteGeoset();  // it can be asked for again
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
}

TEST_F(DeleteGeosetTest, RemovesTheGeosetFromTheWorkingCopyOnly) {
    const std::string text = modelOf(threeGeosets());
    openNew("three.mdl", text, "2");
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    const Geoset geoset = store();
    deleteGeoset();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(modelBytes(), text);
    EXPECT_EQ(static_cast<const Geoset&>(store()), geoset);
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(store().modelPath, folder.path("three.mdl"));
    EXPECT_EQ(store().workPath, folder.path("three_TMP.tdl"));
    EXPECT_TRUE(hasUndoStep());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"three.mdl", "three_TMP.tdl"}));
}

TEST_F(DeleteGeosetTest, WithoutGeosetAnimationsOnlyTheBlockAndTheGeosetIdsChange) {
    ModelParts parts = threeGeosets();
    parts.animations = {};
    openNew("three.mdl", modelOf(parts), "1");
    deleteGeoset();
    ModelParts rest = parts;
    rest.geosets = {squareAt("2"), squareAt("3")};
    rest.bones = {{"Multiple", "0"}, {"0", "1"}, {"1", "2"}};
    EXPECT_EQ(workBytes(), modelOf(rest));
}

TEST_F(DeleteGeosetTest, BeforeAModelIsOpenNothingIsAsked) {
    deleteCurrentGeoset(editor);
    EXPECT_EQ(askedKinds(), "");
}

TEST_F(DeleteGeosetTest, ASecondTimeOnlySaysThatItIsRemovedAlready) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    deleteGeoset();
    const Before before = remember();
    dialogs.asked.clear();
    deleteCurrentGeoset(editor);
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Warning",
               "The geoset in memory is removed from the model already. The model file follows "
               "with the next save.");
    expectUnchanged(before);
}

TEST_F(DeleteGeosetTest, ASecondTimeAfterASaveDoesNotPromiseWhatIsDone) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    deleteGeoset();
    save();
    ASSERT_TRUE(store().isGeosetRemoved());
    dialogs.asked.clear();
    deleteCurrentGeoset(editor);
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Warning", "The geoset in memory is removed from the model already.");
}

TEST_F(DeleteGeosetTest, AfterwardsSwitchingChoosesFromTheWorkingCopy) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    deleteGeoset();
    dialogs.asked.clear();
    dialogs.inputs.push_back("2");
    switchGeoset(editor);
    ASSERT_EQ(askedKinds(), "input");
    EXPECT_EQ(dialogs.last().text, "Geoset to import(1 - 2):");
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));  // what was geoset 3
    EXPECT_FALSE(hasUndoStep());

    // The geoset in memory is part of the working copy again: no question at the save.
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(modelBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
}

TEST_F(DeleteGeosetTest, SwitchingTwiceBeforeTheSaveStillGoesByTheWorkingCopy) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    deleteGeoset();
    for (const char* number : {"1", "2"}) {
        dialogs.inputs.push_back(number);
        switchGeoset(editor);
    }
    EXPECT_EQ(dialogs.last().text, "Geoset to import(1 - 2):");
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
    vertex(1).pos = {7, 8, 9};
    save();
    ModelParts parts = threeWithoutTheSecond();
    parts.geosets[1].vertices[0] = "9, 7, 8";
    EXPECT_EQ(modelBytes(), modelOf(parts));
}

TEST_F(DeleteGeosetTest, AfterSwitchingAnotherGeosetCanBeRemoved) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    deleteGeoset();
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    deleteGeoset();
    EXPECT_EQ(askedKinds(), "yesno");
    const ModelParts rest = {.geosets = {squareAt("3")},
                             .animations = {"0"},
                             .bones = {{"Multiple", "None"}, {"Multiple", "None"}, {"0", "0"}}};
    EXPECT_EQ(workBytes(), modelOf(rest));
    EXPECT_EQ(modelBytes(), modelOf(threeGeosets()));
}

TEST_F(DeleteGeosetTest, ASwitchThatFailsLeavesTheRemovedGeosetInMemory) {
    openNew("two.mdl", modelOf({.geosets = {squareAt("1"), unreadableSquare()}}), "1");
    deleteGeoset();
    const Before before = remember();
    switchGeoset(editor);
    EXPECT_EQ(askedKinds(), "yesno message");
    EXPECT_EQ(dialogs.last().text.find("Geoset 1 cannot be read."), 0U);
    expectUnchanged(before);
}

TEST_F(DeleteGeosetTest, OpeningAnotherModelForgetsTheRemoval) {
    const std::string text = modelOf(threeGeosets());
    const std::string path = openNew("three.mdl", text, "2");
    deleteGeoset();
    openNew("other.mdl", modelOf({.geosets = {squareAt("5")}}));
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), text);
    deleteGeoset();
    EXPECT_EQ(askedKinds(), "yesno");
}

TEST_F(DeleteGeosetTest, ClosingBeforeASaveLeavesTheModelWithTheGeoset) {
    const std::string text = modelOf(threeGeosets());
    const std::string path = openNew("three.mdl", text, "2");
    deleteGeoset();
    closeModel(editor);
    EXPECT_EQ(readFile(path), text);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"three.mdl"}));
}

TEST_F(DeleteGeosetTest, AModelWithoutGeosetsSaysThatThereIsNone) {
    openNew("bare.mdl", modelOf({}));
    const Before before = remember();
    deleteGeoset();
    ASSERT_EQ(askedKinds(), "yesno message");
    expectLast("message", "Error", store().modelPath + " holds no geoset 1 to be removed.");
    expectUnchanged(before);
}

TEST_F(DeleteGeosetTest, AMissingWorkingCopyIsMadeAgainWithoutTheGeoset) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    std::filesystem::remove(store().workPath);
    deleteGeoset();
    ASSERT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(workBytes(), modelOf(threeWithoutTheSecond()));
    EXPECT_EQ(modelBytes(), modelOf(threeGeosets()));
}

TEST_F(DeleteGeosetTest, TheRemovalIsAModificationUntilItIsSaved) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    EXPECT_FALSE(store().isModified());
    deleteGeoset();
    EXPECT_TRUE(store().isModified());
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    EXPECT_TRUE(store().isModified()) << "the file still has the geoset";
    save();
    EXPECT_FALSE(store().isModified());
}

TEST_F(DeleteGeosetTest, AWorkingCopyThatGoesMissingAfterwardsComesBackWithoutTheGeoset) {
    openNew("three.mdl", modelOf(threeGeosets()), "3");
    deleteGeoset();
    std::filesystem::remove(store().workPath);
    save();
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(workBytes(), modelBytes());
    EXPECT_EQ(modelBytes().find("GeosetId 2"), std::string::npos);
}

TEST_F(DeleteGeosetTest, AWorkingCopyThatCannotBeWrittenKeepsTheGeoset) {
    std::filesystem::create_directory(folder.path("gone"));
    openNew("gone/three.mdl", modelOf(threeGeosets()), "2");
    std::filesystem::remove_all(folder.path("gone"));
    deleteGeoset();
    ASSERT_EQ(askedKinds(), "yesno message");
    expectLast("message", "Error",
               "The geoset was not removed.\n" + folder.path("gone/three_TMP.tdl") +
                   ": No such file or directory");
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(modelBytes(), modelOf(threeGeosets()));
}

}  // namespace
}  // namespace corvane
