#include "edit/commands/tools.h"
#include "test_commands.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

class PlacementTest : public ToolTest {
protected:
    /// The centre of vertices 1 and 2 is (2, 5, -3).
    PlacementTest() {
        loadVertices({{1, 4, -8}, {3, 6, 2}, {7, 8, 9}, {100, 100, 100}});
        addFace(0, 1, 2);
        fillOtherFields();
    }

    static constexpr std::array<Axis, 3> kAxes = {Axis::X, Axis::Y, Axis::Z};
};

using MirrorTest = PlacementTest;

TEST_F(MirrorTest, EachAxisMirrorsItsSlotAcrossTheCentreAndTurnsItsNormalComponent) {
    const std::array<Triple, 3> first = {{{3, 4, -8}, {1, 6, -8}, {1, 4, 2}}};
    const std::array<Triple, 3> second = {{{1, 6, 2}, {3, 4, 2}, {3, 6, -8}}};
    const Geoset before = geoset();
    for (const Axis axis : kAxes) {
        SCOPED_TRACE(letterOf(axis));
        static_cast<Geoset&>(store()) = before;
        select({1, 2});
        Geoset expected = geoset();
        expected.Vertices[0].pos = first[slotOf(axis)];
        expected.Vertices[1].pos = second[slotOf(axis)];
        for (std::size_t i = 0; i < 2; ++i) {
            double& component = expected.Vertices[i].normal[slotOf(axis)];
            component = -component;
        }
        mirrorSelection(editor, axis);
        expectGeoset(expected);
        expectDrawn();
    }
}

TEST_F(MirrorTest, TheNormalTurnsInOneComponentOnly) {
    vertex(1).normal = {0.25, 0.5, 0.75};
    select({1});
    mirrorSelection(editor, Axis::Y);
    EXPECT_EQ(vertex(1).normal, (Triple{0.25, -0.5, 0.75}));
    EXPECT_EQ(vertex(1).pos, (Triple{1, 4, -8}));  // it lies on its own centre
}

TEST_F(MirrorTest, TwiceOnOneAxisRestoresEverything) {
    select({1, 2, 3});
    const Geoset before = geoset();
    for (const Axis axis : kAxes) {
        mirrorSelection(editor, axis);
        mirrorSelection(editor, axis);
        for (int i = 1; i <= 4; ++i) {
            const VertexRecord& old = before.Vertices[static_cast<std::size_t>(i) - 1];
            expectPosition(i, old.pos, 1e-12);
            EXPECT_EQ(vertex(i).normal, old.normal);
        }
    }
}

TEST_F(MirrorTest, DeletedVerticesAreMirroredButLeftOutOfTheCentre) {
    select({1, 2, 3});
    flagDeleted({3});
    mirrorSelection(editor, Axis::X);
    EXPECT_EQ(vertex(1).pos[0], 3);
    EXPECT_EQ(vertex(3).pos, (Triple{-3, 8, 9}));
    EXPECT_EQ(vertex(3).normal[0], -3);
}

TEST_F(MirrorTest, WithEverySelectedVertexDeletedTheCentreIsTheOrigin) {
    select({3});
    flagDeleted({3});
    mirrorSelection(editor, Axis::Z);
    EXPECT_EQ(vertex(3).pos, (Triple{7, 8, -9}));
}

TEST_F(MirrorTest, ItGoesByNoAxisLock) {
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    select({1, 2});
    mirrorSelection(editor, Axis::X);
    EXPECT_EQ(vertex(1).pos, (Triple{3, 4, -8}));
}

TEST_F(MirrorTest, TheStepKeepsTheVerticesAndTheAxisAndIsUndone) {
    for (const Axis axis : kAxes) {
        select({1, 3});
        flagDeleted({3});
        const Geoset before = geoset();
        mirrorSelection(editor, axis);
        expectStep("Mirror", {.keepVertices = true}, {static_cast<double>(slotOf(axis)), 0, 0},
                   before);
        expectUndoneTo(before);
        expectDrawn();
    }
}

TEST_F(MirrorTest, WithNothingSelectedOnlyTheStepIsRecorded) {
    const Geoset before = geoset();
    mirrorSelection(editor, Axis::X);
    expectGeoset(before);
    expectStep("Mirror", {.keepVertices = true}, {0, 0, 0}, before);
    expectDrawn();
    expectUndoneTo(before);
}

TEST_F(MirrorTest, BeforeAModelIsLoadedNothingHappens) {
    for (const Axis axis : kAxes) {
        expectNothingBeforeAModelIsLoaded([&] { mirrorSelection(editor, axis); });
    }
}

using AlignTest = PlacementTest;

TEST_F(AlignTest, EachAxisPutsItsSlotOnTheCentre) {
    const Triple centre = {2, 5, -3};
    const Geoset before = geoset();
    for (const Axis axis : kAxes) {
        SCOPED_TRACE(letterOf(axis));
        static_cast<Geoset&>(store()) = before;
        select({1, 2});
        Geoset expected = geoset();
        for (std::size_t i = 0; i < 2; ++i) {
            expected.Vertices[i].pos[slotOf(axis)] = centre[slotOf(axis)];
        }
        alignSelection(editor, axis);
        expectGeoset(expected);  // normals and all
        expectDrawn();
    }
}

TEST_F(AlignTest, TheCentreIsTheMeanAndNotTheMiddle) {
    vertex(1).pos = {0, 0, 0};
    vertex(2).pos = {0, 0, 0};
    vertex(3).pos = {9, 0, 0};
    select({1, 2, 3});
    alignSelection(editor, Axis::X);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(vertex(i).pos, (Triple{3, 0, 0}));
}

TEST_F(AlignTest, DeletedVerticesAreAlignedButLeftOutOfTheCentre) {
    select({1, 2, 3});
    flagDeleted({3});
    alignSelection(editor, Axis::X);
    EXPECT_EQ(vertex(1).pos, (Triple{2, 4, -8}));
    EXPECT_EQ(vertex(3).pos, (Triple{2, 8, 9}));
}

TEST_F(AlignTest, WithEverySelectedVertexDeletedTheCentreIsTheOrigin) {
    select({3});
    flagDeleted({3});
    alignSelection(editor, Axis::Y);
    EXPECT_EQ(vertex(3).pos, (Triple{7, 0, 9}));
}

TEST_F(AlignTest, ItGoesByNoAxisLock) {
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    select({1, 2});
    alignSelection(editor, Axis::Z);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 4, -3}));
}

TEST_F(AlignTest, TheStepKeepsTheVerticesAndTheAxisAndIsUndone) {
    for (const Axis axis : kAxes) {
        select({1, 3});
        flagDeleted({3});
        const Geoset before = geoset();
        alignSelection(editor, axis);
        expectStep("Align", {.keepVertices = true}, {static_cast<double>(slotOf(axis)), 0, 0},
                   before);
        expectUndoneTo(before);
        expectDrawn();
    }
}

TEST_F(AlignTest, WithNothingSelectedNothingHappens) {
    const Geoset before = geoset();
    alignSelection(editor, Axis::X);
    expectGeoset(before);
    expectNoStep();
    expectNotDrawn();
    EXPECT_FALSE(store().isModified());
}

TEST_F(AlignTest, BeforeAModelIsLoadedNothingHappens) {
    for (const Axis axis : kAxes) {
        expectNothingBeforeAModelIsLoaded([&] { alignSelection(editor, axis); });
    }
}

class SetCoordinatesTest : public PlacementTest {
protected:
    /// Answers, each of them the next one typed.
    void answer(const std::vector<std::optional<std::string>>& answers) {
        dialogs.inputs.assign(answers.begin(), answers.end());
    }

    std::vector<std::string> prompts() const {
        std::vector<std::string> texts;
        for (const auto& asked : dialogs.asked) texts.push_back(asked.text);
        return texts;
    }
};

TEST_F(SetCoordinatesTest, TheSelectedVerticesAreStackedOnOnePoint) {
    select({1, 3});
    flagDeleted({3});
    Geoset expected = geoset();
    expected.Vertices[0].pos = expected.Vertices[2].pos = {1.5, -2, 300};
    answer({"1.5", "-2", "3e2"});
    setCoordinates(editor);
    expectGeoset(expected);  // normals and all
    expectDrawn();
}

TEST_F(SetCoordinatesTest, ThreeBoxesAskForXAndYAndZ) {
    select({1});
    answer({"1", "2", "3"});
    setCoordinates(editor);
    EXPECT_EQ(prompts(), (std::vector<std::string>{"X", "Y", "Z"}));
    for (const auto& asked : dialogs.asked) {
        EXPECT_EQ(asked.kind, "input");
        EXPECT_EQ(asked.defaultText, "0");
    }
}

TEST_F(SetCoordinatesTest, EachBoxComesBackUntilTheAnswerIsANumber) {
    select({1});
    answer({"abc", "", "1 2", "1", "1,5", "nan", "2", std::nullopt, "1e999", " 3 "});
    setCoordinates(editor);
    EXPECT_EQ(prompts(),
              (std::vector<std::string>{"X", "X", "X", "X", "Y", "Y", "Y", "Z", "Z", "Z"}));
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(SetCoordinatesTest, TheAnswersFollowTheUsersDecimalSeparator) {
    editor.userNumbers.decimalPoint = ",";
    select({1});
    answer({"1,5", "2.5", "-0,25", "1"});
    setCoordinates(editor);
    EXPECT_EQ(prompts(), (std::vector<std::string>{"X", "Y", "Y", "Z"}));
    EXPECT_EQ(vertex(1).pos, (Triple{1.5, -0.25, 1}));
}

TEST_F(SetCoordinatesTest, ItGoesByNoAxisLock) {
    editor.modes.activeX = editor.modes.activeY = editor.modes.activeZ = false;
    select({1});
    answer({"1", "2", "3"});
    setCoordinates(editor);
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(SetCoordinatesTest, ItIsOneStepThatKeepsTheVerticesAndIsUndone) {
    select({1, 2, 3});
    flagDeleted({2});
    const Geoset before = geoset();
    answer({"1", "no", "2", "3"});
    setCoordinates(editor);
    expectStep("Set Coordinates", {.keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(SetCoordinatesTest, TheStepIsThereBeforeTheFirstBox) {
    select({1});
    std::vector<std::string> steps;
    dialogs.onInput = [&] { steps.push_back(newest().name); };
    answer({"1", "2", "3"});
    setCoordinates(editor);
    EXPECT_EQ(steps,
              (std::vector<std::string>{"Set Coordinates", "Set Coordinates", "Set Coordinates"}));
}

TEST_F(SetCoordinatesTest, WithNothingSelectedItAsksAndChangesNothing) {
    const Geoset before = geoset();
    answer({"1", "2", "3"});
    setCoordinates(editor);
    expectGeoset(before);
    EXPECT_EQ(prompts(), (std::vector<std::string>{"X", "Y", "Z"}));
    expectStep("Set Coordinates", {.keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
}

TEST_F(SetCoordinatesTest, BeforeAModelIsLoadedNothingIsAsked) {
    expectNothingBeforeAModelIsLoaded([&] { setCoordinates(editor); });
}

}  // namespace
}  // namespace corvane
