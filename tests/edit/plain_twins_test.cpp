// Each tool that the program does in a fast way gives, on many small meshes, the same bits as the
// plain way does.
#include "plain_twins.h"

#include <algorithm>

#include "edit/clone.h"
#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "model/geoset_sections.h"
#include "plain_twins_fixture.h"
#include "test_commands.h"

namespace corvane {
namespace {

TEST_F(PlainTwinsTest, TheMeshesHoldWhatTheToolsHaveToTellApart) {
    int coincident = 0;
    int signedZeroes = 0;
    int doubled = 0;
    int degenerate = 0;
    int deletedVertices = 0;
    int deletedFaces = 0;
    int seams = 0;
    for (int i = 1; i <= kMeshes; ++i) {
        const Geoset mesh = randomMesh(dice);
        bool hasSeam = false;
        for (const VertexRecord& a : mesh.Vertices) {
            for (const VertexRecord& b : mesh.Vertices) {
                if (&a == &b || a.pos != b.pos) continue;
                hasSeam = true;
                if (!sameBits(a.pos, b.pos)) ++signedZeroes;
            }
        }
        if (hasSeam) ++coincident;
        for (const FaceRecord& a : mesh.Faces) {
            const auto [x, y, z] = a.corner;
            if (x == y || y == z || z == x) ++degenerate;
            if (a.deleted) ++deletedFaces;
            for (const FaceRecord& b : mesh.Faces) {
                if (&a != &b && std::ranges::is_permutation(a.corner, b.corner)) ++doubled;
            }
            const auto edgesOf = [](const FaceRecord& face) {
                const auto [p, q, r] = face.corner;
                return std::array<plain::ExtrudeEdge, 3>{
                    {{.start = p, .end = q}, {.start = q, .end = r}, {.start = r, .end = p}}};
            };
            for (const FaceRecord& b : mesh.Faces) {
                for (const plain::ExtrudeEdge& e : edgesOf(a)) {
                    for (const plain::ExtrudeEdge& f : edgesOf(b)) {
                        if (plain::sameEdge(mesh, e, f) && e.start != f.start && e.start != f.end) {
                            ++seams;
                        }
                    }
                }
            }
        }
        deletedVertices +=
            static_cast<int>(std::ranges::count(mesh.Vertices, true, &VertexRecord::deleted));
    }
    for (const int count :
         {coincident, signedZeroes, doubled, degenerate, deletedVertices, deletedFaces, seams}) {
        EXPECT_GT(count, 300);
    }
}

TEST_F(PlainTwinsTest, Clone) {
    compareOnMeshes([](Editor& edited) { cloneSelected(edited.store); }, plain::cloneSelection);
}

TEST_F(PlainTwinsTest, Extrude) {
    for (const std::array<bool, 3>& active :
         {std::array<bool, 3>{true, true, true}, std::array<bool, 3>{true, false, true}}) {
        editor.modes.activeX = active[0];
        editor.modes.activeY = active[1];
        editor.modes.activeZ = active[2];
        const Triple delta = {0.1, -0.7, 1.0 / 3};
        compareOnMeshes([&](Editor& edited) { extrudeSelection(edited, delta); },
                        [&](Geoset& mesh) { plain::extrudeSelection(mesh, delta, active); });
    }
}

TEST_F(PlainTwinsTest, Weld) { compareOnMeshes(weldSelection, plain::weldSelection); }

TEST_F(PlainTwinsTest, ExpandSelection) {
    // Most meshes are in one piece or selected already: a single selected vertex grows most.
    const auto selectOne = [](Geoset& mesh) {
        const std::size_t chosen = mesh.Faces.size() % mesh.Vertices.size();
        for (std::size_t i = 0; i < mesh.Vertices.size(); ++i) {
            mesh.Vertices[i].selected = i == chosen;
        }
    };
    compareOnMeshes(
        [&](Editor& edited) {
            selectOne(edited.store);
            expandSelection(edited);
        },
        [&](Geoset& mesh) {
            selectOne(mesh);
            plain::expandSelection(mesh);
        });
    for (int i = 1; i <= kMeshes; ++i) {  // and selections as they come
        const Geoset mesh = randomMesh(dice);
        Geoset expected = mesh;
        plain::expandSelection(expected);
        load(mesh);
        expandSelection(editor);
        ASSERT_TRUE(sameBits(geoset(), expected)) << "mesh " << i;
    }
}

TEST_F(PlainTwinsTest, RecalculateNormals) {
    compareOnMeshes(edit<"Recalculate Normals", recalculateNormals>, plain::recalculateNormals);
}

TEST_F(PlainTwinsTest, SelectionCentre) {
    for (int i = 1; i <= kMeshes; ++i) {
        const Geoset mesh = randomMesh(dice);
        load(mesh);
        const Triple expected = {plain::selectionCentre(mesh, 0), plain::selectionCentre(mesh, 1),
                                 plain::selectionCentre(mesh, 2)};
        ASSERT_TRUE(sameBits(selectionCentre(store()), expected)) << "mesh " << i;
    }
}

TEST_F(PlainTwinsTest, CountsOfTheSelection) {
    for (int i = 1; i <= kMeshes; ++i) {
        const Geoset mesh = randomMesh(dice);
        load(mesh);
        ASSERT_EQ(numSelVerts(store()), plain::numSelVerts(mesh)) << "mesh " << i;
        ASSERT_EQ(countSelectedFaces(store()), plain::countSelectedFaces(mesh)) << "mesh " << i;
    }
}

TEST_F(PlainTwinsTest, NumberingOfASave) {
    for (int i = 1; i <= kMeshes; ++i) {
        const Geoset mesh = randomMesh(dice);
        const KeptVertices kept(mesh);
        for (int v = 1; v <= plain::vertexCount(mesh); ++v) {
            ASSERT_EQ(kept.newVertexIndex(v), plain::newVertexIndex(mesh, v)) << "mesh " << i;
        }
        ASSERT_EQ(countKeptFaces(mesh), plain::countKeptFaces(mesh)) << "mesh " << i;
    }
}

}  // namespace
}  // namespace corvane
