// Which texture a geoset shows, by what the model says.
#include "model/texture_name.h"

#include <gtest/gtest.h>

#include "model_texts.h"

namespace corvane {
namespace {

const std::string kTextures =
    "Textures 3 {\n"
    "\tBitmap {\n\t\tImage \"Textures\\Wall.blp\",\n\t\tWrapWidth,\n\t}\n"
    "\tBitmap {\n\t\tImage \"\",\n\t\tReplaceableId 1,\n\t}\n"
    "\tBitmap {\n\t\tImage \"roof { and } more.tga\",\n\t}\n"
    "}\n";

const std::string kMaterials =
    "Materials 4 {\n"
    "\tMaterial {\n\t\tLayer {\n\t\t\tFilterMode None,\n\t\t\tstatic TextureID 0,\n\t\t}\n\t}\n"
    "\tMaterial {\n\t\tPriorityPlane 1,\n"
    "\t\tLayer {\n\t\t\tAlpha 2 {\n\t\t\t\tLinear,\n\t\t\t\t0: 1,\n\t\t\t\t33: 0,\n\t\t\t}\n"
    "\t\t\tstatic TextureID 2,\n\t\t}\n"
    "\t\tLayer {\n\t\t\tstatic TextureID 0,\n\t\t}\n\t}\n"
    "\tMaterial {\n\t\tLayer {\n\t\t\tstatic TextureID 1,\n\t\t}\n\t}\n"
    "\tMaterial {\n\t\tLayer {\n\t\t\tTextureID 2 {\n\t\t\t\tDontInterp,\n\t\t\t\t10: 2,\n"
    "\t\t\t\t20: 0,\n\t\t\t}\n\t\t}\n\t}\n"
    "}\n";

std::string geosetWith(const std::string& property) {
    return "Geoset {\n\tVertices 1 {\n\t\t{ 0, 0, 0 },\n\t}\n" + property + "}\n";
}

// "image NAME", or what is missing.
std::string textureText(const std::string& text, int geoset = 1) {
    const TextureName name = textureOf(ModelBase(ModelText("hero.mdl", text)), geoset);
    EXPECT_NE(name.image.empty(), name.missing.empty());
    return name.missing.empty() ? "image " + name.image : name.missing;
}

std::string textureOfMaterial(const std::string& material) {
    return textureText(kTextures + kMaterials + geosetWith("\tMaterialID " + material + ",\n"));
}

TEST(TextureName, IsThatOfTheFirstLayerOfTheGeosetsMaterial) {
    EXPECT_EQ(textureOfMaterial("0"), "image Textures\\Wall.blp");
    EXPECT_EQ(textureOfMaterial("1"), "image roof { and } more.tga");
}

TEST(TextureName, IsThatOfTheFirstKeyWhereItIsAnimated) {
    EXPECT_EQ(textureOfMaterial("3"), "image roof { and } more.tga");
    std::string tight = kMaterials;
    tight.replace(tight.find("10: 2"), 5, "10:0");
    EXPECT_EQ(textureText(kTextures + tight + geosetWith("\tMaterialID 3,\n")),
              "image Textures\\Wall.blp");
}

TEST(TextureName, EveryGeosetHasItsOwn) {
    const std::string text =
        kTextures + kMaterials + geosetWith("\tMaterialID 1,\n") + geosetWith("\tMaterialID 0,\n");
    EXPECT_EQ(textureText(text, 1), "image roof { and } more.tga");
    EXPECT_EQ(textureText(text, 2), "image Textures\\Wall.blp");
    EXPECT_EQ(textureText(text, 3), "Geoset 3 is not in the model.");
    EXPECT_EQ(textureText(text, 0), "Geoset 0 is not in the model.");
}

TEST(TextureName, AGeosetWithoutAMaterialHasTheFirstOne) {
    EXPECT_EQ(textureText(kTextures + kMaterials + geosetWith("")), "image Textures\\Wall.blp");
}

TEST(TextureName, AnyLayoutMeansTheSame) {
    const std::string text =
        "Textures 1 { Bitmap { Image \"a.blp\", ReplaceableId 0, } }\n"
        "Materials 1 { Material { Layer { FilterMode None, static TextureID 0, } } }\n"
        "Geoset { Vertices 1 { { 0, 0, 0 }, }\n"
        "\tMinimumExtent { 0, 0, 0 }, MaterialID 0, SelectionGroup 0,\n}\n";
    EXPECT_EQ(textureText(text), "image a.blp");
    EXPECT_EQ(textureText(withCrLf(kTextures + kMaterials + geosetWith("\tMaterialID 1,\n"))),
              "image roof { and } more.tga");
    const std::string lines =
        "Materials 1\n{\n\tMaterial\n\t{\n\t\tLayer\n\t\t{\n\t\t\tstatic TextureID "
        "0\n\t\t}\n\t}\n}\n"
        "Geoset\n{\n\tMaterialID 0\n}\n"
        "Textures 1\n{\n\tBitmap\n\t{\n\t\tImage white.blp,\n\t}\n}\n";
    EXPECT_EQ(textureText(lines), "image white.blp") << "without quotes, behind the geosets";
    EXPECT_EQ(textureText("// MaterialID 1\n" + kTextures + kMaterials +
                          geosetWith("\t// MaterialID 1,\n\tMaterialID 0, // MaterialID 1\n")),
              "image Textures\\Wall.blp");
}

TEST(TextureName, WhatIsInAnotherBlockIsNotTheTexturesName) {
    const auto ofBitmap = [](const std::string& bitmap) {
        return textureText("Textures 1 {\n\tBitmap { " + bitmap + " }\n}\n" + kMaterials +
                           geosetWith(""));
    };
    EXPECT_EQ(ofBitmap("Other { Image \"b.blp\", }Image \"a.blp\","), "image a.blp");
    EXPECT_EQ(ofBitmap("Image { Image \"b.blp\", }"), "Texture 0 has no file name in the model.");
}

TEST(TextureName, WhatTheModelLacksIsSaid) {
    EXPECT_EQ(textureOfMaterial("2"),
              "Texture 1 has no file name in the model; the game puts a picture of its own in its "
              "place (ReplaceableId 1).");
    EXPECT_EQ(textureOfMaterial("4"),
              "Geoset 1 has the MaterialID 4, but the model has 4 materials, counted from 0.");
    EXPECT_EQ(textureOfMaterial("-1"),
              "Geoset 1 has the MaterialID -1, but the model has 4 materials, counted from 0.");
    EXPECT_EQ(textureOfMaterial("stone"),
              "Geoset 1 has the MaterialID \"stone\", but the model has 4 materials, counted from "
              "0.");
    EXPECT_EQ(textureText(kMaterials + geosetWith("\tMaterialID 1,\n")),
              "Material 1 has the TextureID 2, but the model has 0 textures, counted from 0.");
    EXPECT_EQ(textureText(kTextures + geosetWith("")),
              "Geoset 1 has the MaterialID 0, but the model has 0 materials, counted from 0.");
    EXPECT_EQ(textureText("Materials 1 {\n\tMaterial {\n\t}\n}\n" + geosetWith("")),
              "Material 0 has no first layer with a TextureID.");
    EXPECT_EQ(
        textureText("Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t}\n\t}\n}\n" + geosetWith("")),
        "Material 0 has no first layer with a TextureID.");
    EXPECT_EQ(
        textureText("Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t\tTextureID 0 {\n\t\t\t\tLinear,"
                    "\n\t\t\t}\n\t\t}\n\t}\n}\n" +
                    geosetWith("")),
        "Material 0 has no first layer with a TextureID.");
    EXPECT_EQ(textureText("Textures 1 {\n\tBitmap {\n\t}\n}\n" + kMaterials + geosetWith("")),
              "Texture 0 has no file name in the model.");
}

// Reading it must end, whatever is missing.
TEST(TextureName, AModelThatEndsAnywhereIsTaken) {
    const std::string text = kTextures + kMaterials + geosetWith("\tMaterialID 3,\n");
    for (std::size_t size = 0; size < text.size(); ++size) {
        const ModelBase model(ModelText("hero.mdl", text.substr(0, size)));
        const TextureName name = textureOf(model, 1);
        EXPECT_NE(name.image.empty(), name.missing.empty()) << size;
    }
}

}  // namespace
}  // namespace corvane
