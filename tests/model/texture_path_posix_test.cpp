// Where the file of a texture is looked for where upper and lower case make different names.
#include "texture_path_fixture.h"

namespace corvane {
namespace {

class TexturePathPosixTest : public TexturePathTest {};

TEST_F(TexturePathPosixTest, OfNamesThatDifferInTheirCaseTheOneThatIsSpelledSoComesFirst) {
    make("mods/TEXTURES/castle/wall.BLP");
    make("mods/Textures/castle/wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/Textures/castle/wall.blp");
    make("mods/Textures/castle/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/Textures/castle/Wall.blp");
}

TEST_F(TexturePathPosixTest, AFolderWithoutTheFileDoesNotHideAnotherOne) {
    std::filesystem::create_directories(folder.path("mods/Textures"));
    make("mods/textures/Wall.blp");
    EXPECT_EQ(found("Textures\\Wall.blp"), "mods/textures/Wall.blp");
}

}  // namespace
}  // namespace corvane
