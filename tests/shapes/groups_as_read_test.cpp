// What a file says about groups stays byte for byte until the user assigns a group, adds a matrix,
// merges or clones, and is there again when that is undone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "edit/undo_history.h"
#include "groups/commands/group_commands.h"
#include "model/commands/merge_geoset.h"
#include "model_flow.h"
#include "shape_models.h"
#include "test_commands.h"

namespace corvane {
namespace {

constexpr const char* kEmptyGroup = "\tVertexGroup { // none\n\t}\n";
constexpr const char* kOddGroups =
    "\tGroups 3 0 {\n\t\tMatrices { -1 }, // of none\n\t\tMatrices { },\n\t\tMatrices {7,8}\n  }\n";
constexpr const char* kWeights =
    "\tSkinWeights {\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n"
    "\t\t2, 0, 0, 0, 255, 0, 0, 0,\n\t\t3, 0, 0, 0, 255, 0, 0, 0,\n\t}\n";

// Those groups as the tools lay them out.
constexpr const char* kAnewGroups =
    "\tGroups 3 2 {\n\t\tMatrices { -1 },\n\t\tMatrices { -1 },\n\t\tMatrices { 7, 8 },\n\t}\n";

class GroupsAsTheyWereRead : public ModelFlowTest {
protected:
    std::string path;
    std::string text;

    void SetUp() override {
        text = modelWith([](GeosetLines& g) {
            g.texture += kWeights;
            g.vertexGroup = kEmptyGroup;
            g.groups = kOddGroups;
        });
        path = folder.write("hero.mdl", text);
        open(path, "1");
        ASSERT_TRUE(store().modelLoaded);
    }

    void assign(const std::string& group) {
        dialogs.inputs.push_back(group);
        assignVertexGroup(editor);
    }

    bool isSaved(const std::string& section) const {
        return readFile(path).find(section) != std::string::npos;
    }

    // A save writes the groups of so many vertices, and these matrix groups.
    void expectAnew(const std::vector<std::string>& groups, const std::string& matrices) {
        save();
        std::string rows = "\tVertexGroup {\n";
        for (const std::string& group : groups) rows += "\t\t" + group + ",\n";
        EXPECT_TRUE(isSaved(rows + "\t}\n")) << readFile(path);
        EXPECT_TRUE(isSaved(matrices)) << readFile(path);
        EXPECT_FALSE(isSaved("// none"));
    }

    // A save writes them byte for byte as they were read.
    void expectAsRead() {
        save();
        EXPECT_TRUE(isSaved(kEmptyGroup)) << readFile(path);
        EXPECT_TRUE(isSaved(kOddGroups)) << readFile(path);
    }
};

// Nothing is missing where the weights say what moves a vertex.
TEST_F(GroupsAsTheyWereRead, AreNoReasonForAWarning) {
    EXPECT_EQ(askedKinds(), "open input");
    save();
    EXPECT_EQ(readFile(path), text);
}

TEST_F(GroupsAsTheyWereRead, AreEmptyForNoReasonWithoutWeights) {
    const std::string other =
        folder.write("other.mdl", modelWith([](GeosetLines& g) { g.vertexGroup = kEmptyGroup; }));
    open(other, "1");
    EXPECT_EQ(askedKinds(), "open input message");
    EXPECT_NE(dialogs.last().text.find("VertexGroup has 0 rows, but the geoset has 4 vertices"),
              std::string::npos)
        << dialogs.last().text;
    save();
    EXPECT_NE(readFile(other).find(kEmptyGroup), std::string::npos);
}

TEST_F(GroupsAsTheyWereRead, StayWhenVerticesMoveGoAndGrow) {
    select({4});
    moveSelection(editor, {0, 0, 1});
    expectAsRead();
    select({2});
    deleteSelection(editor);
    expectAsRead();
    select({1, 3, 4});
    extrudeSelection(editor, {0, 0, 5});
    ASSERT_EQ(store().Vertices.size(), 7U);
    expectAsRead();
}

TEST_F(GroupsAsTheyWereRead, EndWhenAGroupIsAssigned) {
    select({2});
    assign("2");
    expectAnew({"0", "2", "0", "0"}, kAnewGroups);
}

// The group that they had anyway is the user's word all the same.
TEST_F(GroupsAsTheyWereRead, EndWhenGroup0IsAssigned) {
    select({1, 2, 3, 4});
    assign("0");
    EXPECT_TRUE(store().isModified());
    expectAnew({"0", "0", "0", "0"}, kAnewGroups);
}

TEST_F(GroupsAsTheyWereRead, EndWhenAMatrixIsAdded) {
    dialogs.inputs = {"5", ""};
    addMatrix(editor);
    expectAnew({"0", "0", "0", "0"},
               "\tGroups 4 3 {\n\t\tMatrices { -1 },\n\t\tMatrices { -1 },\n"
               "\t\tMatrices { 7, 8 },\n\t\tMatrices { 5 },\n\t}\n");
}

TEST_F(GroupsAsTheyWereRead, EndWithAMerge) {
    dialogs.files.push_back(folder.write("other.mdl", shapedModel(toolLines())));
    dialogs.inputs.push_back("1");
    mergeGeoset(editor);
    ASSERT_EQ(store().Vertices.size(), 8U);
    expectAnew({"0", "0", "0", "0", "0", "0", "1", "1"}, kAnewGroups);
}

TEST_F(GroupsAsTheyWereRead, EndWithAClone) {
    select({3});
    editor.modes.cloneMode = true;
    moveSelection(editor, {0, 0, 1});
    ASSERT_EQ(store().Vertices.size(), 5U);
    expectAnew({"0", "0", "0", "0", "0"}, kAnewGroups);
}

TEST_F(GroupsAsTheyWereRead, AreBackWhenTheAssignmentIsUndoneAfterASave) {
    select({2});
    assign("0");
    save();
    EXPECT_FALSE(isSaved(kOddGroups));
    undoLast(editor);
    EXPECT_TRUE(store().isModified());
    save();
    EXPECT_EQ(readFile(path), text);
    open(path, "1");
    save();
    EXPECT_EQ(readFile(path), text);
}

TEST_F(GroupsAsTheyWereRead, AreBackWhenAMergeIsUndoneAfterASave) {
    dialogs.files.push_back(folder.write("other.mdl", shapedModel(toolLines())));
    dialogs.inputs.push_back("1");
    mergeGeoset(editor);
    save();
    undoLast(editor);
    save();
    EXPECT_EQ(readFile(path), text);
}

TEST_F(GroupsAsTheyWereRead, GoWithAGeosetThatIsSavedElsewhere) {
    saveAs(folder.path("copy.mdl"));
    EXPECT_EQ(readFile(folder.path("copy.mdl")), text);
    save();
    EXPECT_EQ(readFile(folder.path("copy.mdl")), text);
}

// Alone it has one bone; its vertices' bones are in the weights.
TEST_F(GroupsAsTheyWereRead, OfAGeosetSavedAloneNameItsOneBone) {
    path = folder.path("alone.mdl");
    saveGeosetAs(path);
    EXPECT_TRUE(isSaved(kEmptyGroup)) << readFile(path);
    EXPECT_TRUE(isSaved("\tGroups 1 1 {\n\t\tMatrices { 0 },\n\t}\n")) << readFile(path);
}

// A geoset that is written over another one's place takes its own groups along.
TEST_F(GroupsAsTheyWereRead, TakeThePlaceOfAnotherGeosets) {
    deleteGeoset();
    dialogs.asked.clear();
    dialogs.yesNos.push_back(true);
    corvane::save(editor);
    EXPECT_TRUE(isSaved(kOddGroups)) << readFile(path);
    EXPECT_TRUE(isSaved(kEmptyGroup)) << readFile(path);
}

}  // namespace
}  // namespace corvane
