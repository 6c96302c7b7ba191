// Where the file of a texture is looked for.
#include "model/texture_path.h"

#include <filesystem>

#include "texture_path_fixture.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

TEST_F(TexturePathTest, NamesHaveTheModelsExtensionFirstThenTheOthers) {
    EXPECT_EQ(textureFileNames("Textures\\Wall.blp"),
              (Texts{"Textures/Wall.blp", "Textures/Wall.dds", "Textures/Wall.tga",
                     "Textures/Wall.png"}));
    EXPECT_EQ(textureFileNames("Wall.TGA"),
              (Texts{"Wall.TGA", "Wall.blp", "Wall.dds", "Wall.png"}));
    EXPECT_EQ(textureFileNames("a/b.c/Wall"),
              (Texts{"a/b.c/Wall", "a/b.c/Wall.blp", "a/b.c/Wall.dds", "a/b.c/Wall.tga",
                     "a/b.c/Wall.png"}));
}

TEST_F(TexturePathTest, WhatLeadsElsewhereThanDownIsLeftOut) {
    EXPECT_EQ(textureFileNames("C:\\war\\..\\.\\\\Wall.png").front(), "war/Wall.png");
    EXPECT_EQ(textureFileNames("/etc/Wall.png").front(), "etc/Wall.png");
    EXPECT_TRUE(textureFileNames("").empty());
    EXPECT_TRUE(textureFileNames("..\\").empty());
    EXPECT_TRUE(textureFileNames(std::string(261, 'a')).empty());
    make("mods/secret.png");
    std::filesystem::create_directories(folder.path("mods/orc/up"));
    EXPECT_EQ(found("up\\..\\..\\other.png"), "");
}

TEST_F(TexturePathTest, ItIsBesideTheModel) {
    make("mods/orc/Wall.blp");
    EXPECT_EQ(found("Wall.blp"), "mods/orc/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/orc/Wall.blp");
    EXPECT_EQ(found("Roof.blp"), "");
}

TEST_F(TexturePathTest, ItIsInTheFoldersOfItsNameFromTheModelsFolderUpward) {
    make("Textures/Castle/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "Textures/Castle/Wall.blp");
    make("mods/Textures/Castle/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/Textures/Castle/Wall.blp");
    make("mods/orc/Castle/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/orc/Castle/Wall.blp");
    make("mods/orc/Textures/Castle/Wall.blp");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/orc/Textures/Castle/Wall.blp");
}

TEST_F(TexturePathTest, TheNearerFolderComesBeforeTheLikelierExtension) {
    make("mods/Wall.blp");
    make("mods/orc/Wall.png");
    EXPECT_EQ(found("Wall.blp"), "mods/orc/Wall.png");
    make("mods/orc/Wall.tga");
    EXPECT_EQ(found("Wall.blp"), "mods/orc/Wall.tga");
    make("mods/orc/Wall.dds");
    EXPECT_EQ(found("Wall.blp"), "mods/orc/Wall.dds");
    EXPECT_EQ(found("Wall.png"), "mods/orc/Wall.png") << "the model's own first";
}

TEST_F(TexturePathTest, UpperAndLowerCaseNeedNotAgree) {
    make("mods/TEXTURES/castle/wall.BLP");
    EXPECT_EQ(found("Textures\\Castle\\Wall.blp"), "mods/TEXTURES/castle/wall.BLP");
}

TEST_F(TexturePathTest, AFolderWithItsNameIsNone) {
    std::filesystem::create_directories(folder.path("mods/orc/Wall.blp"));
    make("mods/Wall.png");
    EXPECT_EQ(found("Wall.blp"), "mods/Wall.png");
}

TEST_F(TexturePathTest, OfAModelWithoutAFolderAreInTheOneTheProgramIsIn) {
    make("Wall.blp");
    make("textures/Roof.tga");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path(""));
    EXPECT_EQ(findTexture("hero.mdl", "Wall.blp"), "Wall.blp");
    EXPECT_EQ(findTexture("hero.mdl", "Textures\\Roof.blp"), "textures/Roof.tga");
    std::filesystem::current_path(before);
}

TEST_F(TexturePathTest, AModelWithoutAPathHasNone) {
    EXPECT_EQ(findTexture("", "there is no such texture.blp"), "");
    EXPECT_EQ(findTexture("hero.mdl", "there is no such texture.blp"), "");
}

}  // namespace
}  // namespace corvane
