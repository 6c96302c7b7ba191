#include "groups/commands/group_commands.h"
#include "model/commands/open_model.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

/// A matrix group with these bones.
MatrixGroup groupOf(const std::vector<std::int16_t>& bones) {
    MatrixGroup group;
    group.fill(kNoMatrix);
    std::copy(bones.begin(), bones.end(), group.begin());
    return group;
}

class ViewMatricesTest : public ToolTest {
protected:
    /// The pages that are shown, each in a box of the same caption.
    std::vector<std::string> pages() {
        loadVertices({{0, 0, 0}});
        const std::vector<MatrixGroup> before = store().matrixGroups;
        dialogs.asked.clear();
        viewMatrices(editor);
        EXPECT_EQ(store().matrixGroups, before);
        expectNoStep();
        expectNotDrawn();
        std::vector<std::string> texts;
        for (const auto& asked : dialogs.asked) {
            EXPECT_EQ(asked.kind, "message");
            EXPECT_EQ(asked.title, "Matrices");
            texts.push_back(asked.text);
        }
        return texts;
    }
};

using Pages = std::vector<std::string>;

TEST_F(ViewMatricesTest, EachGroupIsALineOfItsNumberAndItsBones) {
    store().matrixGroups = {groupOf({3, 4}), groupOf({5}), groupOf({6, 7, 8})};
    EXPECT_EQ(pages(), Pages{"0: 3, 4\r\n1: 5\r\n2: 6, 7, 8\r\n"});
}

TEST_F(ViewMatricesTest, WithoutAGroupThereIsNoBox) { EXPECT_EQ(pages(), Pages{}); }

TEST_F(ViewMatricesTest, AtMostFiveBonesOfAGroupAreShown) {
    store().matrixGroups = {groupOf({1, 2, 3, 4}), groupOf({1, 2, 3, 4, 5}),
                            groupOf({1, 2, 3, 4, 5, 6}), groupOf({1, 2, 3, 4, 5, 6, 7})};
    EXPECT_EQ(pages(), Pages{"0: 1, 2, 3, 4\r\n1: 1, 2, 3, 4, 5\r\n2: 1, 2, 3, 4, 5\r\n"
                             "3: 1, 2, 3, 4, 5\r\n"});
}

TEST_F(ViewMatricesTest, AGroupWithoutBonesIsShownWithMinusOne) {
    store().matrixGroups = {groupOf({}), groupOf({0})};
    EXPECT_EQ(pages(), Pages{"0: -1\r\n1: 0\r\n"});
}

TEST_F(ViewMatricesTest, ALineStopsAtTheFirstUnusedRow) {
    MatrixGroup group = groupOf({8});
    group[2] = 9;
    store().matrixGroups = {group};
    EXPECT_EQ(pages(), Pages{"0: 8\r\n"});
}

TEST_F(ViewMatricesTest, APageOfExactly300CharactersGoesOn) {
    // Ten lines of 6 characters ("0: 5\r\n"), 34 of 7 ("10: 5\r\n"), and one of them longer by 2:
    // 60 + 238 + 2.
    store().matrixGroups.assign(44, groupOf({5}));
    store().matrixGroups[0] = groupOf({555});
    store().matrixGroups.push_back(groupOf({5}));
    std::string page = "0: 555\r\n";
    for (int i = 1; i < 44; ++i) page += std::to_string(i) + ": 5\r\n";
    ASSERT_EQ(page.size(), 300U);
    EXPECT_EQ(pages(), Pages{page + "44: 5\r\nNext page..."});
}

TEST_F(ViewMatricesTest, APageEndsWithTheLineThatPasses300Characters) {
    store().matrixGroups.assign(44, groupOf({5}));
    store().matrixGroups[0] = groupOf({5555});  // 301 characters
    store().matrixGroups.push_back(groupOf({7}));
    std::string page = "0: 5555\r\n";
    for (int i = 1; i < 44; ++i) page += std::to_string(i) + ": 5\r\n";
    ASSERT_EQ(page.size(), 301U);
    EXPECT_EQ(pages(), (Pages{page + "Next page...", "44: 7\r\n"}));
}

TEST_F(ViewMatricesTest, EachPageCountsItsOwnCharacters) {
    // Lines of 7 characters from 10 on, of 8 from 100 on.
    store().matrixGroups.assign(120, groupOf({5}));
    const auto lines = [](int first, int last) {
        std::string text;
        for (int i = first; i <= last; ++i) text += std::to_string(i) + ": 5\r\n";
        return text;
    };
    // 10 * 6 + 35 * 7 = 305; 43 * 7 = 301; 12 * 7 + 20 * 8 = 244
    EXPECT_EQ(pages(), (Pages{lines(0, 44) + "Next page...", lines(45, 87) + "Next page...",
                              lines(88, 119)}));
}

TEST_F(ViewMatricesTest, BeforeAModelIsLoadedThereIsNoBox) {
    expectNothingBeforeAModelIsLoaded([&] { viewMatrices(editor); });
    EXPECT_TRUE(dialogs.asked.empty());
}

class AddMatrixTest : public ToolTest {
protected:
    AddMatrixTest() {
        loadVertices({{0, 0, 0}});
        fillOtherFields();
        store().matrixGroups = {groupOf({1}), groupOf({2, 3})};
    }

    /// The command with these answers, each of them the next one typed.
    void add(const std::vector<std::optional<std::string>>& answers) {
        dialogs.asked.clear();
        dialogs.inputs.assign(answers.begin(), answers.end());
        addMatrix(editor);
    }

    /// The numbers of the bones that were asked for, in order.
    std::vector<std::string> askedBones() const {
        const std::string before = "Control bone ";
        const std::string after = "\r\nClick cancel to stop adding control bones.";
        std::vector<std::string> numbers;
        for (const auto& asked : dialogs.asked) {
            if (asked.kind == "message") {
                EXPECT_EQ(
                    asked.text,
                    "A control bone is a whole number from -32768 to 32767, but not -1, which "
                    "marks an unused row.");
                numbers.push_back("range");
                continue;
            }
            EXPECT_EQ(asked.kind, "input");
            EXPECT_EQ(asked.title, "New Matrix");
            EXPECT_EQ(asked.text.substr(0, before.size()), before);
            const std::string rest = asked.text.substr(before.size());
            EXPECT_EQ(rest.substr(1), after);
            numbers.push_back(rest.substr(0, 1));
        }
        return numbers;
    }

    /// The geoset as it is now with one group more.
    Geoset withGroup(const std::vector<std::int16_t>& bones) {
        Geoset expected = geoset();
        expected.matrixGroups.push_back(groupOf(bones));
        return expected;
    }
};

using Bones = std::vector<std::string>;

TEST_F(AddMatrixTest, TheBonesTypedBeforeCancelMakeANewGroup) {
    const Geoset expected = withGroup({12, 13});
    add({"12", "13", std::nullopt});
    expectGeoset(expected);
    EXPECT_EQ(store().matrixGroupCount(), 3U);
    EXPECT_EQ(matrixGroupText(store().matrixGroups[2]), "12 13 -1 -1 -1 -1 -1 ");
    EXPECT_EQ(askedBones(), (Bones{"1", "2", "3"}));
    EXPECT_TRUE(store().isModified());
    dialogs.asked.clear();
    viewMatrices(editor);
    EXPECT_EQ(dialogs.last().text, "0: 1\r\n1: 2, 3\r\n2: 12, 13\r\n");
}

TEST_F(AddMatrixTest, AnEmptyAnswerEndsTheAskingToo) {
    const Geoset expected = withGroup({7});
    add({"7", ""});
    expectGeoset(expected);
}

TEST_F(AddMatrixTest, AFifthBoneIsAskedForAndDropped) {
    const Geoset expected = withGroup({1, 2, 3, 4});
    add({"1", "2", "3", "4", "5"});
    expectGeoset(expected);
    EXPECT_EQ(askedBones(), (Bones{"1", "2", "3", "4", "5"}));
}

TEST_F(AddMatrixTest, CancelAtTheFifthBoneKeepsTheFour) {
    const Geoset expected = withGroup({1, 2, 3, 4});
    add({"1", "2", "3", "4", std::nullopt});
    expectGeoset(expected);
}

TEST_F(AddMatrixTest, CancelAtTheFirstBoneAddsNoGroup) {
    const Geoset before = geoset();
    for (const std::optional<std::string>& end : {std::optional<std::string>(""), {}}) {
        add({"abc", end});
        expectGeoset(before);
        EXPECT_FALSE(store().isModified());
        EXPECT_EQ(askedBones(), (Bones{"1", "1"}));
    }
}

TEST_F(AddMatrixTest, AnAnswerThatIsNoNumberOrOutOfRangeIsAskedAgain) {
    const Geoset expected = withGroup({-5, 3, 32767});
    add({"abc", " ", "-5", "32768", "2.6", "-40000", "32767", ""});
    expectGeoset(expected);
    EXPECT_EQ(askedBones(), (Bones{"1", "1", "1", "2", "range", "2", "3", "range", "3", "4"}));
}

TEST_F(AddMatrixTest, TheNumberOfAnUnusedRowIsAskedAgain) {
    const Geoset expected = withGroup({3, -2, 5});
    add({"-1", "3", "-1", "-0.6", "-2", "5", ""});
    expectGeoset(expected);
    EXPECT_EQ(askedBones(), (Bones{"1", "range", "1", "2", "range", "2", "range", "2", "3", "4"}));
}

TEST_F(AddMatrixTest, AFifthAnswerThatIsNoNumberIsAskedAgainToo) {
    const Geoset expected = withGroup({1, 2, 3, 4});
    add({"1", "2", "3", "4", "x", "99999", "5"});
    expectGeoset(expected);
}

TEST_F(AddMatrixTest, BonesFollowTheUsersDecimalSeparator) {
    editor.userNumbers.decimalPoint = ",";
    const Geoset expected = withGroup({3});
    add({"2.6", "2,6", ""});
    expectGeoset(expected);
}

TEST_F(AddMatrixTest, AGroupCanBeAddedToAGeosetWithoutOne) {
    store().matrixGroups.clear();
    add({"0", ""});
    EXPECT_EQ(store().matrixGroups, std::vector<MatrixGroup>{groupOf({0})});
}

TEST_F(AddMatrixTest, NoStepIsRecordedAndNothingIsRedrawn) {
    add({"1", ""});
    expectNoStep();
    expectNotDrawn();
}

TEST_F(AddMatrixTest, ANewGroupIsSomethingToSaveAndTheWindowIsToldAfterwards) {
    std::vector<bool> modified;
    window.onUpdateButtons = [&] { modified.push_back(store().isModified()); };
    add({""});
    EXPECT_EQ(modified, std::vector<bool>{});
    EXPECT_FALSE(store().isModified());
    add({"1", ""});
    EXPECT_EQ(modified, std::vector<bool>{true});
}

TEST_F(AddMatrixTest, BeforeAModelIsLoadedNothingIsAskedOrAdded) {
    store() = {};
    addMatrix(editor);
    EXPECT_TRUE(dialogs.asked.empty());
    expectGeoset({});
    expectNoStep();
    expectNotDrawn();
    EXPECT_FALSE(store().isModified());
}

}  // namespace
}  // namespace corvane
