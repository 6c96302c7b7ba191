// The drag transforms and the tools that place vertices give, on many small meshes, the same bits
// as their numbers worked out step by step.
#include "plain_transforms.h"

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "plain_twins_fixture.h"

namespace corvane {
namespace {

class PlainTransformsTest : public PlainTwinsTest {
protected:
    /// Runs `compare` with all axes active and with each of them locked.
    void withAxes(const std::function<void(const std::array<bool, 3>&)>& compare) {
        for (int locked = -1; locked < 3; ++locked) {
            SCOPED_TRACE("locked axis " + std::to_string(locked));
            const std::array<bool, 3> active = {locked != 0, locked != 1, locked != 2};
            editor.modes.activeX = active[0];
            editor.modes.activeY = active[1];
            editor.modes.activeZ = active[2];
            compare(active);
        }
    }
};

TEST_F(PlainTransformsTest, Move) {
    withAxes([&](const std::array<bool, 3>& active) {
        compareOnMeshes(
            [](Editor& edited, const Triple& delta) { moveSelection(edited, delta); },
            [&](Geoset& mesh, const Triple& delta) { plain::moveSelection(mesh, delta, active); });
    });
}

TEST_F(PlainTransformsTest, Scale) {
    withAxes([&](const std::array<bool, 3>& active) {
        compareOnMeshes(
            [](Editor& edited, const Triple& drag) { scaleSelection(edited, drag[0], drag[1]); },
            [&](Geoset& mesh, const Triple& drag) {
                plain::scaleSelection(mesh, drag[0], drag[1], active);
            });
    });
}

TEST_F(PlainTransformsTest, Rotate) {
    for (const Axis axis : {Axis::X, Axis::Y, Axis::Z}) {
        SCOPED_TRACE(letterOf(axis));
        compareOnMeshes(
            [&](Editor& edited, const Triple& drag) {
                double angle = drag[0];
                rotateSelection(edited, angle, axis);
            },
            [&](Geoset& mesh, const Triple& drag) {
                plain::rotateSelection(mesh, drag[0], letterOf(axis));
            });
    }
}

TEST_F(PlainTransformsTest, MirrorAndAlign) {
    for (const Axis axis : {Axis::X, Axis::Y, Axis::Z}) {
        SCOPED_TRACE(letterOf(axis));
        compareOnMeshes([&](Editor& edited) { mirrorSelection(edited, axis); },
                        [&](Geoset& mesh) { plain::mirrorSelection(mesh, slotOf(axis)); });
        compareOnMeshes([&](Editor& edited) { alignSelection(edited, axis); },
                        [&](Geoset& mesh) { plain::alignSelection(mesh, slotOf(axis)); });
    }
}

TEST_F(PlainTransformsTest, Snap) { compareOnMeshes(snapSelection, plain::snapSelection); }

TEST_F(PlainTransformsTest, SnapNormals) {
    compareOnMeshes([](Editor& edited) { snapNormals(edited); }, plain::snapNormals);
}

TEST_F(PlainTransformsTest, SetCoordinates) {
    dialogs.asked.clear();
    compareOnMeshes(
        [&](Editor& edited) {
            dialogs.inputs = {"0.1", "-7.3", "1e-7"};
            setCoordinates(edited);
            dialogs.asked.clear();
        },
        [](Geoset& mesh) {
            plain::placeSelection(mesh, {0.1, -7.3, 0.0000001});
        });
}

TEST_F(PlainTransformsTest, CentreOfMass) {
    for (int i = 1; i <= kMeshes; ++i) {
        const Geoset mesh = randomMesh(dice);
        load(mesh);
        window.clipboard = "before";
        copyCentreOfMass(editor);
        const bool any = plain::numSelVerts(mesh) > 0;
        ASSERT_EQ(window.clipboard, any ? plain::centreOfMass(mesh) : "before") << "mesh " << i;
    }
}

}  // namespace
}  // namespace corvane
