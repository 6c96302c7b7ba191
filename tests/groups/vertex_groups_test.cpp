#include "groups/commands/group_commands.h"
#include "groups/group_number.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

TEST(ToInt16, TakesAWholeNumber) {
    EXPECT_EQ(toInt16("0", {}), 0);
    EXPECT_EQ(toInt16(" 12 ", {}), 12);
    EXPECT_EQ(toInt16("-7", {}), -7);
    EXPECT_EQ(toInt16("1e3", {}), 1000);
}

TEST(ToInt16, RoundsAFractionToTheNearestAndATieToTheEvenOne) {
    EXPECT_EQ(toInt16("2.4", {}), 2);
    EXPECT_EQ(toInt16("2.6", {}), 3);
    EXPECT_EQ(toInt16("2.5", {}), 2);
    EXPECT_EQ(toInt16("3.5", {}), 4);
    EXPECT_EQ(toInt16("-0.5", {}), 0);
    EXPECT_EQ(toInt16("-1.5", {}), -2);
    EXPECT_EQ(toInt16("2,6", {.decimalPoint = ","}), 3);
}

TEST(ToInt16, KeepsWithinSixteenSignedBits) {
    EXPECT_EQ(toInt16("32767", {}), 32767);
    EXPECT_EQ(toInt16("-32768", {}), -32768);
    EXPECT_EQ(toInt16("32767.4", {}), 32767);
    EXPECT_EQ(toInt16("-32768.5", {}), -32768);
    for (const char* outside : {"32768", "32767.5", "-32769", "-32768.6", "65536", "1e300"}) {
        EXPECT_EQ(toInt16(outside, {}), std::nullopt) << outside;
    }
}

TEST(ToInt16, TakesNothingElse) {
    for (const char* wrong : {"", " ", "abc", "1 2", "2,6", "nan", "inf", "0x10"}) {
        EXPECT_EQ(toInt16(wrong, {}), std::nullopt) << wrong;
    }
}

class VertexGroupsTest : public ToolTest {
protected:
    VertexGroupsTest() {
        loadVertices({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}});
        addFace(0, 1, 2);
        fillOtherFields();
        setGroups({0, 3, 3, 5, 3});
    }

    void setGroups(const std::vector<std::int16_t>& groups) {
        for (std::size_t i = 0; i < groups.size(); ++i) store().Vertices[i].group = groups[i];
    }

    /// Answers, each of them the next one typed.
    void answer(const std::vector<std::optional<std::string>>& answers) {
        dialogs.inputs.assign(answers.begin(), answers.end());
    }
};

using AssignVertexGroupTest = VertexGroupsTest;

TEST_F(AssignVertexGroupTest, TheSelectedVerticesGetTheGroupDeletedOnesIncluded) {
    select({2, 4});
    flagDeleted({4});
    Geoset expected = geoset();
    expected.Vertices[1].group = expected.Vertices[3].group = 7;
    answer({"7"});
    assignVertexGroup(editor);
    expectGeoset(expected);
    EXPECT_TRUE(store().isModified());
}

TEST_F(AssignVertexGroupTest, OneBoxAsksForTheGroup) {
    answer({"7"});
    assignVertexGroup(editor);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().kind, "input");
    EXPECT_EQ(dialogs.last().title, "Assign Vertex Group");
    EXPECT_EQ(dialogs.last().text, "Vertex group");
    EXPECT_EQ(dialogs.last().defaultText, "0");
}

TEST_F(AssignVertexGroupTest, TheGroupMayExceedTheMatrixGroupsThereAreAndMayBeNegative) {
    select({1});
    answer({"32767"});
    assignVertexGroup(editor);
    EXPECT_EQ(vertex(1).group, 32767);
    answer({"-1.5"});
    assignVertexGroup(editor);
    EXPECT_EQ(vertex(1).group, -2);
}

TEST_F(AssignVertexGroupTest, AnAnswerThatIsNoNumberIsAskedAgain) {
    select({1});
    answer({"abc", " ", "32768", "-40000", "2.6"});
    assignVertexGroup(editor);
    ASSERT_EQ(dialogs.asked.size(), 7U);
    EXPECT_EQ(dialogs.asked[3].kind, "message");
    EXPECT_EQ(dialogs.asked[3].text, "A vertex group is a whole number from -32768 to 32767.");
    EXPECT_EQ(vertex(1).group, 3);
}

TEST_F(AssignVertexGroupTest, AnEmptyAnswerOrCancelChangesNothingAndRecordsNoStep) {
    select({1, 2});
    const Geoset before = geoset();
    for (const std::optional<std::string>& end : {std::optional<std::string>(""), {}}) {
        answer({"abc", end});
        assignVertexGroup(editor);
        expectGeoset(before);
        expectNoStep();
        EXPECT_FALSE(store().isModified());
    }
}

TEST_F(AssignVertexGroupTest, ItIsOneStepThatKeepsTheVerticesAndIsUndone) {
    select({1, 2, 5});
    flagDeleted({5});
    const Geoset before = geoset();
    answer({"abc", "7"});
    assignVertexGroup(editor);
    expectStep("Assign Vertex Group", {.keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
}

TEST_F(AssignVertexGroupTest, NothingIsRedrawn) {
    select({1});
    answer({"7"});
    assignVertexGroup(editor);
    expectNotDrawn();
}

TEST_F(AssignVertexGroupTest, WithNothingSelectedOnlyTheStepIsRecorded) {
    const Geoset before = geoset();
    answer({"7"});
    assignVertexGroup(editor);
    expectGeoset(before);
    expectStep("Assign Vertex Group", {.keepVertices = true}, {0, 0, 0}, before);
    expectUndoneTo(before);
}

TEST_F(AssignVertexGroupTest, BeforeAModelIsLoadedNothingChanges) {
    answer({"7"});
    expectNothingBeforeAModelIsLoaded([&] { assignVertexGroup(editor); });
}

using SelectByVertexGroupTest = VertexGroupsTest;

TEST_F(SelectByVertexGroupTest, SelectModeSelectsExactlyTheGroupsVerticesThatAreNotDeleted) {
    select({1, 3, 4});
    flagDeleted({3, 4});
    Geoset expected = geoset();
    for (const std::size_t i : {0U, 2U, 3U}) expected.Vertices[i].selected = false;
    expected.Vertices[1].selected = expected.Vertices[4].selected = true;
    answer({"3"});
    selectByVertexGroup(editor);
    expectGeoset(expected);
    expectDrawn();
}

TEST_F(SelectByVertexGroupTest, AddModeKeepsTheSelectionAndAddsTheGroup) {
    editor.modes.selectMode = SelectMode::Add;
    select({1});
    flagDeleted({5});
    answer({"3"});
    selectByVertexGroup(editor);
    EXPECT_EQ(selected(), (std::vector<int>{1, 2, 3}));
}

TEST_F(SelectByVertexGroupTest, DeselectModeTakesTheGroupOutButNotItsDeletedVertices) {
    editor.modes.selectMode = SelectMode::Deselect;
    select({1, 2, 3, 5});
    flagDeleted({5});
    answer({"3"});
    selectByVertexGroup(editor);
    EXPECT_EQ(selected(), (std::vector<int>{1, 5}));
}

TEST_F(SelectByVertexGroupTest, AGroupOfNoVertexEmptiesTheSelectionInSelectModeOnly) {
    for (const SelectMode mode : {SelectMode::Add, SelectMode::Deselect, SelectMode::Select}) {
        editor.modes.selectMode = mode;
        select({1, 2});
        answer({"4"});
        selectByVertexGroup(editor);
        EXPECT_EQ(selected(),
                  mode == SelectMode::Select ? std::vector<int>{} : (std::vector<int>{1, 2}));
    }
}

TEST_F(SelectByVertexGroupTest, OneBoxAsksForTheGroup) {
    answer({"3"});
    selectByVertexGroup(editor);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().kind, "input");
    EXPECT_EQ(dialogs.last().text, "Vertex group to select");
    EXPECT_EQ(dialogs.last().defaultText, "");
}

TEST_F(SelectByVertexGroupTest, AnAnswerThatIsNoNumberIsAskedAgain) {
    answer({"", "abc", "32768", "4.6"});
    selectByVertexGroup(editor);
    EXPECT_EQ(dialogs.asked.size(), 5U);
    EXPECT_EQ(dialogs.asked[3].kind, "message");
    EXPECT_EQ(selected(), (std::vector<int>{4}));
}

TEST_F(SelectByVertexGroupTest, CancelChangesNothing) {
    select({1, 4});
    const Geoset before = geoset();
    for (const SelectMode mode : {SelectMode::Select, SelectMode::Add, SelectMode::Deselect}) {
        editor.modes.selectMode = mode;
        answer({"abc", std::nullopt});
        selectByVertexGroup(editor);
        expectGeoset(before);
        expectNoStep();
    }
}

TEST_F(SelectByVertexGroupTest, NoStepIsRecorded) {
    answer({"3"});
    selectByVertexGroup(editor);
    expectNoStep();
    EXPECT_FALSE(store().isModified());
}

TEST_F(SelectByVertexGroupTest, BeforeAModelIsLoadedNothingHappens) {
    answer({"0"});
    expectNothingBeforeAModelIsLoaded([&] { selectByVertexGroup(editor); });
}

class ShowVertexGroupsTest : public VertexGroupsTest {
protected:
    /// What is said of a selection of these groups, each with a vertex, in that order.
    std::string textFor(const std::vector<std::int16_t>& groups) {
        loadVertices(std::vector<Triple>(groups.size() + 1));
        vertex(static_cast<int>(groups.size()) + 1).group = 99;  // not selected
        setGroups(groups);
        for (std::size_t i = 0; i < groups.size(); ++i) store().Vertices[i].selected = true;
        dialogs.asked.clear();
        showVertexGroups(editor);
        EXPECT_EQ(dialogs.asked.size(), 1U);
        EXPECT_EQ(dialogs.last().kind, "message");
        return dialogs.last().text;
    }
};

TEST_F(ShowVertexGroupsTest, TheGroupsAreListedWithACommaBeforeTheAnd) {
    EXPECT_EQ(textFor({2}), "Vertex group(s) 2 were selected.");
    EXPECT_EQ(textFor({0, 3}), "Vertex group(s) 0, and 3 were selected.");
    EXPECT_EQ(textFor({0, 3, 5}), "Vertex group(s) 0, 3, and 5 were selected.");
    EXPECT_EQ(textFor({0, 3, 5, 8}), "Vertex group(s) 0, 3, 5, and 8 were selected.");
}

TEST_F(ShowVertexGroupsTest, EachGroupIsListedOnceInAscendingOrder) {
    EXPECT_EQ(textFor({5, 1, 5, 3}), "Vertex group(s) 1, 3, and 5 were selected.");
    EXPECT_EQ(textFor({10, 9, 100, -1}), "Vertex group(s) -1, 9, 10, and 100 were selected.");
    EXPECT_EQ(textFor({4, 4, 4}), "Vertex group(s) 4 were selected.");
}

TEST_F(ShowVertexGroupsTest, DeletedVerticesOfTheSelectionCount) {
    select({1, 4});
    flagDeleted({4});
    showVertexGroups(editor);
    EXPECT_EQ(dialogs.last().text, "Vertex group(s) 0, and 5 were selected.");
}

TEST_F(ShowVertexGroupsTest, WithNothingSelectedThereAreNone) {
    showVertexGroups(editor);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().text, "No vertex groups in selection");
}

// -2 stands for "none found" at the head of the list until the first group takes its place.
TEST_F(ShowVertexGroupsTest, GroupMinusTwoIsTakenForNoneFound) {
    EXPECT_EQ(textFor({-2}), "No vertex groups in selection");
    EXPECT_EQ(textFor({-2, -2}), "No vertex groups in selection");
    EXPECT_EQ(textFor({3, -2}), "No vertex groups in selection");
    EXPECT_EQ(textFor({3, -2, -3}), "Vertex group(s) -3, -2, and 3 were selected.");
}

TEST_F(ShowVertexGroupsTest, GroupMinusTwoBeforeEveryOtherGroupIsPassedOver) {
    EXPECT_EQ(textFor({-2, 3}), "Vertex group(s) 3 were selected.");
    EXPECT_EQ(textFor({-2, 3, 5}), "Vertex group(s) 3, and 5 were selected.");
    EXPECT_EQ(textFor({-2, -3}), "Vertex group(s) -3 were selected.");
    EXPECT_EQ(textFor({-2, 3, -2}), "No vertex groups in selection");
}

TEST_F(ShowVertexGroupsTest, NothingChanges) {
    select({1, 2, 3});
    const Geoset before = geoset();
    showVertexGroups(editor);
    expectGeoset(before);
    expectNoStep();
    expectNotDrawn();
}

TEST_F(ShowVertexGroupsTest, BeforeAModelIsLoadedThereAreNone) {
    expectNothingBeforeAModelIsLoaded([&] { showVertexGroups(editor); });
    EXPECT_EQ(dialogs.last().text, "No vertex groups in selection");
}

}  // namespace
}  // namespace corvane
