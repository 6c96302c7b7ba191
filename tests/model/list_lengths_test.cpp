// Lists are as long as the rows that a file has for them: what is missing is said once, and
// nothing is made up for it.
#include "edit/commands/tools.h"
#include "model/commands/merge_geoset.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class ListLengths : public ModelFlowTest {
protected:
    /// Opens a model of one square, changed; the dialogs that came can be looked at.
    std::string openSquare(const std::string& what, const std::string& instead) {
        const std::string path = folder.write(
            "hero.mdl", replacedOnce(modelOf({.geosets = {squareAt("5")}}), what, instead));
        open(path);
        return path;
    }

    /// "PATH, line N: the section X" for the line that holds `header`.
    static std::string place(const std::string& path, const std::string& header) {
        const std::string keyword = header.substr(1, header.find(' ') - 1);
        return path + ", line " + lineOf(readFile(path), header) + ": the section " + keyword;
    }

    void expectWarning(const std::string& lines) {
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Warning",
                   lines +
                       "\nEvery row that is there was read. Vertices that have no row in a "
                       "section have zeros for it.");
    }

    static std::string tooLargeSquare() {
        std::string triangles = "0, 1, 2";
        for (int i = 0; i < 32767; ++i) triangles += ", 0, 1, 2";
        GeosetText square = squareAt("5");
        square.triangles = triangles;
        return modelOf({.geosets = {square}});
    }
};

TEST_F(ListLengths, AreSaidForASectionWithFewerRowsThanItsHeader) {
    const std::string path =
        openSquare("\t\t{ 1, 0, 0 },\n\t\t{ 1, 0, 0 },\n\t}\n", "\t\t{ 1, 0, 0 },\n\t}\n");
    expectWarning(place(path, "\tNormals 4 {") +
                  " has 3 rows, but its header says 4 and the geoset has 4 vertices.\n");
    ASSERT_EQ(store().Vertices.size(), 4U);
    EXPECT_EQ(vertex(4).normal, Triple{});
}

TEST_F(ListLengths, AreSaidForASectionWithFewerRowsThanVertices) {
    const std::string path = openSquare("\t\t1,\n\t\t1,\n\t}\n", "\t}\n");
    expectWarning(place(path, "\tVertexGroup {") + " has 2 rows, but the geoset has 4 vertices.\n");
}

TEST_F(ListLengths, AreSaidForVerticesWhichAreAsManyAsTheirRows) {
    const std::string path = openSquare("\tVertices 4 {", "\tVertices 9 {");
    expectWarning(place(path, "\tVertices 9 {") + " has 4 rows, but its header says 9.\n");
    EXPECT_EQ(store().Vertices.size(), 4U);
    save();
    EXPECT_EQ(readFile(path), modelOf({.geosets = {squareAt("5")}}));
}

TEST_F(ListLengths, AreSaidForAllSectionsInOneBox) {
    const std::string path = openSquare(
        "\t}\n\tFaces",
        "\t}\n\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t}\n\tTVertices 2 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 "
        "},\n\t}\n\tFaces");
    expectWarning(place(path, "\tTangents 4 {") +
                  " has 1 row, but its header says 4 and the geoset has 4 vertices.\n" +
                  place(path, "\tTVertices 2 {") + " has 2 rows, but the geoset has 4 vertices.\n");
    const std::string groups = openSquare("\tGroups 2 3 {", "\tGroups 5 3 {");
    expectWarning(place(groups, "\tGroups 5 3 {") + " has 2 rows, but its header says 5.\n");
}

TEST_F(ListLengths, OfTheFilesRowsAreNotSaid) {
    openSquare("\tFaces 1 6 {", "\tFaces 1 6  {");
    EXPECT_EQ(askedKinds(), "open");
}

// After faces were deleted our own files have it so.
TEST_F(ListLengths, OfFacesArePassedOverInSilence) {
    for (const char* const count : {"32767", "9", "4", "0"}) {
        const std::string path =
            openSquare("\tFaces 1 6 {", std::string("\tFaces 1 ") + count + " {");
        EXPECT_EQ(askedKinds(), "open") << count;
        EXPECT_EQ(store().Faces.size(), 2U) << count;
        save();
        EXPECT_EQ(readFile(path), modelOf({.geosets = {squareAt("5")}})) << count;
    }
}

TEST_F(ListLengths, OfFacesAreTheirListsAfterDeleteFace) {
    const std::string path = openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    store().Faces[0].deleted = true;
    save();
    EXPECT_NE(readFile(path).find("\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 2, 3 },\n"),
              std::string::npos);
    open(path);
    EXPECT_EQ(askedKinds(), "open");
    ASSERT_EQ(store().Faces.size(), 1U);
    save();
    EXPECT_NE(readFile(path).find("\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 2, 3 },\n"),
              std::string::npos)
        << readFile(path);
}

TEST_F(ListLengths, BeyondTheLimitComeWithAdviceThatFits) {
    const std::string path = folder.write("large.mdl", tooLargeSquare());
    const std::string reason = "Geoset 1 cannot be read.\n" + path + ", line " +
                               lineOf(readFile(path), "\tFaces 1 6 {") +
                               ": the geoset has 32768 faces; at most 32767 can be edited.\n\n";
    const std::string advice =
        " Choose another geoset or model, or split this geoset in the program that made the model.";
    open(path);
    expectLast("message", "Error", reason + "The file was not opened and is unchanged." + advice);

    openNew("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    dialogs.files.push_back(path);
    mergeGeoset(editor);
    expectLast("message", "Error", reason + "Nothing was merged." + advice);
    EXPECT_EQ(store().Vertices.size(), 4U);
}

}  // namespace
}  // namespace corvane
