#include "model/geoset_sections.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "model_texts.h"

namespace corvane {
namespace {

// A geoset of `count` vertices at the origin.
Geoset blankGeoset(std::size_t count) {
    Geoset geoset;
    geoset.Vertices.resize(count);
    return geoset;
}

FaceRecord face(std::int16_t a, std::int16_t b, std::int16_t c) { return {{a, b, c}, false}; }

MatrixGroup matrices(std::initializer_list<std::int16_t> used) {
    MatrixGroup group;
    group.fill(kNoMatrix);
    std::copy(used.begin(), used.end(), group.begin());
    return group;
}

std::string section(SectionKind kind, const Geoset& geoset, bool singleGeoset = false,
                    std::string_view lineBreak = "\n") {
    std::string out;
    appendSection(out, kind, geoset, KeptVertices(geoset), singleGeoset, lineBreak);
    return out;
}

TEST(KeptVerticesNumbering, LeavesOutDeletedVertices) {
    Geoset geoset = blankGeoset(5);
    geoset.Vertices[1].deleted = true;
    geoset.Vertices[2].deleted = true;
    const KeptVertices kept(geoset);
    EXPECT_EQ(kept.count(), 3);
    EXPECT_EQ(kept.newVertexIndex(1), 0);
    EXPECT_EQ(kept.newVertexIndex(4), 1);
    EXPECT_EQ(kept.newVertexIndex(5), 2);
}

// The number of kept vertices up to and including it, less 1, whether it is kept or not.
TEST(KeptVerticesNumbering, GivesADeletedVertexTheNumberOfTheKeptOneBefore) {
    Geoset geoset = blankGeoset(4);
    geoset.Vertices[0].deleted = true;
    geoset.Vertices[2].deleted = true;
    const KeptVertices kept(geoset);
    EXPECT_EQ(kept.newVertexIndex(1), -1);
    EXPECT_EQ(kept.newVertexIndex(2), 0);
    EXPECT_EQ(kept.newVertexIndex(3), 0);
    EXPECT_EQ(kept.newVertexIndex(4), 1);
}

TEST(KeptVerticesNumbering, ChangesNothingWithoutDeletions) {
    const KeptVertices kept(blankGeoset(3));
    EXPECT_EQ(kept.count(), 3);
    EXPECT_EQ(kept.newVertexIndex(1), 0);
    EXPECT_EQ(kept.newVertexIndex(3), 2);
    EXPECT_EQ(KeptVertices(blankGeoset(0)).count(), 0);
}

TEST(KeptVerticesNumbering, ReachesTheLastOf32767) {
    const KeptVertices kept(blankGeoset(32767));
    EXPECT_EQ(kept.count(), 32767);
    EXPECT_EQ(kept.newVertexIndex(32767), 32766);
}

TEST(CountKeptFaces, CountsFacesWithThreeKeptCorners) {
    Geoset geoset = blankGeoset(5);
    geoset.Faces = {face(0, 1, 2), face(0, 2, 3), face(1, 2, 4), face(2, 2, 2)};
    EXPECT_EQ(countKeptFaces(geoset), 4);
    geoset.Vertices[1].deleted = true;
    EXPECT_EQ(countKeptFaces(geoset), 2);
    geoset.Vertices[2].deleted = true;
    EXPECT_EQ(countKeptFaces(geoset), 0);
}

TEST(CountKeptFaces, DoesNotLookAtTheFacesOwnFlags) {
    Geoset geoset = blankGeoset(3);
    geoset.Faces = {face(0, 1, 2), face(2, 1, 0)};
    geoset.Faces[0].deleted = true;
    EXPECT_EQ(countKeptFaces(geoset), 2);
}

TEST(VerticesSection, WritesPositionsUnroundedInFileOrder) {
    Geoset geoset = blankGeoset(2);
    geoset.Vertices[0].pos = {-2, 0.03, 1.5};
    geoset.Vertices[1].pos = {1.23456789012, -0.0, 0.12345678};
    EXPECT_EQ(section(SectionKind::Vertices, geoset),
              "\tVertices 2 {\n"
              "\t\t{ 1.5, -2, 0.03 },\n"
              "\t\t{ 0.12345678, 1.23456789012, 0 },\n");
}

TEST(VerticesSection, WritesVerySmallAndVeryLargePositions) {
    Geoset geoset = blankGeoset(1);
    geoset.Vertices[0].pos = {1.044562e-8, -1e15, 0.000832939};
    EXPECT_EQ(section(SectionKind::Vertices, geoset),
              "\tVertices 1 {\n"
              "\t\t{ 0.000832939, 1.044562e-8, -1e15 },\n");
}

TEST(VerticesSection, LeavesOutDeletedVertices) {
    Geoset geoset = blankGeoset(3);
    for (std::size_t i = 0; i < 3; ++i) geoset.Vertices[i].pos = {0, 0, static_cast<double>(i)};
    geoset.Vertices[1].deleted = true;
    EXPECT_EQ(section(SectionKind::Vertices, geoset),
              "\tVertices 2 {\n"
              "\t\t{ 0, 0, 0 },\n"
              "\t\t{ 2, 0, 0 },\n");
}

TEST(NormalsSection, RoundsToSixDecimals) {
    Geoset geoset = blankGeoset(3);
    geoset.Vertices[0].normal = {0.12345678, -1, 0.0078125};
    geoset.Vertices[1].normal = {-1e-9, 1.0000004, 0.1234565};
    geoset.Vertices[2].deleted = true;
    EXPECT_EQ(section(SectionKind::Normals, geoset),
              "\tNormals 2 {\n"
              "\t\t{ 0.007812, 0.123457, -1 },\n"
              "\t\t{ 0.123456, 0, 1 },\n");
}

TEST(NormalsSection, WritesASmallRoundedNumberInExponentForm) {
    Geoset geoset = blankGeoset(1);
    geoset.Vertices[0].normal = {0.0000123, 0, 0.0001};
    EXPECT_EQ(section(SectionKind::Normals, geoset),
              "\tNormals 1 {\n"
              "\t\t{ 0.0001, 1.2e-5, 0 },\n");
}

TEST(TVerticesSection, RoundsToSixDecimals) {
    Geoset geoset = blankGeoset(3);
    geoset.Vertices[0].tu = 0.25;
    geoset.Vertices[0].tv = 0.0234375;
    geoset.Vertices[1].deleted = true;
    geoset.Vertices[2].tu = -1.9999999;
    EXPECT_EQ(section(SectionKind::TVertices, geoset),
              "\tTVertices 2 {\n"
              "\t\t{ 0.25, 0.023438 },\n"
              "\t\t{ -2, 0 },\n");
}

TEST(VertexGroupSection, WritesTheGroupsOfKeptVertices) {
    Geoset geoset = blankGeoset(4);
    geoset.matrixGroups = {matrices({0}), matrices({1})};
    geoset.Vertices[0].group = 1;
    geoset.Vertices[1].group = 12;  // beyond the groups there are: kept as it is
    geoset.Vertices[2].group = 5;
    geoset.Vertices[2].deleted = true;
    geoset.Vertices[3].group = -1;
    EXPECT_EQ(section(SectionKind::VertexGroup, geoset),
              "\tVertexGroup {\n"
              "\t\t1,\n"
              "\t\t12,\n"
              "\t\t-1,\n");
}

TEST(VertexGroupSection, WritesGroup0ForASingleGeoset) {
    Geoset geoset = blankGeoset(3);
    geoset.Vertices[0].group = 1;
    geoset.Vertices[1].deleted = true;
    geoset.Vertices[2].group = 12;
    EXPECT_EQ(section(SectionKind::VertexGroup, geoset, true),
              "\tVertexGroup {\n"
              "\t\t0,\n"
              "\t\t0,\n");
}

TEST(FacesSection, WritesAllCornersOnOneLine) {
    Geoset geoset = blankGeoset(4);
    geoset.Faces = {face(0, 1, 2), face(0, 2, 3)};
    EXPECT_EQ(section(SectionKind::Faces, geoset),
              "\tFaces 1 6 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2, 0, 2, 3 },\n"
              "\t\t}\n");
}

TEST(FacesSection, RenumbersCornersAndDropsFacesOfDeletedVertices) {
    Geoset geoset = blankGeoset(4);
    geoset.Faces = {face(0, 1, 2), face(0, 2, 3), face(3, 1, 0)};
    geoset.Vertices[1].deleted = true;
    EXPECT_EQ(section(SectionKind::Faces, geoset),
              "\tFaces 1 3 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2 },\n"
              "\t\t}\n");
}

// The header goes on counting a deleted face as long as its vertices are kept.
TEST(FacesSection, CountsDeletedFacesThatItDoesNotList) {
    Geoset geoset = blankGeoset(4);
    geoset.Faces = {face(0, 1, 2), face(0, 2, 3), face(1, 2, 3)};
    geoset.Faces[1].deleted = true;
    EXPECT_EQ(section(SectionKind::Faces, geoset),
              "\tFaces 1 9 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2, 1, 2, 3 },\n"
              "\t\t}\n");
    geoset.Vertices[0].deleted = true;
    EXPECT_EQ(section(SectionKind::Faces, geoset),
              "\tFaces 1 3 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ 0, 1, 2 },\n"
              "\t\t}\n");
}

TEST(FacesSection, WritesAnEmptyListThatCanBeReadBack) {
    Geoset geoset = blankGeoset(3);
    geoset.Faces = {face(0, 1, 2), face(2, 1, 0)};
    geoset.Faces[0].deleted = true;
    geoset.Faces[1].deleted = true;
    const std::string faces = section(SectionKind::Faces, geoset);
    EXPECT_EQ(faces,
              "\tFaces 1 6 {\n"
              "\t\tTriangles {\n"
              "\t\t\t{ },\n"
              "\t\t}\n");
    const Geoset again = readGeoset("Geoset {\n" + section(SectionKind::Vertices, geoset) +
                                    "\t}\n" + faces + "\t}\n}\n");
    EXPECT_TRUE(again.Faces.empty());
}

TEST(GroupsSection, CountsTheEntriesOfAllGroups) {
    Geoset geoset = blankGeoset(1);
    geoset.matrixGroups = {matrices({5}), matrices({0, 1, 2}),
                           matrices({10, 11, 12, 13, 14, 15, 16})};
    EXPECT_EQ(section(SectionKind::Groups, geoset),
              "\tGroups 3 11 {\n"
              "\t\tMatrices { 5 },\n"
              "\t\tMatrices { 0, 1, 2 },\n"
              "\t\tMatrices { 10, 11, 12, 13, 14, 15, 16 },\n");
}

TEST(GroupsSection, WritesGroupsThatNoVertexUses) {
    Geoset geoset = blankGeoset(1);
    geoset.Vertices[0].deleted = true;
    geoset.matrixGroups = {matrices({3}), matrices({4})};
    EXPECT_EQ(section(SectionKind::Groups, geoset),
              "\tGroups 2 2 {\n"
              "\t\tMatrices { 3 },\n"
              "\t\tMatrices { 4 },\n");
}

TEST(GroupsSection, WritesTheFirstRowOfAGroupOfNone) {
    Geoset geoset = blankGeoset(1);
    geoset.matrixGroups = {matrices({3}), matrices({-1})};
    EXPECT_EQ(section(SectionKind::Groups, geoset),
              "\tGroups 2 1 {\n"
              "\t\tMatrices { 3 },\n"
              "\t\tMatrices { -1 },\n");
}

TEST(GroupsSection, IsEmptyWithoutGroups) {
    EXPECT_EQ(section(SectionKind::Groups, blankGeoset(1)), "\tGroups 0 0 {\n");
}

TEST(GroupsSection, HoldsOneGroupForASingleGeoset) {
    Geoset geoset = blankGeoset(1);
    geoset.matrixGroups = {matrices({5, 6}), matrices({7})};
    EXPECT_EQ(section(SectionKind::Groups, geoset, true),
              "\tGroups 1 1 {\n"
              "\t\tMatrices { 0 },\n");
}

TEST(EverySection, EndsItsLinesWithTheGivenBreak) {
    Geoset geoset = blankGeoset(3);
    geoset.Faces = {face(0, 1, 2)};
    geoset.matrixGroups = {matrices({0, 1})};
    for (const SectionKind kind :
         {SectionKind::Vertices, SectionKind::Normals, SectionKind::TVertices,
          SectionKind::VertexGroup, SectionKind::Faces, SectionKind::Groups}) {
        for (const bool singleGeoset : {false, true}) {
            const std::string lf = section(kind, geoset, singleGeoset, "\n");
            EXPECT_GE(std::count(lf.begin(), lf.end(), '\n'), 2) << keywordOf(kind);
            EXPECT_EQ(section(kind, geoset, singleGeoset, "\r\n"), withCrLf(lf)) << keywordOf(kind);
        }
    }
}

TEST(WritesTheSame, TellsGeosetsApartByAllThatIsWritten) {
    Geoset geoset = blankGeoset(3);
    geoset.Faces = {face(0, 1, 2)};
    geoset.matrixGroups = {matrices({0})};
    const auto differs = [&](auto change) {
        Geoset other = geoset;
        change(other);
        return !writesTheSame(geoset, other) && !writesTheSame(other, geoset);
    };
    const auto differsIn = [&](auto change) {
        return differs([&](Geoset& other) { change(other.Vertices[1]); });
    };
    EXPECT_TRUE(writesTheSame(geoset, Geoset(geoset)));
    EXPECT_TRUE(differs([](Geoset& other) { other.Vertices.pop_back(); }));
    EXPECT_TRUE(differs([](Geoset& other) { other.Faces.clear(); }));
    EXPECT_TRUE(differs([](Geoset& other) { other.Faces[0].corner[2] = 1; }));
    EXPECT_TRUE(differs([](Geoset& other) { other.matrixGroups[0][1] = 7; }));
    for (std::size_t slot = 0; slot < 3; ++slot) {
        EXPECT_TRUE(differsIn([&](VertexRecord& vertex) { vertex.pos[slot] += 1e-9; })) << slot;
        EXPECT_TRUE(differsIn([&](VertexRecord& vertex) { vertex.normal[slot] += 0.01; })) << slot;
        EXPECT_FALSE(differsIn([&](VertexRecord& vertex) { vertex.normal[slot] += 1e-12; }));
    }
    // Positions are written with 15 digits.
    geoset.Vertices[1].pos[0] = 100;
    EXPECT_FALSE(differsIn([](VertexRecord& vertex) { vertex.pos[0] = std::nextafter(100, 101); }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.pos[0] += 1e-12; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.tu += 0.01; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.tv += 0.01; }));
    EXPECT_FALSE(differsIn([](VertexRecord& vertex) { vertex.tu += 1e-12; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.group = 5; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.deleted = true; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.regrouped = true; }));
    EXPECT_TRUE(differsIn([](VertexRecord& vertex) { vertex.fileRow = 2; }));
    EXPECT_FALSE(differsIn([](VertexRecord& vertex) { vertex.selected = true; }));
}

TEST(HasDataFor, LooksAtVerticesThatAreKept) {
    const std::vector<SectionKind> kinds = {SectionKind::Vertices,  SectionKind::Normals,
                                            SectionKind::TVertices, SectionKind::VertexGroup,
                                            SectionKind::Faces,     SectionKind::Groups,
                                            SectionKind::Rows};
    const auto having = [&](const Geoset& geoset) {
        std::vector<SectionKind> found;
        std::ranges::copy_if(kinds, std::back_inserter(found),
                             [&](SectionKind kind) { return hasDataFor(kind, geoset); });
        return found;
    };
    using Kinds = std::vector<SectionKind>;
    EXPECT_EQ(having({}), Kinds{});
    Geoset geoset = blankGeoset(3);
    for (VertexRecord& vertex : geoset.Vertices) vertex.normal = {};
    EXPECT_EQ(having(geoset), Kinds{SectionKind::Vertices});
    geoset.Vertices[1].normal = {0, 0, 1};
    EXPECT_EQ(having(geoset), (Kinds{SectionKind::Vertices, SectionKind::Normals}));
    geoset.Vertices[1].normal = {};
    for (double VertexRecord::*coordinate : {&VertexRecord::tu, &VertexRecord::tv}) {
        geoset.Vertices[1].*coordinate = 0.5;
        EXPECT_EQ(having(geoset), (Kinds{SectionKind::Vertices, SectionKind::TVertices}));
        geoset.Vertices[1].*coordinate = 0;
    }
    geoset.Vertices[1].group = -1;
    EXPECT_EQ(having(geoset), (Kinds{SectionKind::Vertices, SectionKind::VertexGroup}));
    geoset.Vertices[1].group = 0;
    geoset.Faces = {face(0, 1, 2)};
    geoset.matrixGroups = {matrices({0})};
    EXPECT_EQ(having(geoset),
              (Kinds{SectionKind::Vertices, SectionKind::Faces, SectionKind::Groups}));
    for (VertexRecord& vertex : geoset.Vertices) {
        vertex = {.normal = {1, 0, 0}, .tu = 1, .tv = 1, .group = 1, .deleted = true};
    }
    EXPECT_EQ(having(geoset), Kinds{SectionKind::Groups});
}

TEST(EverySection, IsAppendedToWhatIsThere) {
    const Geoset geoset = blankGeoset(0);
    std::string out = "}\n";
    appendSection(out, SectionKind::Vertices, geoset, KeptVertices(geoset), false, "\n");
    appendSection(out, SectionKind::VertexGroup, geoset, KeptVertices(geoset), false, "\n");
    EXPECT_EQ(out, "}\n\tVertices 0 {\n\tVertexGroup {\n");
}

}  // namespace
}  // namespace corvane
