// Compares a tool with its plain twin on random meshes.
#pragma once

#include <functional>
#include <string>

#include "random_meshes.h"
#include "tool_fixture.h"

namespace corvane {

inline constexpr int kMeshes = 500;

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

    /// The same for a tool with three numbers, which are others for each mesh.
    void compareOnMeshes(const std::function<void(Editor&, const Triple&)>& tool,
                         const std::function<void(Geoset&, const Triple&)>& twin) {
        Triple numbers{};
        compareOnMeshes([&](Editor& edited) { tool(edited, numbers); },
                        [&](Geoset& mesh) {
                            numbers = {dice.number(), dice.number(), dice.number()};
                            twin(mesh, numbers);
                        });
    }

    Dice dice;
};

}  // namespace corvane
