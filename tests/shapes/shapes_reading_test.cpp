// Models in the shapes that other programs write, in memory: the same as in the tools' own shape.
#include <gtest/gtest.h>

#include "model/geoset_removal.h"
#include "model_flow.h"
#include "shape_models.h"

namespace corvane {
namespace {

std::string nameOf(const testing::TestParamInfo<Shape>& info) { return info.param.name; }

class ReadShape : public testing::TestWithParam<Shape> {};
INSTANTIATE_TEST_SUITE_P(Shapes, ReadShape, testing::ValuesIn(readableShapes()), nameOf);

TEST_P(ReadShape, HasTheSameFirstGeoset) {
    const Geoset expected = readGeoset(GetParam().twin, 1);
    ASSERT_EQ(readingError(GetParam().text, 1), "was read");
    const Geoset geoset = readGeoset(GetParam().text, 1);
    EXPECT_EQ(shown(geoset), shown(expected));
}

TEST_P(ReadShape, HasTheSameSecondGeoset) {
    const Geoset expected = readGeoset(GetParam().twin, 2);
    ASSERT_EQ(readingError(GetParam().text, 2), "was read");
    const Geoset geoset = readGeoset(GetParam().text, 2);
    EXPECT_EQ(shown(geoset), shown(expected));
}

TEST_P(ReadShape, HasTwoGeosets) { EXPECT_EQ(scanGeosets(GetParam().text).size(), 2U); }

TEST_P(ReadShape, HasTheSameBlocksOneByOne) {
    const std::string& text = GetParam().text;
    const std::vector<ModelBlock> blocks = scanBlocks(text);
    ASSERT_GE(blocks.size(), 8U);
    for (const ModelBlock& block : blocks) {
        const ModelBlock alone = scanBlockAt(text, block.begin);
        EXPECT_EQ(alone.keyword, block.keyword);
        EXPECT_EQ(alone.begin, block.begin) << block.keyword;
        EXPECT_EQ(alone.bodyBegin, block.bodyBegin) << block.keyword;
        EXPECT_EQ(alone.bodyEnd, block.bodyEnd) << block.keyword;
        EXPECT_EQ(alone.end, block.end) << block.keyword;
        EXPECT_EQ(alone.closed, block.closed) << block.keyword;
    }
}

TEST_P(ReadShape, LosesItsFirstGeosetAndNothingElse) {
    const std::string left = removeGeoset(ModelText("hero.mdl", GetParam().text), 1).joined();
    if (!GetParam().withoutFirst.empty()) {
        EXPECT_EQ(left, GetParam().withoutFirst);
    }
    ASSERT_EQ(readingError(left, 1), "was read");
    EXPECT_EQ(shown(readGeoset(left, 1)), shown(readGeoset(GetParam().twin, 2)));
    EXPECT_EQ(scanGeosets(left).size(), 1U);
}

// The twins themselves, by numbers, so that two wrong geosets cannot agree.
TEST(ToolShapedTwin, HoldsWhatItsTextSays) {
    const Geoset geoset = readGeoset(shapedModel(toolLines()));
    ASSERT_EQ(geoset.Vertices.size(), 4U);
    EXPECT_EQ(geoset.Vertices[0].pos, (Triple{2, 3, 1}));
    EXPECT_EQ(geoset.Vertices[3].pos, (Triple{12, 3.5, 1}));
    EXPECT_EQ(geoset.Vertices[3].normal, (Triple{0, -1, 0}));
    EXPECT_EQ(geoset.Vertices[3].tu, 0.25);
    EXPECT_EQ(geoset.Vertices[3].tv, 0.5);
    EXPECT_EQ(geoset.Vertices[1].group, 0);
    EXPECT_EQ(geoset.Vertices[2].group, 1);
    ASSERT_EQ(geoset.Faces.size(), 2U);
    EXPECT_EQ(geoset.Faces[1].corner, (std::array<std::int16_t, 3>{0, 2, 3}));
    ASSERT_EQ(geoset.matrixGroups.size(), 2U);
    EXPECT_EQ(geoset.matrixGroups[1], (MatrixGroup{1, 2, -1, -1, -1, -1, -1}));
    EXPECT_EQ(readGeoset(shapedModel(toolLines()), 2).Vertices[0].pos, (Triple{2, 3, 5}));
}

// No tool shape means the same as this one.
TEST(EmptyMatrixGroup, IsAGroupWithoutMatrices) {
    for (const char* const row : {"Matrices { },", "Matrices {},", "Matrices {  }"}) {
        const std::string text = modelWith([&](GeosetLines& g) {
            g.groups = std::string("\tGroups 2 1 {\n\t\tMatrices { 4 },\n\t\t") + row + "\n\t}\n";
        });
        ASSERT_EQ(readingError(text), "was read") << row;
        const Geoset geoset = readGeoset(text);
        ASSERT_EQ(geoset.matrixGroups.size(), 2U) << row;
        EXPECT_EQ(geoset.matrixGroups[0], (MatrixGroup{4, -1, -1, -1, -1, -1, -1})) << row;
        EXPECT_EQ(geoset.matrixGroups[1], (MatrixGroup{-1, -1, -1, -1, -1, -1, -1})) << row;
    }
}

// The template's geoset, and a last one that the file's end cuts off.
TEST(GeosetWithoutAnEnd, IsRead) {
    std::string text = shapedModel(toolLines());
    text.erase(text.rfind("\tMinimumExtent"));
    ASSERT_EQ(readingError(text, 2), "was read");
    EXPECT_EQ(readGeoset(text, 2).Vertices.size(), 4U);
}

using OpenedShape = ModelFlowTest;

// The first number that is none stands in line 25 of the model.
TEST_F(OpenedShape, SaysOnceHowManyNumbersWereNoneAndWhereTheFirstIs) {
    const std::string text = modelWith([](GeosetLines& g) {
        g.normals =
            "\tNormals 4 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, nan, inf },\n\t\t{ 1, 0, 0 },\n"
            "\t\t{ 0, 0, -1 },\n\t}\n";
        g.texture =
            "\tTVertices 4 {\n\t\t{ 0, 1 },\n\t\t{ -1.#IND00, 1 },\n\t\t{ 1, 0 },\n"
            "\t\t{ 0.25, 0.5 },\n\t}\n";
    });
    open(folder.write("hero.mdl", text), "1");
    ASSERT_TRUE(store().modelLoaded);
    EXPECT_EQ(askedKinds(), "open input message");
    EXPECT_NE(dialogs.last().text.find("hero.mdl"), std::string::npos) << dialogs.last().text;
    EXPECT_NE(dialogs.last().text.find("3 "), std::string::npos) << dialogs.last().text;
    EXPECT_NE(dialogs.last().text.find("line 25"), std::string::npos) << dialogs.last().text;
}

TEST_F(OpenedShape, IsRefusedForNoNumbersInPositions) {
    const std::string text = modelWith([](GeosetLines& g) {
        g.vertices = replacedOnce(g.vertices, "{ 11, 12, 3 }", "{ 11, nan, 3 }");
    });
    EXPECT_NE(readingError(text).find("hero.mdl, line " + lineOf(text, "nan")), std::string::npos)
        << readingError(text);
    open(folder.write("hero.mdl", text), "1");
    EXPECT_FALSE(store().modelLoaded);
    EXPECT_TRUE(store().Vertices.empty());
    EXPECT_EQ(askedKinds(), "open input message");
}

// What is still wrong in these shapes is refused with its line.
TEST(RefusedShape, IsNamedByItsLine) {
    struct Wrong {
        const char* part;  // what the line holds
        void (*change)(GeosetLines& lines);
    };
    constexpr Wrong kWrong[] = {
        {"{ 1,2 }", [](GeosetLines& g) { g.vertices = "  Vertices 1 {\n { 1,2 }\n }\n"; }},
        {"{ 1,x,3 }", [](GeosetLines& g) { g.vertices = "  Vertices 1 {\n { 1,x,3 }\n }\n"; }},
        {"0, 1, 9",
         [](GeosetLines& g) { g.faces = " Faces 1 3 { Triangles {\n{ 0, 1, 9 } } }\n"; }},
        {"{ 2, 1 }", [](GeosetLines& g) { g.faces = " Faces 1 3 { Triangles {\n{ 2, 1 }\n} }\n"; }},
        {"{ 1, 2, 3, 4, 5, 6, 7, 8 }",
         [](GeosetLines& g) {
             g.groups = " Groups 1 8 {\n Matrices { 1, 2, 3, 4, 5, 6, 7, 8 } }\n";
         }},
    };
    for (const Wrong& wrong : kWrong) {
        const std::string text = modelWith(wrong.change);
        const std::string error = readingError(text);
        EXPECT_EQ(error.substr(0, error.find(':')), "hero.mdl, line " + lineOf(text, wrong.part))
            << wrong.part << ": " << error;
    }
}

}  // namespace
}  // namespace corvane
