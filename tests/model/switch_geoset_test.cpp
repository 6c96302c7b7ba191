// Switching to another geoset of the model that is open.
#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/open_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class SwitchGeosetTest : public ModelFlowTest {
protected:
    void switchTo(const std::string& answer) {
        dialogs.asked.clear();
        dialogs.inputs.push_back(answer);
        switchGeoset(editor);
    }
};

TEST_F(SwitchGeosetTest, ReadsTheGeosetThatIsAskedFor) {
    openNew("three.mdl", modelOf(threeGeosets()), "1");
    switchTo("3");
    ASSERT_EQ(askedKinds(), "input");
    EXPECT_EQ(dialogs.last().text, "Geoset to import(1 - 3):");
    EXPECT_EQ(dialogs.last().title, "Geoset to open");
    EXPECT_EQ(dialogs.last().defaultText, "1");
    EXPECT_EQ(store().geosetNumber, 3);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
    EXPECT_EQ(store().modelPath, folder.path("three.mdl"));
}

TEST_F(SwitchGeosetTest, RefusesTheSameAnswersAsOpening) {
    openNew("three.mdl", modelOf(threeGeosets()), "1");
    for (const char* refused : {"0", "4", "x", ""}) dialogs.inputs.push_back(refused);
    dialogs.inputs.push_back(std::nullopt);
    switchTo("2");
    EXPECT_EQ(askedKinds(), "input input input input input input");
    EXPECT_EQ(store().geosetNumber, 2);
}

TEST_F(SwitchGeosetTest, EditsNotSavedAreLostAndTheHistoryIsCleared) {
    const std::string text = modelOf(threeGeosets());
    openNew("three.mdl", text, "1");
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    vertex(1).pos = {7, 7, 7};
    switchTo("2");
    EXPECT_FALSE(hasUndoStep());
    EXPECT_FALSE(store().isModified());
    switchTo("1");
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 1}));
    EXPECT_EQ(modelBytes(), text);
    EXPECT_EQ(workBytes(), text);
}

TEST_F(SwitchGeosetTest, ASavedEditIsThereAfterSwitchingBack) {
    openNew("three.mdl", modelOf(threeGeosets()), "1");
    vertex(1).pos = {7, 8, 9};
    save();
    switchTo("2");
    vertex(1).pos = {4, 5, 6};
    save();
    switchTo("1");
    EXPECT_EQ(vertex(1).pos, (Triple{7, 8, 9}));
    ModelParts saved = threeGeosets();
    saved.geosets[0].vertices[0] = "9, 7, 8";
    saved.geosets[1].vertices[0] = "6, 4, 5";
    EXPECT_EQ(modelBytes(), modelOf(saved));
}

TEST_F(SwitchGeosetTest, RedrawsTheViews) {
    openNew("mixed.mdl", modelOf({.geosets = {squareAt("1"), triangleAt("2")}}), "1");
    EXPECT_EQ(front.primitives().size(), 12U);  // 2 axis marks, 6 edges, 4 vertices
    switchTo("2");
    EXPECT_EQ(front.primitives().size(), 8U);
    EXPECT_EQ(left.primitives().size(), 8U);
    EXPECT_EQ(store().Vertices.size(), 3U);
    EXPECT_EQ(store().Faces.size(), 1U);
    EXPECT_EQ(store().matrixGroups.size(), 1U);
}

TEST_F(SwitchGeosetTest, AModelWithOneGeosetIsReadAgainWithoutAQuestion) {
    openNew("one.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(1).pos = {7, 7, 7};
    switchGeoset(editor);
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 5}));
    EXPECT_EQ(store().geosetNumber, 1);
}

TEST_F(SwitchGeosetTest, AGeosetThatCannotBeReadLeavesTheOneInMemory) {
    ModelParts parts = threeGeosets();
    parts.geosets[2] = unreadableSquare();
    const std::string text = modelOf(parts);
    openNew("three.mdl", text, "1");
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    vertex(1).pos = {7, 7, 7};
    const Before before = remember();
    switchTo("3");
    ASSERT_EQ(askedKinds(), "input message");
    expectLast("message", "Error",
               "Geoset 3 cannot be read.\n" + store().modelPath + ", line " +
                   lineOf(text, "5, 6, 7") +
                   ": the matrix group has more than 7 matrix indices.\n\nThe geoset in memory "
                   "stays as it is. Mend the line in a text editor, or choose another geoset.");
    expectUnchanged(before);
}

TEST_F(SwitchGeosetTest, GoesByTheWorkingCopyWhereTheModelFileIsGone) {
    openNew("three.mdl", modelOf(threeGeosets()), "1");
    std::filesystem::remove(store().modelPath);
    switchTo("2");
    EXPECT_EQ(askedKinds(), "input");
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 2}));
}

TEST_F(SwitchGeosetTest, AfterAFailedSaveAsItReadsTheWorkingCopy) {
    openNew("three.mdl", modelOf(threeGeosets()), "1");
    saveAs(folder.path("missing/new.mdl"));
    switchTo("2");
    EXPECT_EQ(askedKinds(), "input");
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 2}));
    EXPECT_EQ(store().geosetNumber, 2);
}

}  // namespace
}  // namespace corvane
