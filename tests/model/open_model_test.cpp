// Opening and closing models. What is refused is in open_failures_test.cpp.
#include "model/commands/open_model.h"

#include <filesystem>

#include "edit/undo_history.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class OpenModelTest : public ModelFlowTest {
protected:
    /// Opens a model of three geosets with these answers; the last one must be taken.
    void openThreeWith(const std::vector<std::optional<std::string>>& answers) {
        dialogs.asked.clear();
        dialogs.files.push_back(folder.write("three.mdl", modelOf(threeGeosets())));
        for (const auto& answer : answers) dialogs.inputs.push_back(answer);
        openCommand(editor);
    }
};

TEST_F(OpenModelTest, ReadsTheGeosetIntoTheStore) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    ASSERT_EQ(store().Vertices.size(), 4U);
    // The file's X, Y, Z stand in the slots 2, 0, 1.
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 5}));
    EXPECT_EQ(vertex(2).pos, (Triple{10, 0, 5}));
    EXPECT_EQ(vertex(3).pos, (Triple{10, 10, 5}));
    EXPECT_EQ(vertex(4).pos, (Triple{0, 10, 5}));
    EXPECT_EQ(vertex(1).normal, (Triple{0, 0, 1}));
    EXPECT_EQ(vertex(2).tu, 1);
    EXPECT_EQ(vertex(3).tv, 0);
    EXPECT_EQ(vertex(2).group, 0);
    EXPECT_EQ(vertex(3).group, 1);
    for (const VertexRecord& vertex : store().Vertices) {
        EXPECT_FALSE(vertex.selected);
        EXPECT_FALSE(vertex.deleted);
    }
    ASSERT_EQ(store().Faces.size(), 2U);
    EXPECT_EQ(store().Faces[0], (FaceRecord{.corner = {0, 1, 2}}));
    EXPECT_EQ(store().Faces[1], (FaceRecord{.corner = {0, 2, 3}}));
    EXPECT_EQ(store().matrixGroups,
              (std::vector<MatrixGroup>{{0, -1, -1, -1, -1, -1, -1}, {1, 2, -1, -1, -1, -1, -1}}));
    EXPECT_TRUE(store().modelLoaded);
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(store().geosetNumber, 1);
}

TEST_F(OpenModelTest, MakesAWorkingCopyByteForByteAndLeavesTheModel) {
    const std::string text = withCrLf(modelOf({.geosets = {squareAt("5")}})) + "// no line break";
    const std::string path = openNew("hero.mdl", text);
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(store().workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(workBytes(), text);
    EXPECT_EQ(modelBytes(), text);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(OpenModelTest, ThePathIsCutByFourCharactersWhateverTheyAre) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    openNew("HERO.MDL", text);
    EXPECT_EQ(store().workPath, folder.path("HERO_TMP.tdl"));
    openNew("hero.model", text);
    EXPECT_EQ(store().workPath, folder.path("hero.m_TMP.tdl"));
    openNew("B\xC3\xA4r\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", text);  // characters, not bytes
    EXPECT_EQ(store().workPath, folder.path("B\xC3\xA4r_TMP.tdl"));
    std::filesystem::create_directory(folder.path("sub"));
    openNew("sub/m", text);  // a name too short: the cut goes on into the folder's name
    EXPECT_EQ(store().workPath, folder.path("s_TMP.tdl"));
    EXPECT_EQ(workBytes(), text);
}

TEST_F(OpenModelTest, AsksForAModelFileStartingFromTheCurrentOne) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    open(folder.write("first.mdl", text));
    ASSERT_EQ(askedKinds(), "open");  // one geoset: no further question
    EXPECT_EQ(dialogs.asked[0].text, "Warcraft III MDL|*.mdl");
    EXPECT_EQ(dialogs.asked[0].defaultText, "");
    open(folder.write("second.mdl", text));
    EXPECT_EQ(dialogs.asked[0].defaultText, folder.path("first.mdl"));
}

TEST_F(OpenModelTest, SeveralGeosetsAreAskedForUntilTheAnswerIsInRange) {
    openThreeWith({"0", "4", "x", "", std::nullopt, "2"});
    ASSERT_EQ(askedKinds(), "open input input input input input input");
    for (std::size_t i = 1; i < dialogs.asked.size(); ++i) {
        EXPECT_EQ(dialogs.asked[i].text, "Geoset to import(1 - 3):");
        EXPECT_EQ(dialogs.asked[i].title, "Geoset to open");
        EXPECT_EQ(dialogs.asked[i].defaultText, "1");
    }
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 2}));
}

TEST_F(OpenModelTest, EveryGeosetOfTheModelCanBeChosen) {
    for (int number = 1; number <= 3; ++number) {
        openThreeWith({std::to_string(number)});
        EXPECT_EQ(store().geosetNumber, number);
        EXPECT_EQ(vertex(1).pos[2], number);
    }
}

TEST_F(OpenModelTest, OtherAnswersThatAreNoNumberInRangeAreRefused) {
    openThreeWith({"-1", "1,5", "2x", "3.2", "0.9", "1e9", "nan", " ", "0x2", "3"});
    EXPECT_EQ(store().geosetNumber, 3);
}

TEST_F(OpenModelTest, AnAnswerWithAFractionIsRoundedToTheEvenNumber) {
    openThreeWith({"1.4"});
    EXPECT_EQ(store().geosetNumber, 1);
    openThreeWith({"1.6"});
    EXPECT_EQ(store().geosetNumber, 2);
    openThreeWith({"2.5"});
    EXPECT_EQ(store().geosetNumber, 2);
    editor.userNumbers.decimalPoint = ",";
    openThreeWith({"1.5", " 1,5 "});
    EXPECT_EQ(store().geosetNumber, 2);
}

TEST_F(OpenModelTest, AGeosetThatIsKnownIsNotAskedFor) {
    const std::string path = folder.write("three.mdl", modelOf(threeGeosets()));
    const OpenOutcome outcome = openPath(editor, path, 2);
    ASSERT_TRUE(outcome.picked);
    EXPECT_EQ(outcome.picked->geosetCount, 3U);
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenModelTest, AGeosetThatTheModelLacksOpensNothing) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    const std::string path = folder.write("one.mdl", modelOf({.geosets = {squareAt("7")}}));
    EXPECT_FALSE(openPath(editor, path, 2).picked);
    EXPECT_EQ(dialogs.last().text,
              path +
                  " has one geoset, so there is no geoset 2.\n\nThe file was not opened and is "
                  "unchanged. Choose another geoset or model.");
    EXPECT_EQ(store().modelPath, folder.path("hero.mdl"));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl", "one.mdl"}));
}

TEST_F(OpenModelTest, DrawsEveryView) {
    perspective.circle(0, 0, 1, kRed);
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    for (const RecordingSurface* picture : {&front, &top, &left}) {
        EXPECT_EQ(picture->primitives().size(), 12U);  // 2 axis marks, 6 edges, 4 vertices
    }
    EXPECT_EQ(perspective.primitives().size(), 10U);
}

TEST_F(OpenModelTest, BoxSelectionStaysOffUntilTheTimerFires) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    EXPECT_FALSE(editor.modes.selectEnabled);
    EXPECT_EQ(window.timerStarts, 1);
    EXPECT_TRUE(editor.modes.editButtonsEnabled);
}

TEST_F(OpenModelTest, BoxSelectionIsOffWhileItAsks) {
    EXPECT_TRUE(editor.modes.selectEnabled);
    bool wasEnabled = true;
    dialogs.onInput = [&] { wasEnabled = editor.modes.selectEnabled; };
    openNew("hero.mdl", modelOf(threeGeosets()), "2");
    EXPECT_FALSE(wasEnabled);
}

TEST_F(OpenModelTest, CancellingTheDialogChangesNothing) {
    openNew("hero.mdl", modelOf(threeGeosets()), "2");
    pushUndo(editor, {}, {}, "Move");
    const Before before = remember();
    dialogs.files.push_back(std::nullopt);
    openCommand(editor);
    EXPECT_EQ(askedKinds(), "open");
    expectUnchanged(before);
    EXPECT_EQ(window.timerStarts, 2);  // or box selection would stay off for good
}

TEST_F(OpenModelTest, CancellingTheFirstDialogLeavesTheStoreEmpty) {
    dialogs.files.push_back(std::nullopt);
    openCommand(editor);
    EXPECT_FALSE(store().modelLoaded);
    EXPECT_EQ(store().modelPath, "");
    EXPECT_EQ(store().workPath, "");
    EXPECT_TRUE(front.primitives().empty());
}

TEST_F(OpenModelTest, AnotherModelTakesThePlaceOfTheFirst) {
    openNew("first.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(1).pos[0] = 99;
    pushUndo(editor, {.keepVertices = true}, {}, "Snap");
    const std::string second = modelOf({.geosets = {triangleAt("7")}});
    openNew("second.mdl", second);
    EXPECT_EQ(store().modelPath, folder.path("second.mdl"));
    EXPECT_EQ(store().workPath, folder.path("second_TMP.tdl"));
    EXPECT_EQ(workBytes(), second);
    EXPECT_EQ(store().Vertices.size(), 3U);
    EXPECT_EQ(store().Faces.size(), 1U);
    EXPECT_EQ(store().matrixGroups.size(), 1U);
    EXPECT_FALSE(store().isModified());
    EXPECT_FALSE(hasUndoStep());
    // The first one's working copy is gone, the model itself as it was.
    EXPECT_EQ(folder.names(),
              (std::vector<std::string>{"first.mdl", "second.mdl", "second_TMP.tdl"}));
    EXPECT_EQ(readFile(folder.path("first.mdl")), modelOf({.geosets = {squareAt("5")}}));
}

TEST_F(OpenModelTest, ModesViewsAndMarkersOutliveTheModel) {
    openNew("first.mdl", modelOf({.geosets = {squareAt("5")}}));
    editor.modes.selectMode = SelectMode::Add;
    editor.modes.transformMode = TransformMode::Scale;
    editor.modes.activeY = false;
    editor.modes.showNormals = true;
    editor.views[View::Top] = {.zoom = 31.25, .panX = 300, .panY = -600};
    editor.markers[0] = {.pos = {1, 2, 3}, .used = true};
    openNew("second.mdl", modelOf({.geosets = {triangleAt("7")}}));
    EXPECT_EQ(editor.modes.selectMode, SelectMode::Add);
    EXPECT_EQ(editor.modes.transformMode, TransformMode::Scale);
    EXPECT_FALSE(editor.modes.activeY);
    EXPECT_TRUE(editor.modes.showNormals);
    EXPECT_EQ(editor.views[View::Top].zoom, 31.25);
    EXPECT_EQ(editor.views[View::Top].panX, 300);
    EXPECT_EQ(editor.views[View::Top].panY, -600);
    EXPECT_TRUE(editor.markers[0].used);
}

TEST_F(OpenModelTest, TheSameModelOpenedAgainIsReadAnewAndKeepsAWorkingCopy) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(1).pos[0] = 99;
    const std::string changed = modelOf({.geosets = {squareAt("6")}});
    openNew("hero.mdl", changed);  // something else has written it meanwhile
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 6}));
    EXPECT_EQ(workBytes(), changed);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(OpenModelTest, ModelsWhoseWorkingCopiesHaveTheSameNameFollowEachOther) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    const std::string other = modelOf({.geosets = {triangleAt("7")}});
    openNew("hero.txt", other);
    EXPECT_EQ(store().workPath, folder.path("hero_TMP.tdl"));
    EXPECT_EQ(workBytes(), other);
}

TEST_F(OpenModelTest, AWorkingCopyLeftOverFromAnEarlierRunIsReplaced) {
    folder.write("hero_TMP.tdl", "left over");
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    openNew("hero.mdl", text);
    EXPECT_EQ(workBytes(), text);
}

TEST_F(OpenModelTest, AModelWithoutGeosetsLeavesTheStoreEmptyAndSaysSo) {
    openNew("first.mdl", modelOf({.geosets = {squareAt("5")}}));
    open(folder.write("bare.mdl", modelOf({})));
    EXPECT_EQ(askedKinds(), "open message");
    EXPECT_TRUE(store().Vertices.empty());
    EXPECT_TRUE(store().Faces.empty());
    EXPECT_TRUE(store().matrixGroups.empty());
    EXPECT_TRUE(store().modelLoaded);
    EXPECT_EQ(store().geosetNumber, 1);
    EXPECT_EQ(store().modelPath, folder.path("bare.mdl"));
    expectLast("message", "Warning",
               folder.path("bare.mdl") +
                   " holds no geoset (no line \"Geoset {\"). There is nothing to edit in it; open "
                   "another model.");
    EXPECT_EQ(front.primitives().size(), 2U);  // the axis marks
}

TEST_F(OpenModelTest, ClosingDeletesTheWorkingCopyAndLeavesTheModel) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    openNew("hero.mdl", text);
    vertex(1).pos[0] = 99;
    closeModel(editor);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl"}));
    EXPECT_EQ(readFile(folder.path("hero.mdl")), text);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenModelTest, ClosingWithoutAModelDeletesNothing) {
    folder.write("other_TMP.tdl", "of another window");
    closeModel(editor);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"other_TMP.tdl"}));
}

TEST_F(OpenModelTest, StartingUpWelcomesTheUser) {
    startUp(editor);
    EXPECT_EQ(window.tip, "Welcome to Corvane 1.14");
    EXPECT_GT(window.buttonUpdates, 0);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenModelTest, StartingUpWithADecimalCommaWarnsOnce) {
    editor.userNumbers.decimalPoint = ",";
    startUp(editor);
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Warning",
               "Warning: You are using commas as a decimal instead of periods. The program will "
               "not work with that setting. Go to docs/decimal-separator.md for instructions on "
               "changing that.");
    EXPECT_EQ(window.tip, "Welcome to Corvane 1.14");
}

TEST_F(OpenModelTest, StartingUpWithAnotherSeparatorDoesNotWarn) {
    editor.userNumbers.decimalPoint = "\xD9\xAB";  // the Arabic one
    startUp(editor);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenModelTest, AModelIsReadTheSameWayUnderADecimalComma) {
    GeosetText geoset = squareAt("5");
    geoset.vertices[0] = "1.5, -2, 0.03";
    editor.userNumbers.decimalPoint = ",";
    openNew("hero.mdl", modelOf({.geosets = {geoset}}));
    EXPECT_EQ(vertex(1).pos, (Triple{-2, 0.03, 1.5}));
}

}  // namespace
}  // namespace corvane
