#include "edit/clone.h"

#include <functional>
#include <utility>
#include <vector>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "test_commands.h"
#include "tool_fixture.h"
#include "views/commands/view_commands.h"
#include "views/tool_modes.h"

namespace corvane {
namespace {

/// A square of two faces, and a fifth vertex that belongs to none.
class CloneTest : public ToolTest {
protected:
    CloneTest() {
        loadVertices({{0, 0, 0}, {4, 0, 1}, {4, 4, 2}, {0, 4, 3}, {9, 9, 9}});
        addFace(0, 1, 2);
        addFace(3, 0, 2);
        fillOtherFields();
    }

    /// The vertex with a 1-based number, with this selection flag.
    VertexRecord flagged(int number, bool selected) {
        VertexRecord record = vertex(number);
        record.selected = selected;
        return record;
    }

    void cloneAndMove(const Triple& delta) {
        editor.modes.cloneMode = true;
        moveSelection(editor, delta);
    }
};

TEST_F(CloneTest, AFaceIsSelectedWhenItsThreeCornersAre) {
    EXPECT_EQ(countSelectedFaces(store()), 0);
    select({1, 2});
    EXPECT_EQ(countSelectedFaces(store()), 0);
    select({1, 2, 3});
    EXPECT_EQ(countSelectedFaces(store()), 1);
    select({1, 2, 3, 4});
    EXPECT_EQ(countSelectedFaces(store()), 2);
}

TEST_F(CloneTest, SelectedFacesAreCountedWhateverIsDeletedAndDoubledOnesTwice) {
    select({1, 2, 3});
    flagDeleted({2});
    face(1).deleted = true;
    addFace(2, 1, 0);
    EXPECT_EQ(countSelectedFaces(store()), 2);
    addFace(1, 1, 1);  // degenerate
    EXPECT_EQ(countSelectedFaces(store()), 3);
}

TEST_F(CloneTest, CopiesFollowTheVerticesAndTheSourcesStayAsTheyWereButForTheSelection) {
    select({2, 4});
    Geoset expected = geoset();
    expected.Vertices = {vertex(1), flagged(2, false), vertex(3),       flagged(4, false),
                         vertex(5), flagged(2, true),  flagged(4, true)};
    cloneSelected(store());
    expectGeoset(expected);
    EXPECT_EQ(selected(), (std::vector<int>{6, 7}));
}

TEST_F(CloneTest, AFaceBetweenSelectedVerticesIsCopiedCornerByCorner) {
    select({1, 3, 4});
    cloneSelected(store());
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2", "3 0 2", "7 5 6"}));
}

TEST_F(CloneTest, FacesAreCopiedInTheirOrder) {
    select({1, 2, 3, 4});
    cloneSelected(store());
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2", "3 0 2", "5 6 7", "8 5 7"}));
}

TEST_F(CloneTest, AFaceWithTwoSelectedCornersIsNotCopiedAndItsVerticesAreCopiedLoose) {
    select({1, 2});
    cloneSelected(store());
    EXPECT_EQ(store().Vertices.size(), 7U);
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2", "3 0 2"}));
    EXPECT_EQ(vertex(6).pos, (Triple{0, 0, 0}));
    EXPECT_EQ(vertex(7).pos, (Triple{4, 0, 1}));
}

TEST_F(CloneTest, ASelectedDeletedVertexIsCopiedWithItsFlag) {
    select({2, 5});
    flagDeleted({5});
    cloneSelected(store());
    ASSERT_EQ(store().Vertices.size(), 7U);
    EXPECT_FALSE(vertex(6).deleted);
    EXPECT_TRUE(vertex(7).deleted);
    EXPECT_TRUE(vertex(7).selected);
    EXPECT_TRUE(vertex(5).deleted);
}

TEST_F(CloneTest, AFaceOnADeletedVertexIsCopied) {
    select({1, 2, 3});
    flagDeleted({3});
    cloneSelected(store());
    EXPECT_EQ(faces().back(), "5 6 7");
}

TEST_F(CloneTest, TheCopyOfADeletedFaceIsNotDeleted) {
    select({1, 2, 3});
    face(1).deleted = true;
    cloneSelected(store());
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2, deleted", "3 0 2", "5 6 7"}));
}

TEST_F(CloneTest, BothFacesOfADoubledOneAreCopied) {
    addFace(2, 1, 0);
    select({1, 2, 3});
    cloneSelected(store());
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2", "3 0 2", "2 1 0", "5 6 7", "7 6 5"}));
}

TEST_F(CloneTest, WithNothingSelectedNothingIsAdded) {
    const Geoset before = geoset();
    cloneSelected(store());
    expectGeoset(before);
}

TEST_F(CloneTest, TheMatrixGroupsAreNotTouched) {
    select({1, 2, 3, 4, 5});
    const std::vector<MatrixGroup> before = store().matrixGroups;
    cloneSelected(store());
    EXPECT_EQ(store().matrixGroups, before);
}

TEST_F(CloneTest, TheViewsAreRedrawn) {
    select({1, 2, 3});
    cloneAndMove({1, 0, 0});
    expectDrawn();
}

TEST_F(CloneTest, TheTransformActsOnTheCopies) {
    select({1, 2, 3});
    const Geoset before = geoset();
    cloneAndMove({10, 20, 30});
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(vertex(i).pos, before.Vertices[static_cast<std::size_t>(i) - 1].pos);
    }
    EXPECT_EQ(vertex(6).pos, (Triple{10, 20, 30}));
    EXPECT_EQ(vertex(7).pos, (Triple{14, 20, 31}));
    EXPECT_EQ(vertex(8).pos, (Triple{14, 24, 32}));
    EXPECT_FALSE(editor.modes.cloneMode);
    expectDrawn();
}

TEST_F(CloneTest, TheNextTransformMakesNoCopyAnyMore) {
    select({1, 2, 3});
    cloneAndMove({1, 0, 0});
    moveSelection(editor, {1, 0, 0});
    EXPECT_EQ(store().Vertices.size(), 8U);
    EXPECT_EQ(vertex(6).pos, (Triple{2, 0, 0}));
}

TEST_F(CloneTest, CloningTwiceCopiesOnlyWhatTheFirstLeftSelected) {
    select({1, 2, 3});
    cloneAndMove({10, 0, 0});
    cloneAndMove({10, 0, 0});
    EXPECT_EQ(store().Vertices.size(), 11U);
    EXPECT_EQ(faces(), (std::vector<std::string>{"0 1 2", "3 0 2", "5 6 7", "8 9 10"}));
    EXPECT_EQ(selected(), (std::vector<int>{9, 10, 11}));
    EXPECT_EQ(vertex(6).pos, (Triple{10, 0, 0}));
    EXPECT_EQ(vertex(9).pos, (Triple{20, 0, 0}));
}

TEST_F(CloneTest, CloningIsOneStepThatKeepsBothLists) {
    select({1, 2, 3, 5});
    flagDeleted({5});
    const Geoset before = geoset();
    cloneAndMove({10, 20, 30});
    expectStep("Clone", {.keepFaces = true, .keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(CloneTest, EachOfTwoCloningsIsUndoneByItself) {
    select({1, 2, 3});
    const Geoset before = geoset();
    cloneAndMove({10, 0, 0});
    const Geoset between = geoset();
    cloneAndMove({0, 10, 0});
    undoLast(editor);
    expectGeoset(between);
    expectUndoneTo(before);
}

TEST_F(CloneTest, TheUndoOfEachTransformEndsCloneModeAndNoOtherDoes) {
    double angle = 30;
    const std::vector<std::pair<std::function<void()>, bool>> edits = {
        {[&] {
             moveSelection(editor, {1, 2, 3});
         },
         false},
        {[&] { scaleSelection(editor, 10, 5); }, false},
        {[&] { rotateSelection(editor, angle, Axis::Y); }, false},
        {[&] { deleteSelection(editor); }, true}};
    for (const auto& [edit, staysOn] : edits) {
        select({1, 2, 3});
        edit();
        editor.modes.cloneMode = true;
        undoLast(editor);
        EXPECT_EQ(editor.modes.cloneMode, staysOn);
        editor.modes.cloneMode = false;
    }
}

TEST_F(CloneTest, WithNothingSelectedTheTransformChangesNothingButRecordsTheStep) {
    const Geoset before = geoset();
    cloneAndMove({10, 20, 30});
    expectGeoset(before);
    expectStep("Clone", {.keepFaces = true, .keepVertices = true}, {0, 0, 0}, before);
    EXPECT_FALSE(editor.modes.cloneMode);
    expectUndoneTo(before);
}

TEST_F(CloneTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { cloneSelected(store()); });
    expectNothingBeforeAModelIsLoaded([&] { cloneAndMove({1, 2, 3}); });
    EXPECT_EQ(countSelectedFaces(store()), 0);
    EXPECT_TRUE(dialogs.asked.empty());
}

class CloneLimitTest : public CloneTest {
protected:
    /// A store with that many vertices, the first `selectedCount` of them selected, and that many
    /// faces, of which the first `selectedFaces` lie on vertices 1 to 3 and the rest on the last.
    void load(std::size_t vertices, std::size_t selectedCount, std::size_t faceCount,
              std::size_t selectedFaces) {
        store() = {};
        loadVertices(std::vector<Triple>(vertices, Triple{1, 2, 3}));
        for (std::size_t i = 0; i < selectedCount; ++i) store().Vertices[i].selected = true;
        const auto last = static_cast<std::int16_t>(vertices - 1);
        store().Faces.assign(faceCount, {.corner = {last, last, last}});
        for (std::size_t i = 0; i < selectedFaces; ++i) store().Faces[i].corner = {0, 1, 2};
    }

    /// Everything stays as it was: the geoset, the history and clone mode.
    void expectRefused(const std::function<void()>& transform, const std::string& message) {
        const Geoset before = geoset();
        dialogs.asked.clear();
        editor.modes.cloneMode = true;
        transform();
        expectMessage("Error", message);
        EXPECT_TRUE(geoset() == before);
        EXPECT_FALSE(store().isModified());
        expectNoStep();
        EXPECT_TRUE(editor.modes.cloneMode);
    }
};

TEST_F(CloneLimitTest, TheVerticesMayGrowTo32767) {
    load(20000, 12767, 0, 0);
    cloneAndMove({1, 1, 1});
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(store().Vertices.size(), 32767U);
    EXPECT_EQ(vertex(32767).pos, (Triple{2, 3, 4}));
    EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 3}));
}

TEST_F(CloneLimitTest, OneVertexMoreIsRefusedWithTheNumbers) {
    load(20000, 12768, 0, 0);
    expectRefused(
        [&] {
            moveSelection(editor, {1, 1, 1});
        },
        "The cloned geoset would be too large: 20000 + 12768 = 32768 vertices (at most "
        "32767), 0 + 0 = 0 faces (at most 32767). Nothing was changed.");
}

TEST_F(CloneLimitTest, TheFacesMayGrowTo32767) {
    load(4, 3, 32000, 767);
    cloneAndMove({1, 1, 1});
    EXPECT_TRUE(dialogs.asked.empty());
    ASSERT_EQ(store().Faces.size(), 32767U);
    EXPECT_EQ(faceText(store().Faces.back()), "4 5 6");
}

TEST_F(CloneLimitTest, OneFaceMoreIsRefusedWithTheNumbers) {
    load(4, 3, 32000, 768);
    expectRefused(
        [&] {
            moveSelection(editor, {1, 1, 1});
        },
        "The cloned geoset would be too large: 4 + 3 = 7 vertices (at most 32767), "
        "32000 + 768 = 32768 faces (at most 32767). Nothing was changed.");
}

TEST_F(CloneLimitTest, NoTransformHappensWithoutItsCopy) {
    load(16384, 16384, 0, 0);
    const std::string message =
        "The cloned geoset would be too large: 16384 + 16384 = 32768 vertices (at most 32767), "
        "0 + 0 = 0 faces (at most 32767). Nothing was changed.";
    expectRefused([&] { scaleSelection(editor, 100, 0); }, message);
    double angle = 90;
    expectRefused([&] { rotateSelection(editor, angle, Axis::Z); }, message);
    toggleClone(editor);
    moveSelection(editor, {1, 0, 0});  // without clone mode it goes on
    EXPECT_EQ(vertex(16384).pos, (Triple{2, 2, 3}));
}

}  // namespace
}  // namespace corvane
