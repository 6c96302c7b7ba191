// The model's own texture under the view: by the command, and by itself.
#include "uveditor/commands/model_texture.h"

#include <filesystem>

#include "drawn_text.h"
#include "model/commands/open_model.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

std::string geosetOf(int material) {
    return "Geoset {\n\tVertices 1 {\n\t\t{ 0, 0, 0 },\n\t}\n\tMaterialID " +
           std::to_string(material) + ",\n}\n";
}

// Two geosets: the first one's texture is Textures\wall.blp, the second one's roof.blp.
const std::string kModel =
    "Textures 2 {\n\tBitmap {\n\t\tImage \"Textures\\wall.blp\",\n\t}\n"
    "\tBitmap {\n\t\tImage \"roof.blp\",\n\t}\n}\n"
    "Materials 2 {\n\tMaterial {\n\t\tLayer {\n\t\t\tstatic TextureID 0,\n\t\t}\n\t}\n"
    "\tMaterial {\n\t\tLayer {\n\t\t\tstatic TextureID 1,\n\t\t}\n\t}\n}\n" +
    geosetOf(0) + geosetOf(1);

class ModelTextureTest : public UVTest {
protected:
    void open(const char* geoset) {
        dialogs.files.push_back(folder.write("hero.mdl", kModel));
        dialogs.inputs.emplace_back(geoset);
        openCommand(editor);
        ASSERT_TRUE(store().modelLoaded);
        dialogs.asked.clear();
    }
    void choosePicture(const std::string& path) {
        dialogs.files.emplace_back(path);
        loadImage(uv, editor);
        dialogs.asked.clear();
        uvWindow.loaded.clear();
    }
    using Paths = std::vector<std::string>;
};

TEST_F(ModelTextureTest, ItsFileIsLoadedAndDrawn) {
    open("1");
    handOver();
    const std::string wall = folder.write("wall.dds", "");
    EXPECT_TRUE(redraws([&] { loadModelTexture(uv, editor); }));
    EXPECT_EQ(uvWindow.loaded, Paths{wall});
    EXPECT_TRUE(uv.imageLoaded);
    EXPECT_EQ(uv.imagePath, wall);
    EXPECT_EQ(drawnText(view).front(), "image 0 0 400 200 black");
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(ModelTextureTest, WithoutAFileTheNamesThatWereLookedForAreSaid) {
    open("1");
    handOver();
    EXPECT_FALSE(redraws([&] { loadModelTexture(uv, editor); }));
    EXPECT_EQ(dialogs.last().title, "Error");
    const std::string place = std::filesystem::path(folder.path("hero.mdl")).parent_path().string();
    EXPECT_EQ(dialogs.last().text,
              "The file of the geoset's texture was not found. The model calls it "
              "Textures\\wall.blp.\n\nLooked for:\nTextures/wall.blp\nTextures/wall.dds\n"
              "Textures/wall.tga\nTextures/wall.png\nin " +
                  place +
                  " and in each folder above it, also without the folders before the name.");
    EXPECT_FALSE(uv.imageLoaded);
}

TEST_F(ModelTextureTest, WhatTheModelLacksIsSaid) {
    std::string text = kModel;
    text.replace(text.find("roof.blp"), 8, "");
    dialogs.files.push_back(folder.write("hero.mdl", text));
    dialogs.inputs.emplace_back("2");
    openCommand(editor);
    loadModelTexture(uv, editor);
    EXPECT_EQ(dialogs.last().text,
              "No texture to look for. Texture 1 has no file name in the model.");
}

TEST_F(ModelTextureTest, APictureThatCannotBeReadIsSaidAndTheOldOneStays) {
    open("1");
    handOver();
    choosePicture("/pictures/wall.bmp");
    const std::string wall = folder.write("wall.blp", "");
    uvWindow.refusal = "is broken";
    loadModelTexture(uv, editor);
    EXPECT_EQ(dialogs.last().text,
              "The picture cannot be read.\n" + wall +
                  ": is broken\n\nChoose a JPEG, GIF, BMP, PNG, TGA, BLP or DDS file.");
    EXPECT_EQ(uv.imagePath, "/pictures/wall.bmp");
    EXPECT_TRUE(uv.imageChosen);
}

TEST_F(ModelTextureTest, ItComesByItselfWithTheWindow) {
    const std::string roof = folder.write("ROOF.tga", "");
    open("2");
    handOver();
    EXPECT_EQ(uvWindow.loaded, Paths{roof});
    EXPECT_EQ(drawnText(view).front(), "image 0 0 400 200 black");
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(ModelTextureTest, ByItselfItSaysNothingWhereThereIsNoneOrItCannotBeRead) {
    open("1");
    handOver();
    EXPECT_TRUE(uvWindow.loaded.empty());
    folder.write("wall.blp", "");
    uvWindow.refusal = "is broken";
    handOver();
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_FALSE(uv.imageLoaded);
}

TEST_F(ModelTextureTest, APictureThatTheUserChoseStays) {
    folder.write("wall.blp", "");
    open("1");
    handOver();
    choosePicture("/pictures/mine.bmp");
    handOver();
    EXPECT_EQ(uvWindow.loaded, Paths{"/pictures/mine.bmp"});
    loadModelTexture(uv, editor);
    EXPECT_EQ(uv.imagePath, folder.path("wall.blp"));
}

TEST_F(ModelTextureTest, AnotherGeosetsTextureTakesThePlaceOfTheModelsLast) {
    folder.write("wall.blp", "");
    folder.write("roof.blp", "");
    open("1");
    handOver();
    open("2");
    handOver();
    EXPECT_EQ(uvWindow.loaded, (Paths{folder.path("wall.blp"), folder.path("roof.blp")}));
    // Where it is not there, the picture stays.
    std::filesystem::remove(folder.path("roof.blp"));
    std::filesystem::rename(folder.path("wall.blp"), folder.path("other.blp"));
    uvWindow.loaded.clear();
    handOver();
    EXPECT_EQ(uvWindow.loaded, Paths{folder.path("roof.blp")});
    EXPECT_TRUE(uv.imageLoaded);
}

TEST_F(ModelTextureTest, TheFileDialogStartsInTheModelsFolderThenWithTheLastPicture) {
    open("1");
    handOver();
    dialogs.files = {std::nullopt, "/pictures/mine.png", std::nullopt};
    const auto start = [&] {
        loadImage(uv, editor);
        return dialogs.asked.front().defaultText;
    };
    EXPECT_EQ(start(), folder.path(""));
    dialogs.asked.clear();
    uvWindow.refusal = "is broken";
    start();
    dialogs.asked.clear();
    EXPECT_EQ(start(), "/pictures/mine.png");
    folder.write("wall.blp", "");
    uvWindow.refusal.clear();
    loadModelTexture(uv, editor);
    dialogs.asked.clear();
    dialogs.files.emplace_back(std::nullopt);
    EXPECT_EQ(start(), folder.path("wall.blp"));
}

}  // namespace
}  // namespace corvane
