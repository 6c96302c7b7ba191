#include "model/commands/open_model.h"
#include "tool_fixture.h"
#include "views/commands/marker_commands.h"
#include "views/commands/mouse.h"

namespace corvane {
namespace {

// The centre of the pictures and the zoom at the start.
constexpr double kCentreX = 1567.5;
constexpr double kCentreY = 1507.5;
constexpr double kZoom = 20;

class MarkerToolsTest : public ToolTest {
protected:
    /// The 1-based slots that hold a marker.
    std::vector<int> used() const {
        std::vector<int> slots;
        for (std::size_t i = 0; i < editor.markers.size(); ++i) {
            if (editor.markers[i].used) slots.push_back(static_cast<int>(i) + 1);
        }
        return slots;
    }

    const Triple& marker(int slot) const {
        return editor.markers.at(static_cast<std::size_t>(slot) - 1).pos;
    }

    /// Puts markers into exactly these slots, each at its number on all axes.
    void fill(const std::vector<int>& slots) {
        editor.markers = {};
        for (const int slot : slots) {
            const double at = slot;
            editor.markers.at(static_cast<std::size_t>(slot) - 1) = {{at, at, at}, true};
        }
    }

    static std::vector<int> slotsUpTo(int last) {
        std::vector<int> slots;
        for (int slot = 1; slot <= last; ++slot) slots.push_back(slot);
        return slots;
    }

    void add(const std::vector<std::optional<std::string>>& answers) {
        dialogs.asked.clear();
        dialogs.inputs.assign(answers.begin(), answers.end());
        addMarker(editor);
    }

    /// A release of the left button over a model point of a view.
    void release(View view, double h, double v) {
        mouseUp(editor, view, MouseButton::Left, kCentreX + kZoom * h, kCentreY - kZoom * v);
    }

    /// Neither the geoset nor the history may change, whatever is done with markers.
    void expectOnlyMarkers(const std::function<void()>& tool) {
        const Geoset before = geoset();
        tool();
        expectGeoset(before);
        expectNoStep();
        EXPECT_FALSE(store().isModified());
    }
};

TEST_F(MarkerToolsTest, TheFirstFreeSlotIsTaken) {
    EXPECT_EQ(findFreeMarker(editor.markers), 1);
    fill({1, 2, 4});
    EXPECT_EQ(findFreeMarker(editor.markers), 3);
    fill(slotsUpTo(19));
    EXPECT_EQ(findFreeMarker(editor.markers), 20);
}

TEST_F(MarkerToolsTest, WithEverySlotInUseTheLastOneIsTaken) {
    fill(slotsUpTo(20));
    EXPECT_EQ(findFreeMarker(editor.markers), 20);
    add({"7", "8", "9"});
    EXPECT_EQ(marker(20), (Triple{8, 9, 7}));
    EXPECT_EQ(marker(19), (Triple{19, 19, 19}));
    EXPECT_EQ(used(), slotsUpTo(20));
    EXPECT_EQ(dialogs.asked.size(), 3U);  // and no message
}

TEST_F(MarkerToolsTest, ThreeBoxesAskForZThenXThenY) {
    add({"1.5", "-2", "3e2"});
    EXPECT_EQ(used(), std::vector<int>{1});
    EXPECT_EQ(marker(1), (Triple{-2, 300, 1.5}));
    ASSERT_EQ(dialogs.asked.size(), 3U);
    EXPECT_EQ(dialogs.asked[0].text, "Z (front/back)");
    EXPECT_EQ(dialogs.asked[1].text, "X (left/right)");
    EXPECT_EQ(dialogs.asked[2].text, "Y (up/down)");
    for (const auto& asked : dialogs.asked) {
        EXPECT_EQ(asked.kind, "input");
        EXPECT_EQ(asked.title, "Add marker");
        EXPECT_EQ(asked.defaultText, "0");
    }
}

TEST_F(MarkerToolsTest, CancelAbandonsTheAddition) {
    add({std::nullopt});
    EXPECT_EQ(dialogs.asked.size(), 1U);
    add({"1", std::nullopt});
    EXPECT_EQ(dialogs.asked.size(), 2U);
    add({"1", "2", std::nullopt});
    EXPECT_EQ(dialogs.asked.size(), 3U);
    EXPECT_EQ(used(), std::vector<int>{});
}

TEST_F(MarkerToolsTest, AnAnswerThatIsNoNumberGetsAMessageAndIsAskedAgain) {
    add({"", "abc", "1,5", "1", "1e999", "2", "3"});
    ASSERT_EQ(dialogs.asked.size(), 11U);
    EXPECT_EQ(dialogs.asked[1].kind, "message");
    EXPECT_EQ(dialogs.asked[1].title, "Error");
    EXPECT_EQ(dialogs.asked[1].text,
              "A coordinate is a number within the range of a double, such as 1.5. Cancel adds no "
              "marker.");
    EXPECT_EQ(marker(1), (Triple{2, 3, 1}));
}

TEST_F(MarkerToolsTest, AnAbandonedAdditionLeavesTheMarkerInTheLastSlot) {
    fill(slotsUpTo(20));
    add({"7", "8", std::nullopt});
    EXPECT_EQ(marker(20), (Triple{20, 20, 20}));
    EXPECT_EQ(used(), slotsUpTo(20));
}

TEST_F(MarkerToolsTest, TheAnswersFollowTheUsersDecimalSeparator) {
    editor.userNumbers.decimalPoint = ",";
    add({"1,5", "2", "-0,25"});
    EXPECT_EQ(marker(1), (Triple{2, -0.25, 1.5}));
}

TEST_F(MarkerToolsTest, AMarkerAtTheSelectionIsItsCentre) {
    loadVertices({{0, 2, 4}, {4, 4, -8}, {100, 100, 100}, {50, 50, 50}});
    select({1, 2, 3});
    flagDeleted({3});
    expectOnlyMarkers([&] { addMarkerAtSelection(editor); });
    EXPECT_EQ(used(), std::vector<int>{1});
    EXPECT_EQ(marker(1), (Triple{2, 3, -2}));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(MarkerToolsTest, AMarkerAtAnEmptySelectionIsAtTheOrigin) {
    loadVertices({{5, 5, 5}});
    fill({1});
    addMarkerAtSelection(editor);
    EXPECT_EQ(used(), (std::vector<int>{1, 2}));
    EXPECT_EQ(marker(2), (Triple{0, 0, 0}));
    select({1});
    flagDeleted({1});
    addMarkerAtSelection(editor);
    EXPECT_EQ(marker(3), (Triple{0, 0, 0}));
}

TEST_F(MarkerToolsTest, AddingDoesNotRedraw) {
    loadVertices({{5, 5, 5}});
    select({1});
    expectOnlyMarkers([&] {
        add({"1", "2", "3"});
        addMarkerAtSelection(editor);
        addMarkerGraphically(editor);
        release(View::Front, 1, 2);
    });
    EXPECT_EQ(used(), (std::vector<int>{1, 2, 3}));
    expectNotDrawn();
    redrawAll(editor);
    // Two axis marks, a vertex, and a cross and a circle for each marker.
    EXPECT_EQ(front.primitives().size(), 3U + 9U);
    EXPECT_EQ(front.primitives().back().kind, Primitive::Kind::Circle);
    EXPECT_EQ(front.primitives().back().colour, kBlue);
}

TEST_F(MarkerToolsTest, AReleaseInEachViewPlacesTheArmedMarkerAtDepthZero) {
    loadVertices({{5, 5, 5}});
    for (const View view : kViews) {
        addMarkerGraphically(editor);
        EXPECT_TRUE(editor.modes.placingMarker);
        release(view, 3, -4.5);
        EXPECT_FALSE(editor.modes.placingMarker);
    }
    EXPECT_EQ(used(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(marker(1), (Triple{3, -4.5, 0}));  // front
    EXPECT_EQ(marker(2), (Triple{3, 0, -4.5}));  // top
    EXPECT_EQ(marker(3), (Triple{0, -4.5, 3}));  // left
}

TEST_F(MarkerToolsTest, PlacingReplacesAllThreeCoordinatesOfTheLastSlot) {
    fill(slotsUpTo(20));
    addMarkerGraphically(editor);
    release(View::Top, 1, 2);
    EXPECT_EQ(marker(20), (Triple{1, 0, 2}));
}

TEST_F(MarkerToolsTest, PlacingTakesTheReleaseAndNotThePress) {
    addMarkerGraphically(editor);
    mouseDown(editor, View::Front, 0, 0);
    release(View::Front, 6, 7);
    EXPECT_EQ(marker(1), (Triple{6, 7, 0}));
}

TEST_F(MarkerToolsTest, WhilePlacingTheLeftButtonSelectsNothingOnce) {
    loadVertices({{5, 5, 5}});
    addMarkerGraphically(editor);
    mouseDown(editor, View::Front, kCentreX, kCentreY);
    release(View::Front, 10, 10);
    EXPECT_EQ(selected(), std::vector<int>{});
    expectNoStep();
    mouseDown(editor, View::Front, kCentreX, kCentreY);
    release(View::Front, 10, 10);
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(used(), std::vector<int>{1});
}

TEST_F(MarkerToolsTest, AnotherButtonLeavesThePlacementPending) {
    loadVertices({{5, 5, 5}});
    addMarkerGraphically(editor);
    mouseUp(editor, View::Front, MouseButton::Other, 10, 10);
    EXPECT_TRUE(editor.modes.placingMarker);
    EXPECT_EQ(used(), std::vector<int>{});
    EXPECT_EQ(newest().name, "Move");
}

TEST_F(MarkerToolsTest, ArmingAndPlacingRefreshTheCheckMark) {
    std::vector<bool> seen;
    window.onUpdateButtons = [&] { seen.push_back(editor.modes.placingMarker); };
    addMarkerGraphically(editor);
    release(View::Left, 1, 1);
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

TEST_F(MarkerToolsTest, RemoveLastTakesTheHighestSlotAndRedraws) {
    loadVertices({{5, 5, 5}});
    fill({1, 2, 3});
    expectOnlyMarkers([&] { removeLastMarker(editor); });
    EXPECT_EQ(used(), (std::vector<int>{1, 2}));
    expectDrawn();
    removeLastMarker(editor);
    EXPECT_EQ(used(), (std::vector<int>{1}));
    removeLastMarker(editor);
    EXPECT_EQ(used(), std::vector<int>{});
    fill({2, 7, 20});
    removeLastMarker(editor);
    EXPECT_EQ(used(), (std::vector<int>{2, 7}));
    expectDrawn();
}

TEST_F(MarkerToolsTest, RemoveLastTakesTheHighestSlotEvenWhereAnotherWasAddedLater) {
    fill({2, 3});
    add({"0", "0", "0"});  // into slot 1
    removeLastMarker(editor);
    EXPECT_EQ(used(), (std::vector<int>{1, 2}));
}

TEST_F(MarkerToolsTest, ANewMarkerTakesTheSlotThatRemoveLastFreed) {
    fill({1, 2, 3});
    removeLastMarker(editor);
    add({"7", "8", "9"});
    EXPECT_EQ(used(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(marker(3), (Triple{8, 9, 7}));
}

TEST_F(MarkerToolsTest, RemoveAllEmptiesEverySlotAndRedraws) {
    loadVertices({{5, 5, 5}});
    fill(slotsUpTo(20));
    expectOnlyMarkers([&] { removeAllMarkers(editor); });
    EXPECT_EQ(used(), std::vector<int>{});
    expectDrawn();
    add({"7", "8", "9"});
    EXPECT_EQ(used(), std::vector<int>{1});
}

TEST_F(MarkerToolsTest, RemovingFromNoneOnlyRedraws) {
    loadVertices({{5, 5, 5}});
    removeLastMarker(editor);
    EXPECT_EQ(used(), std::vector<int>{});
    expectDrawn();
    front.clear();
    removeAllMarkers(editor);
    expectDrawn();
}

TEST_F(MarkerToolsTest, OpeningAnotherModelKeepsTheMarkers) {
    loadVertices({{5, 5, 5}});
    fill({1, 4});
    takeIntoStore(editor, Geoset{}, 1);
    EXPECT_EQ(used(), (std::vector<int>{1, 4}));
}

TEST_F(MarkerToolsTest, BeforeAModelIsLoadedMarkersComeAndGoAndNothingIsDrawn) {
    expectNothingBeforeAModelIsLoaded([&] {
        add({"1", "2", "3"});
        addMarkerAtSelection(editor);
        addMarkerGraphically(editor);
        release(View::Front, 1, 2);
    });
    EXPECT_EQ(used(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(marker(2), (Triple{0, 0, 0}));
    expectNothingBeforeAModelIsLoaded([&] { removeLastMarker(editor); });
    EXPECT_EQ(used(), (std::vector<int>{1, 2}));
    expectNothingBeforeAModelIsLoaded([&] { removeAllMarkers(editor); });
    EXPECT_EQ(used(), std::vector<int>{});
}

}  // namespace
}  // namespace corvane
