// Paths that begin with two slashes: those of other computers in the network, and those that are
// marked as whole, which every drive has.
#include <filesystem>

#include "model/files.h"
#include "model/texture_path.h"
#include "reading_result.h"
#include "replace_file_fixture.h"

namespace corvane {
namespace {

TEST(NetworkPaths, KeepBothTheirSlashes) {
    for (const std::string path : {"//server/share/mods/hero.mdl", "//?/C:/mods/hero.mdl",
                                   "//?/UNC/server/share/mods/hero.mdl"}) {
        const std::string folder = path.substr(0, path.size() - std::string("/hero.mdl").size());
        EXPECT_EQ(folderOf(path), folder);
        EXPECT_EQ(nameOf(path), "hero.mdl");
        EXPECT_EQ(stemOf(path), "hero");
        EXPECT_EQ(workPathFor(path), folder + "/hero_TMP.tdl");
    }
    EXPECT_EQ(folderOf("\\\\server\\share\\mods\\hero.mdl"), "//server/share/mods");
}

// Not even the top folder of the current drive, which "/" is.
TEST(NetworkPaths, HaveNothingAboveWhatIsShared) {
    EXPECT_EQ(folderOf("//server/share/hero.mdl"), "//server/share");
    for (const std::string top : {"//server/share", "//server/share/", "//server",
                                  "//?/C:", "//?/UNC/server/share", "//?/unc/server/share"}) {
        EXPECT_EQ(folderOf(top), top);
    }
    EXPECT_EQ(folderOf("//?/UNC/server/share/mods"), "//?/UNC/server/share");
    EXPECT_EQ(folderOf("C:/hero.mdl"), "C:/");
    EXPECT_EQ(folderOf("C:/"), "C:/");
    EXPECT_EQ(folderOf("mods/hero.mdl"), "mods");
}

class MarkedPathTest : public ReplaceFileTest {
protected:
    // A file of the folder, by a path that begins with two slashes.
    std::string marked(const std::string& name) const { return "//?/" + folder.path(name); }
};

TEST_F(MarkedPathTest, FilesAreMadeReadAndReplaced) {
    const std::string path = marked("hero.mdl");
    for (const std::string text : {"one", "two"}) {
        EXPECT_EQ(replacingResult(path, text), "written");
        EXPECT_EQ(readingResult(path), text);
    }
    EXPECT_EQ(readFile(folder.path("hero.mdl")), "two");
    EXPECT_TRUE(isSameFile(path, folder.path("hero.mdl")));
    EXPECT_EQ(freePath(folderOf(path), "hero", ".mdl"), marked("hero-2.mdl"));
    EXPECT_EQ(replacingResult(workPathFor(path), "copy", {.permissionsOf = path}), "written");
    EXPECT_EQ(folder.names(), (Names{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(MarkedPathTest, WhatAKilledProcessLeftIsFoundBesideTheModel) {
    folder.write("hero.mdl", "text");
    folder.write(".corvane-2000000000-0.former", "former");
    EXPECT_EQ(formerTextsBeside(marked("hero.mdl")), Names{marked(".corvane-2000000000-0.former")});
}

TEST_F(MarkedPathTest, TexturesAreFoundInTheFoldersAbove) {
    makeFolder("orc");
    folder.write("Wall.blp", "picture");
    EXPECT_EQ(findTexture(marked("orc/hero.mdl"), "Textures\\wall.blp"), marked("Wall.blp"));
}

}  // namespace
}  // namespace corvane
