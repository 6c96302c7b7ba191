// Saving where symbolic links lead elsewhere.
#include <filesystem>

#include "edit/commands/drag_transforms.h"
#include "model/commands/save_model.h"
#include "model_flow.h"

namespace corvane {
namespace {

class SaveLinksPosixTest : public ModelFlowTest {
protected:
    /// Moves the first vertex of geoset 2 of three.
    void edit() {
        select({1});
        moveSelection(editor, {1, 2, 4});
    }

    static std::string edited() {
        ModelParts parts = threeGeosets();
        parts.geosets[1].vertices[0] = "6, 1, 2";
        return modelOf(parts);
    }
};

TEST_F(SaveLinksPosixTest, TheModelCannotBeSavedOntoItsOwnWorkingCopy) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    edit();
    std::filesystem::create_symlink(store().workPath, folder.path("link.mdl"));
    const Before before = remember();
    for (const std::string& path : {store().workPath, folder.path("link.mdl")}) {
        saveAs(path);
        ASSERT_EQ(askedKinds(), "save message");
        expectLast("message", "Error",
                   path + " is the working copy of the model that is open, " + store().modelPath +
                       ". Choose another file.");
        expectUnchanged(before);
    }
    save();
    EXPECT_EQ(modelBytes(), edited());
}

TEST_F(SaveLinksPosixTest, AModelThatIsASymbolicLinkStaysOne) {
    const std::string real = folder.write("real.mdl", modelOf(threeGeosets()));
    std::filesystem::create_symlink(real, folder.path("link.mdl"));
    open(folder.path("link.mdl"), "2");
    edit();
    save();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.mdl")));
    EXPECT_EQ(readFile(real), edited());
}

}  // namespace
}  // namespace corvane
