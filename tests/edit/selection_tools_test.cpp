// Growing the selection over faces, counting it, and its centre of mass.
#include <numeric>

#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "test_commands.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

class ExpandSelectionTest : public ToolTest {
protected:
    /// A closed box of twelve faces on vertices 1 to 8, and a triangle on vertices 9 to 11.
    void loadBoxAndTriangle() {
        loadVertices({{0, 0, 0},
                      {1, 0, 0},
                      {1, 1, 0},
                      {0, 1, 0},
                      {0, 0, 1},
                      {1, 0, 1},
                      {1, 1, 1},
                      {0, 1, 1},
                      {5, 0, 0},
                      {6, 0, 0},
                      {5, 1, 0}});
        const std::vector<std::array<int, 4>> sides = {{{0, 1, 2, 3}}, {{4, 5, 6, 7}},
                                                       {{0, 1, 5, 4}}, {{3, 2, 6, 7}},
                                                       {{0, 3, 7, 4}}, {{1, 2, 6, 5}}};
        for (const auto& [a, b, c, d] : sides) {
            addFace(a, b, c);
            addFace(a, c, d);
        }
        addFace(8, 9, 10);
        fillOtherFields();
    }
};

TEST_F(ExpandSelectionTest, OneVertexOfAClosedBoxSelectsAllEightAndNoOtherPiece) {
    for (int start = 1; start <= 8; ++start) {
        store() = {};
        loadBoxAndTriangle();
        select({start});
        expandSelection(editor);
        EXPECT_EQ(selected(), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
    }
}

TEST_F(ExpandSelectionTest, EachSelectedPieceGrowsByItself) {
    loadBoxAndTriangle();
    select({10});
    expandSelection(editor);
    EXPECT_EQ(selected(), (std::vector<int>{9, 10, 11}));
    select({7, 11});
    expandSelection(editor);
    EXPECT_EQ(selected().size(), 11U);
}

TEST_F(ExpandSelectionTest, OnlySelectedFlagsChange) {
    loadBoxAndTriangle();
    select({9});
    flagDeleted({2, 9});
    Geoset expected = geoset();
    for (std::size_t i = 8; i < 11; ++i) expected.Vertices[i].selected = true;
    expandSelection(editor);
    expectGeoset(expected);
    expectDrawn();
}

TEST_F(ExpandSelectionTest, WithNothingSelectedNothingBecomesSelected) {
    loadBoxAndTriangle();
    const Geoset before = geoset();
    expandSelection(editor);
    expectGeoset(before);
    expectStep("Selection", {.keepSelection = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
}

TEST_F(ExpandSelectionTest, AVertexOfNoFaceStaysSelectedAlone) {
    loadBoxAndTriangle();
    store().Vertices.emplace_back();
    select({12});
    expandSelection(editor);
    EXPECT_EQ(selected(), (std::vector<int>{12}));
}

TEST_F(ExpandSelectionTest, ItGoesOverDeletedFacesAndVertices) {
    loadVertices({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}});
    addFace(0, 1, 2);
    addFace(2, 3, 4);
    face(1).deleted = true;
    flagDeleted({3, 4});
    select({1});
    expandSelection(editor);
    EXPECT_EQ(selected(), (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST_F(ExpandSelectionTest, PiecesThatOnlyTouchInSpaceStayApart) {
    loadVertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1, 0, 0}, {0, 0, 1}});
    addFace(0, 1, 2);
    addFace(3, 4, 5);
    select({2});
    expandSelection(editor);
    EXPECT_EQ(selected(), (std::vector<int>{1, 2, 3}));
}

TEST_F(ExpandSelectionTest, ALongStripIsFollowedWhicheverWayItsFacesAreListed) {
    constexpr int kVertices = 30000;
    for (const bool backwards : {false, true}) {
        store() = {};
        loadVertices(std::vector<Triple>(kVertices, Triple{0, 0, 0}));
        for (int i = 0; i + 3 < kVertices; ++i) addFace(i, i + 1, i + 2);  // without the last one
        if (backwards) std::reverse(store().Faces.begin(), store().Faces.end());
        select({1});
        expandSelection(editor);
        std::vector<int> expected(kVertices - 1);
        std::iota(expected.begin(), expected.end(), 1);
        EXPECT_TRUE(selected() == expected);
    }
}

TEST_F(ExpandSelectionTest, ItIsOneStepThatKeepsTheSelectionAndIsUndone) {
    loadBoxAndTriangle();
    select({3, 9, 10});
    flagDeleted({10});
    const Geoset before = geoset();
    expandSelection(editor);
    expectStep("Selection", {.keepSelection = true}, {0, 0, 0}, before);
    EXPECT_FALSE(store().isModified());  // a save writes nothing else than before
    expectUndoneTo(before);
    expectDrawn();
}

TEST_F(ExpandSelectionTest, BeforeAModelIsLoadedNothingHappens) {
    expectNothingBeforeAModelIsLoaded([&] { expandSelection(editor); });
}

class CountersTest : public ToolTest {
protected:
    CountersTest() {
        loadVertices({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
        addFace(0, 1, 2);
        addFace(1, 3, 2);
    }

    /// Shows a counter and expects its text, and that it changes nothing.
    void expectCount(void (*show)(Editor&), const std::string& caption, const std::string& text) {
        const Geoset before = geoset();
        dialogs.asked.clear();
        show(editor);
        expectMessage(caption, text);
        expectGeoset(before);
        expectNoStep();
        expectNotDrawn();
    }
    void expectVertices(const std::string& text) {
        expectCount(showVertexCount, "Selected vertex counter", text);
    }
    void expectFaces(const std::string& text) {
        expectCount(showFaceCount, "Selected face counter", text);
    }
};

TEST_F(CountersTest, TheyCountTheSelection) {
    expectVertices("0 vertices selected.");
    expectFaces("0 faces selected.");
    select({4});
    expectVertices("1 vertices selected.");
    expectFaces("0 faces selected.");
    select({1, 2, 3});
    expectVertices("3 vertices selected.");
    expectFaces("1 faces selected.");
    select({1, 2, 3, 4});
    expectVertices("4 vertices selected.");
    expectFaces("2 faces selected.");
}

TEST_F(CountersTest, TheyCountWhatIsDeletedToo) {
    select({1, 2, 3});
    flagDeleted({3});
    face(1).deleted = true;
    expectVertices("3 vertices selected.");
    expectFaces("1 faces selected.");
}

TEST_F(CountersTest, BeforeAModelIsLoadedTheySaySo) {
    store() = {};
    expectVertices("No model loaded.");
    expectFaces("No model loaded.");
}

class CentreOfMassTest : public ToolTest {
protected:
    /// What the input box shows; whatever is typed into it is ignored.
    std::string viewed(const std::optional<std::string>& typed = std::nullopt) {
        const Geoset before = geoset();
        dialogs.asked.clear();
        dialogs.inputs.push_back(typed);
        viewCentreOfMass(editor);
        EXPECT_EQ(dialogs.asked.size(), 1U);
        EXPECT_EQ(dialogs.last().kind, "input");
        EXPECT_EQ(dialogs.last().title, "Center of mass");
        EXPECT_EQ(dialogs.last().text, "Center of mass:");
        expectGeoset(before);
        expectNoStep();
        expectNotDrawn();
        return dialogs.last().defaultText;
    }

    /// What comes to the clipboard, without any box.
    std::string copied() {
        const Geoset before = geoset();
        dialogs.asked.clear();
        window.clipboard = "as before";
        copyCentreOfMass(editor);
        EXPECT_TRUE(dialogs.asked.empty());
        expectGeoset(before);
        expectNoStep();
        expectNotDrawn();
        return window.clipboard;
    }

    void expectText(const std::string& text) {
        EXPECT_EQ(viewed(), text);
        EXPECT_EQ(copied(), text);
    }
};

TEST_F(CentreOfMassTest, TheTripleIsInTheFilesOrder) {
    loadVertices({{2, 3, 1}, {9, 9, 9}});  // the file's 1, 2, 3
    select({1});
    expectText("{ 1, 2, 3 }");
}

TEST_F(CentreOfMassTest, ItIsTheMeanOfTheSelectedVerticesThatAreNotDeleted) {
    loadVertices({{0, 0, 0}, {1, -4, 2.5}, {50, 50, 50}, {60, 60, 60}});
    select({1, 2, 3});
    flagDeleted({3});
    expectText("{ 1.25, 0.5, -2 }");
}

TEST_F(CentreOfMassTest, EachNumberIsRoundedToSixPlacesTiesToEven) {
    loadVertices({{0.1234567, 0.12345649, -1.9999999}});
    select({1});
    expectText("{ -2, 0.123457, 0.123456 }");
    vertex(1).pos = {0.0000004, -0.0000004, 0.0000005};  // the tie goes to the even 0
    expectText("{ 0, 0, 0 }");
    vertex(1).pos = {0.0000015, 123456.7890123, 1e15};
    expectText("{ 1e15, 2e-6, 123456.789012 }");
}

TEST_F(CentreOfMassTest, TheNumbersFollowTheUsersDecimalSeparator) {
    editor.userNumbers.decimalPoint = ",";
    loadVertices({{2.5, 3, -1.25}});
    select({1});
    expectText("{ -1,25, 2,5, 3 }");
}

TEST_F(CentreOfMassTest, WithEverySelectedVertexDeletedItIsTheOrigin) {
    loadVertices({{2, 3, 1}});
    select({1});
    flagDeleted({1});
    expectText("{ 0, 0, 0 }");
}

TEST_F(CentreOfMassTest, WhatIsTypedIntoTheBoxIsIgnored) {
    loadVertices({{2, 3, 1}});
    select({1});
    EXPECT_EQ(viewed("{ 7, 7, 7 }"), "{ 1, 2, 3 }");
    EXPECT_EQ(viewed(""), "{ 1, 2, 3 }");
    EXPECT_EQ(window.clipboard, "");
}

TEST_F(CentreOfMassTest, WithNothingSelectedViewSaysSoAndCopyLeavesTheClipboard) {
    loadVertices({{2, 3, 1}});
    viewCentreOfMass(editor);
    expectMessage("Error", "No vertices selected,");
    EXPECT_EQ(copied(), "as before");
}

TEST_F(CentreOfMassTest, BeforeAModelIsLoadedViewSaysSoAndCopyLeavesTheClipboard) {
    viewCentreOfMass(editor);
    expectMessage("Center of mass", "No model loaded.");
    EXPECT_EQ(copied(), "as before");
    expectGeoset({});
}

}  // namespace
}  // namespace corvane
