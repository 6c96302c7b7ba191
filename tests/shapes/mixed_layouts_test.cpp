// Layouts that change within a line or a block: whatever a save writes in the tools' layout, the
// model around it must mean the same afterwards.
#include <gtest/gtest.h>

#include "edit/commands/tools.h"
#include "edit/selection.h"
#include "edit/undo_history.h"
#include "model/commands/merge_geoset.h"
#include "model/geoset_removal.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

const std::string kVertices = "Vertices 3 { { 0, 0, 0 }, { 1, 0, 0 }, { 0, 1, 0 } } ";
const std::string kOtherVertices = "Vertices 3 { { 7, 0, 0 }, { 8, 0, 0 }, { 7, 1, 0 } } ";
const std::string kFaces = "Faces 1 3 { Triangles { { 0, 1, 2 } } } ";

const std::string kToolVertices =
    "\tVertices 3 {\n\t\t{ 0, 0, 0 },\n\t\t{ 1, 0, 0 },\n\t\t{ 0, 1, 0 },\n\t}\n";
const std::string kToolFaces = "\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n";
const std::string kToolNormals =
    "\tNormals 3 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t}\n";

class MixedLayouts : public ModelFlowTest {
protected:
    /// Merges a triangle with normals, which the models here lack.
    void mergeTriangle() {
        dialogs.files.push_back(folder.write(
            "part.mdl", "Geoset {\n" + kToolVertices + kToolNormals + kToolFaces + "}\n"));
        mergeGeoset(editor);
    }

    /// Saves twice; the second save changes nothing.
    std::string savedTwice(const std::string& path) {
        save();
        const std::string first = readFile(path);
        save();
        EXPECT_EQ(readFile(path), first);
        return first;
    }
};

TEST_F(MixedLayouts, AGeosetThatGainsASectionStaysTheOneThatIsSaved) {
    const std::string path =
        openNew("hero.mdl",
                "Sequences 1 {\n\tAnim \"S\" { Interval { 0, 10 }, } } Geoset { " + kVertices +
                    kFaces + "} Geoset { " + kOtherVertices + kFaces + "}\n",
                "1");
    mergeTriangle();
    const std::string saved = savedTwice(path);
    ASSERT_EQ(scanGeosets(saved).size(), 2U);
    EXPECT_EQ(readGeoset(saved, 1).Vertices.size(), 6U);
    EXPECT_EQ(readGeoset(saved, 2).Vertices.size(), 3U);
    EXPECT_EQ(readGeoset(saved, 2).Vertices[0].pos, (Triple{0, 0, 7}));
}

TEST_F(MixedLayouts, AGeosetThatBeginsWhereABlockEndsIsCounted) {
    const std::string text = "Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t}\n\t} } Geoset {\n" +
                             kToolVertices + kToolFaces + "}\nGeoset {\n" + kToolVertices +
                             kToolFaces + "}\n";
    EXPECT_EQ(scanGeosets(text).size(), 2U);
}

TEST_F(MixedLayouts, AnAnimationThatBeginsWhereAnotherEndsIsKept) {
    const ModelText text("hero.mdl", "Geoset { " + kVertices + kFaces + "}\nGeoset { " + kVertices +
                                         kFaces +
                                         "}\nGeosetAnim {\n\tAlpha 1 {\n\t\t0: 1, } GeosetId 0, } "
                                         "GeosetAnim {\n\tGeosetId 1,\n}\n"
                                         "Bone \"b\" {\n\tGeosetId 1,\n\tGeosetAnimId 1,\n}\n");
    EXPECT_EQ(removeGeoset(text, 1).joined(),
              "Geoset { " + kVertices + kFaces +
                  "}\n GeosetAnim {\n\tGeosetId 0,\n}\n"
                  "Bone \"b\" {\n\tGeosetId 0,\n\tGeosetAnimId 0,\n}\n");
}

TEST_F(MixedLayouts, ABlockThatBeginsWhereTheGeosetEndsStaysOutsideIt) {
    for (const std::string& after : {"Geoset { " + kVertices + kFaces + "\n}\n",
                                     std::string("GeosetAnim {\n\tAlpha 1,\n\tGeosetId 0,\n}\n"),
                                     std::string("Bone \"B\" {\n\tObjectId 0,\n}\n")}) {
        const std::string path =
            openNew("hero.mdl", "Geoset { " + kVertices + kFaces + "} " + after,
                    after.starts_with("Geoset ") ? "1" : "");
        const std::string saved = savedTwice(path);
        EXPECT_EQ(saved.substr(saved.size() - after.size() - 2), "} " + after);
        EXPECT_EQ(readGeoset(saved, 1).Faces.size(), 1U);
    }
}

TEST_F(MixedLayouts, ARowThatEndsWithItsSectionCanBeDropped) {
    const std::string path =
        openNew("hero.mdl",
                "Geoset {\n\tVertices 4 {\n\t\t{ 0, 0, 0 },\n\t\t{ 1, 0, 0 },\n\t\t{ 0, 1, 0 },\n"
                "\t\t{ 5, 5, 5 },\n\t}\n" +
                    kToolFaces +
                    "\tTangents 4 {\n\t\t{ 0.1, 0, 0, 1 },\n\t\t{ 0.2, 0, 0, 1 },\n"
                    "\t\t{ 0.3, 0, 0, 1 },\n\t\t{ 0.4, 0, 0, 1 }}\n\tMaterialID 7,\n}\n");
    select({4});
    deleteSelection(editor);
    const std::string saved = savedTwice(path);
    EXPECT_EQ(saved, "Geoset {\n" + kToolVertices + kToolFaces +
                         "\tTangents 3 {\n\t\t{ 0.1, 0, 0, 1 },\n\t\t{ 0.2, 0, 0, 1 },\n"
                         "\t\t{ 0.3, 0, 0, 1 },\n}\n\tMaterialID 7,\n}\n");
}

TEST_F(MixedLayouts, BracesThatAreNotIndentedCloseWhatIsOpen) {
    const Geoset geoset = readGeoset("Geoset {\n" + kToolVertices +
                                     "\tFaces 1 3 { Triangles {\n\t\t{ 0, 1, 2 },\n} }\n}\n");
    EXPECT_EQ(geoset.Faces.size(), 1U);
}

TEST_F(MixedLayouts, ASectionThatBeginsWhereAnotherBlockEndsIsRead) {
    const Geoset geoset =
        readGeoset("Geoset {\n" + kToolVertices + kToolFaces +
                   "\tAnim {\n\t\tBoundsRadius 5, } Normals 3 {\n"
                   "\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 1 },\n\t}\n}\n");
    ASSERT_EQ(geoset.Vertices.size(), 3U);
    EXPECT_EQ(geoset.Vertices[2].normal, (Triple{0, 1, 0}));
}

// The rows of the geoset that is written over belong to its own vertices.
TEST_F(MixedLayouts, RowsOfAnotherGeosetAreNotTakenOver) {
    const auto geoset = [](const std::string& rows) {
        return "Geoset {\n" + kToolVertices + kToolFaces + rows + "}\n";
    };
    const std::string path = openNew(
        "hero.mdl",
        geoset("\tSkinWeights {\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n\t\t2, 0, 0, 0, 255, 0, 0, 0,\n"
               "\t\t3, 0, 0, 0, 255, 0, 0, 0,\n\t}\n") +
            geoset("\tTangents 3 {\n\t\t{ 0.1, 0, 0, 1 },\n\t\t{ 0.2, 0, 0, 1 },\n"
                   "\t\t{ 0.3, 0, 0, 1 },\n\t}\n"),
        "1");
    deleteGeoset();
    dialogs.yesNos.push_back(true);  // over the other one
    save();
    EXPECT_EQ(
        readFile(path),
        geoset("\tTangents 3 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n"
               "\t\t{ 1, 0, 0, 1 },\n\t}\n"
               "\tSkinWeights {\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n\t\t2, 0, 0, 0, 255, 0, 0, 0,\n"
               "\t\t3, 0, 0, 0, 255, 0, 0, 0,\n\t}\n"));
    EXPECT_NE(dialogs.last().text.find("The file also keeps Tangents for every vertex."),
              std::string::npos);
}

// Written over it, the geoset in memory could not be read again.
TEST_F(MixedLayouts, AGeosetThatEndsTooEarlyIsNotWrittenOver) {
    const std::string text = "Geoset {\n" + kToolVertices + kToolFaces + "}\nGeoset {\n" +
                             kToolVertices + "\t}\n" + kToolFaces + "}\n";
    const std::string path = openNew("hero.mdl", text, "1");
    deleteGeoset();
    dialogs.yesNos.push_back(true);  // over the other one
    save();
    EXPECT_EQ(readFile(path), text);
    EXPECT_NE(dialogs.last().text.find("line 8: there is a closing brace too many up to here, so "
                                       "that the geoset that starts in line 1 ended too early."),
              std::string::npos)
        << dialogs.last().text;
}

// Sections that an unclosed geoset gains stand before the blocks that follow it.
TEST_F(MixedLayouts, AnUnclosedGeosetEndsBeforeTheNextBlock) {
    for (const std::string& after :
         {std::string("Bone \"b\"\n{\n\tObjectId 0,\n}\n"),
          std::string("  CollisionShape \"c\" {\n\tObjectId 1,\n  }\n")}) {
        const std::string path =
            openNew("hero.mdl", "Geoset {\n" + kToolVertices + kToolFaces + after);
        mergeTriangle();
        const std::string saved = savedTwice(path);
        EXPECT_TRUE(saved.ends_with("\t}\n}\n" + after)) << saved;
        EXPECT_EQ(scanBlocks(saved).size(), 2U);
        EXPECT_EQ(readGeoset(saved).Vertices.size(), 6U);
    }
}

TEST_F(MixedLayouts, NoFacesNeedNoGroupOfThem) {
    EXPECT_TRUE(readGeoset("Geoset {\n" + kToolVertices + "\tFaces 0 0 {\n\t}\n}\n").Faces.empty());
}

TEST_F(MixedLayouts, ACommaMissingBeforeASectionIsNamed) {
    for (const std::string& rows : {kToolNormals.substr(1), std::string("Tangents 3 {\n\t}\n")}) {
        EXPECT_EQ(readingError("Geoset {\n" + kToolVertices + "\tMaterialID 0 " + rows + "}\n"),
                  "hero.mdl, line 7: a comma is missing before the section " +
                      rows.substr(0, rows.find(' ')) + ".");
    }
}

TEST_F(MixedLayouts, ABraceTooManyBehindAGeosetThatIsWholeDoesNoHarm) {
    const std::string text = "Geoset {\n" + kToolVertices + kToolFaces + "}\n}\n";
    const std::string path = openNew("hero.mdl", text);
    EXPECT_EQ(store().Faces.size(), 1U);
    EXPECT_EQ(savedTwice(path), text);
}

// A second layer must not become the first.
TEST_F(MixedLayouts, ATextureLayerOfZerosIsWrittenBeforeTheNextOne) {
    const auto layer = [](const std::string& u) {
        return "\tTVertices 3 {\n\t\t{ " + u + ", 0 },\n\t\t{ " + u + ", 0 },\n\t\t{ " + u +
               ", 0 },\n\t}\n";
    };
    const std::string path =
        openNew("hero.mdl",
                "Geoset {\n" + kToolVertices + layer("0") + layer("0.5") + kToolFaces +
                    "}\nGeoset {\n" + kToolVertices + kToolFaces + "}\n",
                "1");
    deleteGeoset();
    dialogs.yesNos.push_back(true);  // over the other one
    save();
    EXPECT_EQ(readFile(path),
              "Geoset {\n" + kToolVertices + kToolFaces + layer("0") + layer("0.5") + "}\n");
}

TEST_F(MixedLayouts, ASectionThatASaveAddedGoesWithTheUndoOfItsData) {
    const std::string text = "Geoset {\n" + kToolVertices + kToolFaces + "\tMaterialID 0,\n}\n";
    const std::string path = openNew("hero.mdl", text);
    mergeTriangle();
    save();
    EXPECT_NE(readFile(path), text);
    undoLast(editor);
    EXPECT_EQ(savedTwice(path), text);
}

TEST_F(MixedLayouts, IdsBesideOneThatNamesNoneAreRenumbered) {
    const ModelText text("hero.mdl",
                         "Geoset { }\nGeoset { }\nBone \"b\" {\n\tGeosetId 1, } Bone "
                         "\"c\" { GeosetId Multiple, }\n");
    EXPECT_EQ(removeGeoset(text, 1).joined(),
              "Geoset { }\nBone \"b\" {\n\tGeosetId 0, } Bone \"c\" { GeosetId Multiple, }\n");
}

TEST_F(MixedLayouts, CommentsInARowDoNotMatterToOddNumbers) {
    const Geoset geoset = readGeoset("Geoset {\n" + kToolVertices +
                                     "\tNormals 3 {\n\t\t{ 0, 0, nan // bad }\n\t\t},\n"
                                     "\t\t{ +1 // a, b\n\t\t, 0, +2 // }\n\t\t},\n\t}\n}\n");
    EXPECT_EQ(geoset.Vertices[0].normal, (Triple{0, 0, 0}));
    EXPECT_EQ(geoset.Vertices[1].normal, (Triple{0, 2, 1}));
}

// Thousands of blocks on a line, which takes minutes if each looks at the whole line.
TEST_F(MixedLayouts, ManyBlocksOnALineAreManyBlocks) {
    std::string text = "Geoset { " + kVertices + kFaces + "} Geoset { " + kVertices + kFaces + "} ";
    std::string expected = " Geoset { " + kVertices + kFaces + "} ";
    for (int i = 0; i < 30000; ++i) {
        text += "Bone \"b\" { GeosetId 1, GeosetAnimId None, } ";
        expected += "Bone \"b\" { GeosetId 0, GeosetAnimId None, } ";
    }
    EXPECT_EQ(scanBlocks(text).size(), 30002U);
    for (int i = 0; i < 30000; ++i) expected += "}\n";
    std::string strays = text;
    for (int i = 0; i < 30000; ++i) strays += "}\n";
    EXPECT_EQ(scanBlocks(strays).size(), 30002U);
    text = strays;
    EXPECT_TRUE(removeGeoset(ModelText("hero.mdl", text), 1).joined() == expected);
}

// The same rows are told of once, but those of another merge are others.
TEST_F(MixedLayouts, RowsMadeUpForAnotherMergeAreToldOfAgain) {
    openNew("hero.mdl", "Geoset {\n" + kToolVertices + kToolFaces +
                            "\tTangents 3 {\n\t\t{ 0.1, 0, 0, 1 },\n\t\t{ 0.2, 0, 0, 1 },\n"
                            "\t\t{ 0.3, 0, 0, 1 },\n\t}\n}\n");
    for (const char* const rows : {"(3 rows)", "(6 rows)"}) {
        mergeTriangle();
        save();
        EXPECT_NE(dialogs.last().text.find(rows), std::string::npos) << dialogs.last().text;
        save();
        EXPECT_EQ(askedKinds(), "");
    }
}

}  // namespace
}  // namespace corvane
