// Saving models in the shapes that other programs write: byte for byte the same outside the
// rewritten sections, and these in the tools' shape, but for the groups, which stay as they are.
#include <gtest/gtest.h>

#include <utility>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "edit/transforms.h"
#include "groups/commands/group_commands.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/new_model.h"
#include "model/geoset_removal.h"
#include "model_flow.h"
#include "shape_models.h"
#include "test_commands.h"
#include "uveditor/commands/exchange.h"

namespace corvane {
namespace {

// The text with nothing before and after a brace that is alone on its line.
std::string withPlainClosings(const std::string& text) {
    return reshaped(text, [](const std::string& tabs, const std::string& rest) {
        const std::string line = tabs + rest;
        const std::string blanks = " \t\r";
        const std::size_t first = line.find_first_not_of(blanks);
        if (first == std::string::npos || line[first] != '}') return line;
        return line.find_first_not_of(blanks, first + 1) == std::string::npos ? "}" : line;
    });
}

class SavedShape : public ModelFlowTest, public testing::WithParamInterface<Shape> {
protected:
    std::string path;

    // Opens the shape's first geoset; false where it was refused.
    bool openShape() {
        path = openNew("hero.mdl", GetParam().text, "1");
        return store().modelLoaded;
    }
};
INSTANTIATE_TEST_SUITE_P(Shapes, SavedShape, testing::ValuesIn(readableShapes()),
                         [](const auto& shape) { return shape.param.name; });

TEST_P(SavedShape, IsUnchangedOutsideItsSections) {
    ASSERT_TRUE(openShape());
    save();
    EXPECT_EQ(askedKinds(), "");
    const std::string saved = readFile(path);
    if (!GetParam().saved.empty()) {
        EXPECT_EQ(withPlainClosings(saved), withPlainClosings(GetParam().saved));
    }
    EXPECT_EQ(shown(readGeoset(saved, 1)), shown(readGeoset(GetParam().twin, 1))) << saved;
    EXPECT_EQ(shown(readGeoset(saved, 2)), shown(readGeoset(GetParam().twin, 2))) << saved;
}

TEST_P(SavedShape, ComesOutTheSameAtASecondSave) {
    ASSERT_TRUE(openShape());
    save();
    const std::string first = readFile(path);
    save();
    EXPECT_EQ(readFile(path), first);
    open(path, "1");
    save();
    EXPECT_EQ(readFile(path), first);
}

TEST_P(SavedShape, TakesAnEditAndKeepsTheOtherGeoset) {
    ASSERT_TRUE(openShape());
    select({4});
    moveSelection(editor, {0, 0, 100});
    save();
    const std::string saved = readFile(path);
    ASSERT_EQ(readingError(saved, 1), "was read");
    Geoset expected = readGeoset(GetParam().twin, 1);
    expected.Vertices[3].pos = {12, 3.5, 101};
    EXPECT_EQ(shown(readGeoset(saved, 1)), shown(expected)) << saved;
    EXPECT_EQ(shown(readGeoset(saved, 2)), shown(readGeoset(GetParam().twin, 2))) << saved;
}

TEST_P(SavedShape, IsAModelOfItsOwnWhenSavedAlone) {
    ASSERT_TRUE(openShape());
    saveGeosetAs(folder.path("alone.mdl"));
    const std::string saved = readFile(folder.path("alone.mdl"));
    EXPECT_EQ(scanGeosets(saved).size(), 1U) << saved;
    ASSERT_EQ(readingError(saved), "was read");
    const Geoset alone = readGeoset(saved);
    const Geoset twin = readGeoset(GetParam().twin);
    EXPECT_EQ(alone.Faces, twin.Faces);
    ASSERT_EQ(alone.Vertices.size(), 4U);
    EXPECT_EQ(alone.Vertices[3].pos, (Triple{12, 3.5, 1}));
    EXPECT_EQ(alone.Vertices[3].group, 0);
}

TEST_P(SavedShape, IsMergedAsItsTwinIs) {
    openNew("base.mdl", GetParam().twin, "1");
    const std::string shape = folder.write("hero.mdl", GetParam().text);
    dialogs.files.push_back(shape);
    dialogs.inputs.push_back("2");
    mergeGeoset(editor);
    ASSERT_EQ(store().Vertices.size(), 8U);
    EXPECT_EQ(vertex(5).pos, (Triple{2, 3, 5}));
    EXPECT_EQ(store().Faces.size(), 4U);
}

using ByteRanges = ModelFlowTest;

// The texts around the sections differ from the tools' shape in every way, so that a change of
// any byte shows.
TEST_F(ByteRanges, BetweenTheSectionsStayAsTheyAre) {
    const GeosetLines tool = toolLines();
    const std::vector<std::string> sections = {tool.vertices,    tool.normals, tool.texture,
                                               tool.vertexGroup, tool.faces,   tool.groups};
    const std::vector<std::string> between = {
        "  // first }\r\n\n", "\t Odd  {  1,2 , 3}\t\n",
        "   \n\t\t\t\n",      "    Hull {\n\tVertices 1 {\n{ 9,9,9 }}}\n",
        "//\tFaces 1 3 {\n",
    };
    GeosetLines lines = toolLines();
    lines.opening = "Geoset {   \n";
    for (std::size_t i = 0; i < sections.size(); ++i) {
        lines.opening += sections[i];
        if (i < between.size()) lines.opening += between[i];
    }
    for (std::string* section : {&lines.vertices, &lines.normals, &lines.texture,
                                 &lines.vertexGroup, &lines.faces, &lines.groups}) {
        section->clear();
    }
    lines.tail = "  MaterialID 0, SelectionGroup  0  ,\t\n\n";
    lines.closing = "} \n";
    const std::string text = shapedModel(lines);
    const std::string path = openNew("hero.mdl", text, "1");
    ASSERT_TRUE(store().modelLoaded);
    save();
    EXPECT_EQ(readFile(path), text);

    vertex(1).pos = {2, 3, 77};
    save();
    EXPECT_EQ(readFile(path),
              replacedOnce(text, "{ 1, 2, 3 },\n\t\t{ 11", "{ 77, 2, 3 },\n\t\t{ 11"));
}

TEST_F(ByteRanges, OfTwoPropertiesAfterAClosingBraceStayAsTheyAre) {
    const std::string path = openNew("hero.mdl", modelWith([](GeosetLines& g) {
                                         g.groups.pop_back();
                                         g.tail = "MinimumExtent{1,2,3},MaterialID 0,\n";
                                     }),
                                     "1");
    ASSERT_TRUE(store().modelLoaded);
    save();
    EXPECT_NE(readFile(path).find("}MinimumExtent{1,2,3},MaterialID 0,\n}\nGeoset {\n"),
              std::string::npos)
        << readFile(path);
}

TEST_F(ByteRanges, OfTheSectionsTakeTheFilesLineBreak) {
    const std::string text = withCrLf(modelWith([](GeosetLines& g) {
        g.faces = "  Faces 1 6 { Triangles {\n{ 0,1,2 },\n{ 0,2,3 }\n} }\n";
    }));
    const std::string path = openNew("hero.mdl", text, "1");
    ASSERT_TRUE(store().modelLoaded);
    save();
    EXPECT_EQ(withPlainClosings(readFile(path)),
              withPlainClosings(withCrLf(shapedModel(toolLines()))));
}

TEST_F(ByteRanges, OfAnEmptyMatrixGroupComeBack) {
    const std::string text = modelWith([](GeosetLines& g) {
        g.groups = "\tGroups 2 1 {\n\t\tMatrices { 4 },\n\t\tMatrices { },\n\t}\n";
    });
    const std::string path = openNew("hero.mdl", text, "1");
    ASSERT_TRUE(store().modelLoaded);
    save();
    EXPECT_EQ(readFile(path), text);
}

// Only the numbers change: not the blanks and comments around them, nor other properties of the
// same line.
TEST_F(ByteRanges, AroundNumbersOfGeosetsStayWhenOneIsRemoved) {
    std::string text = shapedModel(toolLines());
    text = replacedOnce(text, "Bone \"Left\" {\n\tObjectId 0,\n\tGeosetId 0,\n\tGeosetAnimId 0,\n}",
                        "Bone \"Left\" { ObjectId 0, GeosetId  0 , GeosetAnimId 0, } // 0");
    text =
        replacedOnce(text, "Bone \"Right\" {\n\tObjectId 1,\n\tGeosetId 1,\n\tGeosetAnimId 1,\n}",
                     "Bone \"Right\" {\n  GeosetAnimId   1, GeosetId 1 , // GeosetId 1,\n}");
    const std::string saved = removeGeoset(ModelText("hero.mdl", text), 1).joined();
    EXPECT_NE(saved.find("Bone \"Left\" { ObjectId 0, GeosetId  Multiple , GeosetAnimId None, }"
                         " // 0\n"),
              std::string::npos)
        << saved;
    EXPECT_NE(saved.find("Bone \"Right\" {\n  GeosetAnimId   0, GeosetId 0 , // GeosetId 1,\n}\n"),
              std::string::npos)
        << saved;
    EXPECT_EQ(scanGeosets(saved).size(), 1U);
}

// A section that the file lacks comes with the first data for it, and not before.
class MissingSection : public ModelFlowTest {
protected:
    std::string path;

    void openBare() {
        path = openNew(
            "bare.mdl", modelWith([](GeosetLines& g) {
                for (std::string* section : {&g.normals, &g.texture, &g.vertexGroup, &g.groups}) {
                    section->clear();
                }
            }),
            "1");
        ASSERT_TRUE(store().modelLoaded);
    }

    // The saved file's first geoset.
    std::string savedGeoset() {
        save();
        const std::string saved = readFile(path);
        const std::size_t begin = saved.find("Geoset {");
        return saved.substr(begin, saved.find("\n}\n", begin) + 3 - begin);
    }
};

TEST_F(MissingSection, IsNotWrittenWithoutData) {
    openBare();
    select({1});
    moveSelection(editor, {0, 0, 10});
    const std::string saved = savedGeoset();
    for (const char* const word : {"Normals", "TVertices", "VertexGroup", "Groups"}) {
        EXPECT_EQ(saved.find(word), std::string::npos) << word;
    }
}

TEST_F(MissingSection, NormalsIsWrittenForNormals) {
    openBare();
    vertex(2).normal = {0, 1, 0};
    EXPECT_NE(savedGeoset().find("\tNormals 4 {\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 1 },\n"),
              std::string::npos);
}

TEST_F(MissingSection, TVerticesIsWrittenForTextureCoordinates) {
    openBare();
    saveUVChanges(editor, std::vector<double>{0, 0.5, 0, 0}, std::vector<double>{0, 0.25, 0, 0});
    EXPECT_NE(savedGeoset().find("\tTVertices 4 {\n\t\t{ 0, 0 },\n\t\t{ 0.5, 0.25 },\n"),
              std::string::npos);
}

TEST_F(MissingSection, VertexGroupIsWrittenForGroups) {
    openBare();
    select({3});
    dialogs.inputs.push_back("2");
    assignVertexGroup(editor);
    EXPECT_NE(savedGeoset().find("\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t2,\n\t\t0,\n\t}\n"),
              std::string::npos);
}

// The template has a geoset with vertices only, which is not closed.
TEST_F(MissingSection, IsWrittenIntoTheTemplatesGeosetAtAMerge) {
    const std::string path0 = folder.path("new.mdl");
    dialogs.files.push_back(path0);
    newModel(editor);
    open(path0);
    const std::size_t before = store().Vertices.size();
    dialogs.files.push_back(folder.write("hero.mdl", shapedModel(toolLines())));
    dialogs.inputs.push_back("1");
    mergeGeoset(editor);
    ASSERT_EQ(store().Vertices.size(), before + 4);
    const Geoset inMemory = store();
    save();
    open(path0);
    ASSERT_EQ(store().Vertices.size(), before + 4);
    EXPECT_EQ(store().Faces.size(), inMemory.Faces.size());
    EXPECT_EQ(store().Vertices.back().normal, (Triple{0, -1, 0}));
    EXPECT_EQ(store().Vertices.back().tu, 0.25);
    EXPECT_EQ(store().Vertices.back().group, 1);
}

TEST_F(MissingSection, OfAGeosetWithoutAnEndIsWrittenAndTheGeosetClosed) {
    const std::string path0 =
        openNew("open.mdl",
                "Geoset {\n\tVertices 3 {\n\t\t{ 0, 0, 0 },\n\t\t{ 1, 0, 0 },\n\t\t{ 0, 1, 0 },"
                "\n\t}\n\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n");
    ASSERT_TRUE(store().modelLoaded);
    vertex(1).tu = 0.5;
    save();
    const std::string saved = readFile(path0);
    EXPECT_TRUE(
        saved.ends_with("\tTVertices 3 {\n\t\t{ 0.5, 0 },\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n"
                        "\t}\n}\n"))
        << saved;
}

}  // namespace
}  // namespace corvane
