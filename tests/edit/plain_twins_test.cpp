// Each tool that the program does in a fast way gives, on many small meshes, the same bits as the
// plain way does.
#include "plain_twins.h"

#include <algorithm>
#include <bit>
#include <random>

#include "edit/clone.h"
#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/normals.h"
#include "edit/selection.h"
#include "model/geoset_sections.h"
#include "test_commands.h"
#include "tool_fixture.h"

namespace corvane {
namespace {

constexpr int kMeshes = 500;

/// Random numbers, the same ones wherever the test runs.
class Dice {
public:
    /// 0 to sides - 1.
    int roll(int sides) {
        return static_cast<int>(numbers_() % static_cast<std::uint_fast32_t>(sides));
    }
    bool oneIn(int sides) { return roll(sides) == 0; }

private:
    std::mt19937 numbers_{20020703};  // the seed may be any number, but always the same
};

/// A mesh of 3 to 30 vertices on a few grid lines, so that many coincide, with faces that may be
/// doubled, degenerate or deleted.
Geoset randomMesh(Dice& dice) {
    // No sum of these is exact, so that another order of adding gives other bits.
    constexpr std::array<double, 8> kLines = {0.0, -0.0, 0.1, -0.7, 1.0 / 3, 2.3, -5.9, 11.7};
    const int lines = 2 + dice.roll(5);
    const auto coordinate = [&] { return kLines.at(static_cast<std::size_t>(dice.roll(lines))); };
    const auto number = [&] { return static_cast<double>(dice.roll(2001) - 1000) / 700; };
    const int selectedOf12 = std::array<int, 5>{0, 4, 8, 11, 12}.at(
        static_cast<std::size_t>(dice.roll(5)));  // how many of twelve are selected
    const bool deletes = !dice.oneIn(4);

    Geoset mesh;
    const int vertices = 3 + dice.roll(28);
    for (int i = 0; i < vertices; ++i) {
        VertexRecord& vertex = mesh.Vertices.emplace_back();
        for (double& value : vertex.pos) value = coordinate();
        for (double& value : vertex.normal) value = number();
        vertex.tu = number();
        vertex.tv = number();
        vertex.group = static_cast<std::int16_t>(dice.roll(5));
        vertex.selected = dice.roll(12) < selectedOf12;
        vertex.deleted = deletes && dice.oneIn(5);
    }
    const int faces = dice.roll(2 * vertices + 1);
    const int reach = dice.oneIn(2) ? vertices : std::min(vertices, 5);  // between a face's corners
    for (int g = 0; g < faces; ++g) {
        FaceRecord face;
        if (g > 0 && dice.oneIn(6)) {
            face = mesh.Faces[static_cast<std::size_t>(dice.roll(g))];
            std::rotate(face.corner.begin(), face.corner.begin() + dice.roll(3), face.corner.end());
            if (dice.oneIn(2)) std::swap(face.corner[0], face.corner[1]);
        } else {
            const int first = dice.roll(vertices);
            for (std::int16_t& corner : face.corner) {
                corner = static_cast<std::int16_t>((first + dice.roll(reach)) % vertices);
            }
        }
        face.deleted = deletes && dice.oneIn(5);
        mesh.Faces.push_back(face);
    }
    mesh.matrixGroups.resize(static_cast<std::size_t>(dice.roll(3)));
    return mesh;
}

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool sameBits(const Triple& a, const Triple& b) {
    return std::ranges::equal(a, b, [](double x, double y) { return sameBits(x, y); });
}

bool sameBits(const VertexRecord& a, const VertexRecord& b) {
    return sameBits(a.pos, b.pos) && sameBits(a.normal, b.normal) && sameBits(a.tu, b.tu) &&
           sameBits(a.tv, b.tv) && a.group == b.group && a.selected == b.selected &&
           a.deleted == b.deleted;
}

bool sameBits(const Geoset& a, const Geoset& b) {
    return std::ranges::equal(
               a.Vertices, b.Vertices,
               [](const VertexRecord& x, const VertexRecord& y) { return sameBits(x, y); }) &&
           a.Faces == b.Faces && a.matrixGroups == b.matrixGroups;
}

class PlainTwinsTest : public ToolTest {
protected:
    /// Puts a mesh into the store, as if it had just been read.
    void load(const Geoset& mesh) {
        static_cast<Geoset&>(store()) = mesh;
        store().modelLoaded = true;
    }

    /// Compares the tool with its plain twin; both change a mesh.
    void compareOnMeshes(const std::function<void(Editor&)>& tool,
                         const std::function<void(Geoset&)>& twin) {
        int changed = 0;
        for (int i = 1; i <= kMeshes; ++i) {
            SCOPED_TRACE("mesh " + std::to_string(i));
            const Geoset mesh = randomMesh(dice);
            Geoset expected = mesh;
            twin(expected);
            load(mesh);
            tool(editor);
            if (!sameBits(geoset(), expected)) {
                expectGeoset(expected);
                FAIL() << "the bits differ";
            }
            if (!sameBits(mesh, expected)) ++changed;
        }
        EXPECT_GT(changed, kMeshes / 2);  // the meshes gave it something to do
        EXPECT_TRUE(dialogs.asked.empty());
    }

    Dice dice;
};

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
