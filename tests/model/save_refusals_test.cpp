// What a save refuses before it writes anything, and what it says only where it was done.
#include <filesystem>
#include <limits>

#include "editor/run_edit.h"
#include "model/commands/merge_geoset.h"
#include "model_flow.h"

namespace corvane {
namespace {

using SaveRefusalsTest = ModelFlowTest;

TEST_F(SaveRefusalsTest, ANumberThatIsNoneIsNamedByItsVertexAndNothingIsWritten) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const auto fields = [](VertexRecord& vertex) {
        return std::array<double*, 8>{&vertex.pos[0],    &vertex.pos[1],    &vertex.pos[2],
                                      &vertex.normal[0], &vertex.normal[1], &vertex.normal[2],
                                      &vertex.tu,        &vertex.tv};
    };
    // Fifteen digits of it are more than any number.
    constexpr double kRoundedUp = std::numeric_limits<double>::max();
    for (std::size_t field = 0; field < 8; ++field) {
        for (const double wrong : {kInfinity, -kInfinity, kNaN, kRoundedUp, -kRoundedUp}) {
            openNew("hero.mdl", text);
            *fields(vertex(3))[field] = wrong;
            save();
            ASSERT_EQ(askedKinds(), "message") << field;
            EXPECT_NE(dialogs.last().text.find("Vertex 3 has a coordinate too large for any "
                                               "number."),
                      std::string::npos)
                << dialogs.last().text;
            EXPECT_EQ(modelBytes(), text);
            EXPECT_EQ(workBytes(), text);
        }
    }
}

TEST_F(SaveRefusalsTest, ANumberThatIsNoneOfADeletedVertexIsNotWrittenAnyway) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    vertex(4).pos[1] = std::numeric_limits<double>::infinity();
    vertex(4).deleted = true;
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_NE(modelBytes().find("Vertices 3"), std::string::npos);
}

TEST_F(SaveRefusalsTest, RowsThatCannotFollowLeaveTheFileAndTheEdits) {
    const std::string text =
        replacedOnce(modelOf({.geosets = {squareAt("5")}}), "\tVertexGroup {\n",
                     "\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t\t5,\n\t}\n\tVertexGroup {\n");
    openNew("hero.mdl", text);
    vertex(4).deleted = true;
    save();
    ASSERT_EQ(askedKinds(), "message");
    EXPECT_NE(dialogs.last().text.find("in the section Tangents, a row in braces was expected "
                                       "here."),
              std::string::npos)
        << dialogs.last().text;
    EXPECT_NE(dialogs.last().text.find("cannot follow"), std::string::npos);
    EXPECT_EQ(modelBytes(), text);
    EXPECT_EQ(store().Vertices.size(), 4U);
    EXPECT_TRUE(vertex(4).deleted);

    // A merge adds vertices: the same.
    vertex(4).deleted = false;
    dialogs.asked.clear();
    dialogs.files.push_back(folder.write("other.mdl", modelOf({.geosets = {triangleAt("0")}})));
    mergeGeoset(editor);
    ASSERT_EQ(store().Vertices.size(), 7U);
    save();
    EXPECT_NE(dialogs.last().text.find("cannot follow"), std::string::npos);
    EXPECT_EQ(modelBytes(), text);
    undoLast(editor);
    save();
    EXPECT_EQ(askedKinds(), "") << "nothing came or went any more";
}

TEST_F(SaveRefusalsTest, SavedWithoutTheGeosetIsSaidOfASaveThatWasDone) {
    const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "3");
    deleteGeoset();
    const auto saysSo = [&] {
        return dialogs.last().text.starts_with(
            "Saved without the geoset in memory, which was removed from the model.");
    };
    // A folder in the place of the file: it cannot be replaced.
    std::filesystem::remove(path);
    std::filesystem::create_directories(path + "/full");
    dialogs.asked.clear();
    dialogs.yesNos.push_back(true);  // to the question whether to replace what changed there
    corvane::save(editor);
    EXPECT_FALSE(saysSo()) << dialogs.last().text;
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_TRUE(dialogs.last().text.starts_with("The model was not saved."));
    std::filesystem::remove_all(path);
    dialogs.yesNos.clear();
    save();
    EXPECT_TRUE(saysSo()) << dialogs.last().text;
    EXPECT_EQ(scanGeosets(modelBytes()).size(), 2U);
}

TEST_F(SaveRefusalsTest, NeutralRowsAreSaidWithTheirSectionsAndTheirNumberOnce) {
    const std::string rows =
        "\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n"
        "\t\t{ 1, 0, 0, 1 },\n\t}\n"
        "\tSkinWeights {\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n"
        "\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t}\n";
    openNew("hero.mdl", replacedOnce(modelOf({.geosets = {squareAt("5")}}), "\tVertexGroup {\n",
                                     rows + "\tVertexGroup {\n"));
    dialogs.files.push_back(folder.write("other.mdl", modelOf({.geosets = {triangleAt("0")}})));
    mergeGeoset(editor);
    save();
    expectLast("message", "Warning",
               "The file also keeps Tangents, SkinWeights for every vertex. Vertices without a row "
               "of their own there, such as merged ones, were saved with neutral values (6 "
               "rows).");
    save();
    EXPECT_EQ(askedKinds(), "");
}

}  // namespace
}  // namespace corvane
