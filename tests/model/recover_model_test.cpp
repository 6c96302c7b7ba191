// A model that was kept becomes the current one, unsaved.
#include "model/commands/recover_model.h"

#include <filesystem>

#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class RecoverModelTest : public ModelFlowTest {
protected:
    KeptModel keptAs(const std::string& name, const std::string& text, int geosetNumber) const {
        const std::string path = folder.path(name);
        return {.text = ModelText(path, text),
                .modelPath = path,
                .stamp = stampOf(path),
                .geosetNumber = geosetNumber};
    }

    const std::string three = modelOf(threeGeosets());
};

TEST_F(RecoverModelTest, ItIsTheCurrentModelUnsavedWithTheGeosetThatWasEdited) {
    folder.write("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    openNew("open.mdl", modelOf({.geosets = {triangleAt("0")}}));
    selectAll(editor);
    ASSERT_TRUE(hasUndoStep());
    editor.modes.editButtonsEnabled = false;
    const int timers = window.timerStarts;
    front.clear();
    perspective.clear();
    EXPECT_TRUE(openKept(editor, keptAs("hero.mdl", three, 2)));
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(store().modelPath, folder.path("hero.mdl"));
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 2}));
    EXPECT_TRUE(store().isModified());
    EXPECT_FALSE(hasUndoStep());
    EXPECT_EQ(workBytes(), three);
    EXPECT_FALSE(std::filesystem::exists(folder.path("open_TMP.tdl")));
    EXPECT_FALSE(editor.modes.selectEnabled);
    EXPECT_TRUE(editor.modes.editButtonsEnabled);
    EXPECT_EQ(window.timerStarts, timers + 1);
    EXPECT_FALSE(front.primitives().empty());
    EXPECT_FALSE(perspective.primitives().empty());

    save();
    EXPECT_EQ(askedKinds(), "") << "the file is the one that it was";
    EXPECT_EQ(modelBytes(), three);
    EXPECT_FALSE(store().isModified());
}

TEST_F(RecoverModelTest, ASaveAsksWhereTheFileIsAnotherOne) {
    folder.write("hero.mdl", three);
    KeptModel kept = keptAs("hero.mdl", modelOf({.geosets = {squareAt("5")}}), 1);
    kept.stamp.reset();
    EXPECT_TRUE(openKept(editor, kept));
    dialogs.yesNos = {false};
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(modelBytes(), three);
    EXPECT_TRUE(store().isModified());
}

TEST_F(RecoverModelTest, AGeosetThatItDoesNotHaveIsAskedFor) {
    for (const int number : {0, 4}) {
        dialogs.inputs = {"3"};
        EXPECT_TRUE(openKept(editor, keptAs("hero.mdl", three, number)));
        EXPECT_EQ(store().geosetNumber, 3) << number;
        EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3})) << number;
    }
}

TEST_F(RecoverModelTest, WhatCannotBeReadIsSaidAndLeavesEverything) {
    openNew("open.mdl", three, "1");
    const Before before = remember();
    EXPECT_FALSE(
        openKept(editor, keptAs("hero.mdl", modelOf({.geosets = {unreadableSquare()}}), 1)));
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_TRUE(dialogs.last().text.starts_with("What was kept of " + folder.path("hero.mdl") +
                                                " was not opened.\n"))
        << dialogs.last().text;
    EXPECT_TRUE(dialogs.last().text.ends_with(
        "\n\nIt is still there: Save a Copy writes it to another place."));
    expectUnchanged(before);
}

TEST_F(RecoverModelTest, WhatOpeningTellsOfAGeosetIsToldHereToo) {
    const std::string text =
        replacedOnce(modelOf({.geosets = {squareAt("5")}}), "\tVertices 4", "\tVertices 9");
    EXPECT_TRUE(openKept(editor, keptAs("hero.mdl", text, 1)));
    EXPECT_EQ(askedKinds(), "message");
    EXPECT_NE(dialogs.last().text.find("Vertices has 4 rows, but its header says 9"),
              std::string::npos)
        << dialogs.last().text;
}

TEST_F(RecoverModelTest, TheWorkingCopyOfTheOpenModelIsNotTakenForAModel) {
    openNew("open.mdl", three, "1");
    const Before before = remember();
    EXPECT_FALSE(openKept(editor, keptAs("open_TMP.tdl", three, 1)));
    EXPECT_EQ(askedKinds(), "message");
    expectUnchanged(before);
}

TEST_F(RecoverModelTest, TheCommandShowsWhatWasKept) {
    showRecover(editor);
    EXPECT_EQ(window.recoverShown, 1);
}

TEST_F(RecoverModelTest, AModelByItsPathOpensAsFromTheDialog) {
    const std::string path = folder.write("hero.mdl", three);
    dialogs.inputs = {"2"};
    const OpenOutcome outcome = openPath(editor, path);
    ASSERT_TRUE(outcome.picked.has_value());
    EXPECT_EQ(outcome.picked->geosetNumber, 2);
    EXPECT_EQ(askedKinds(), "input");
    EXPECT_EQ(store().modelPath, path);
    EXPECT_FALSE(editor.modes.selectEnabled);
    EXPECT_FALSE(front.primitives().empty());
    EXPECT_FALSE(openPath(editor, folder.path("none.mdl")).picked.has_value());
    EXPECT_EQ(dialogs.last().text, "Bad file name");
}

}  // namespace
}  // namespace corvane
