// Replacing files as Windows has them: attributes, and names that lead nowhere.
#include <array>
#include <filesystem>

#include "replace_file_fixture.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane {
namespace {

constexpr DWORD kLooked = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

DWORD attributesOf(const std::string& path) { return ::GetFileAttributesA(path.c_str()) & kLooked; }

void setAttributes(const std::string& path, DWORD attributes) {
    ASSERT_NE(::SetFileAttributesA(path.c_str(), attributes), 0) << path;
}

class ReplaceFileWindowsTest : public ReplaceFileTest {};

TEST_F(ReplaceFileWindowsTest, KeepsTheAttributesOfTheOldFile) {
    const std::string path = folder.write("hero.mdl", "old");
    for (const DWORD attributes :
         {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_HIDDEN,
          FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_NORMAL}) {
        setAttributes(path, attributes);
        const DWORD before = attributesOf(path);
        EXPECT_EQ(replacingResult(path, "new"), "written");
        EXPECT_EQ(attributesOf(path), before) << attributes;
    }
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(ReplaceFileWindowsTest, LeavesAReadOnlyFile) {
    const std::string path = folder.write("hero.mdl", "old");
    setAttributes(path, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(replacingResult(path, "new"), path + ": Permission denied");
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(attributesOf(path), DWORD{FILE_ATTRIBUTE_READONLY});
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
    setAttributes(path, FILE_ATTRIBUTE_NORMAL);
}

// The attribute of a folder says how it is shown, not who may write there.
TEST_F(ReplaceFileWindowsTest, WritesInAReadOnlyFolder) {
    makeFolder("locked");
    const std::string path = folder.write("locked/hero.mdl", "old");
    setAttributes(folder.path("locked"), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(replacingResult(path, "new"), "written");
    EXPECT_EQ(readFile(path), "new");
    setAttributes(folder.path("locked"), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ReplaceFileWindowsTest, ReplacesTheProgramsOwnFileWhateverItsAttributes) {
    const std::string model = folder.write("hero.mdl", "model");
    const std::string own = folder.write("hero_TMP.tdl", "old");
    setAttributes(model, FILE_ATTRIBUTE_READONLY);
    setAttributes(own, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(replacingResult(own, "new", {.flushToDisk = false, .permissionsOf = model}),
              "written");
    EXPECT_EQ(readFile(own), "new");
    EXPECT_EQ(attributesOf(own), 0U) << "writable by its owner";
    EXPECT_EQ(attributesOf(model), DWORD{FILE_ATTRIBUTE_READONLY});
    setAttributes(model, FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ReplaceFileWindowsTest, WritesNamesThatTheAnsiCodePageLacks) {
    const std::string name = "\u5b66 \U0001F426 \u03a9 B\u00fchne.mdl";
    for (const std::string text : {"one", "two"}) {
        EXPECT_EQ(replacingResult(folder.path(name), text), "written");
        EXPECT_EQ(readFile(folder.path(name)), text);
    }
    EXPECT_EQ(folder.names(), Names{name});
}

TEST_F(ReplaceFileWindowsTest, RefusesANameThatNoFileCanHave) {
    const std::string path = folder.path("he?ro.mdl");
    EXPECT_EQ(replacingResult(path, "text"),
              path + ": The name has characters that names of files cannot have");
    EXPECT_EQ(folder.names(), Names{});
}

class WithoutAFolderTest : public ReplaceFileTest {
protected:
    std::filesystem::path before = std::filesystem::current_path();

    void SetUp() override { std::filesystem::current_path(folder.path("")); }
    void TearDown() override { std::filesystem::current_path(before); }
};

TEST_F(WithoutAFolderTest, APathIsTaken) {
    folder.write("hero.mdl", "old");
    EXPECT_EQ(replacingResult("hero.mdl", "new"), "written");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), "new");
    EXPECT_EQ(folder.names(), Names{"hero.mdl"});
}

TEST_F(WithoutAFolderTest, AnEmptyPathIsRefused) {
    EXPECT_EQ(replacingResult("", "text"), ": No such file or directory");
    EXPECT_EQ(folder.names(), Names{});
}

}  // namespace
}  // namespace corvane
