// Files as only systems of the Unix kind have them: names of any bytes, limits, links, permissions.
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>

#include "save_scenarios.h"

namespace corvane {
namespace {

TEST_F(SaveScenario, AModelWhoseNameIsNoUtf8OpensAndIsSavedUnderAnother) {
    folder.write("h\xE9ros.mdl", threeGeosets());
    const Played played = playAll(
        "answer file \"$DIR/h\xE9ros.mdl\"\n"
        "answer input \"2\"\n"
        "menu mnuOpen\n"
        "menu mnuSave\n"
        "answer file \"$DIR/\xFC.mdl\"\n"
        "menu mnuSaveAs\n"
        "dump\n");
    EXPECT_EQ(readFile(folder.path("h\xE9ros.mdl")), threeGeosets());
    EXPECT_EQ(readFile(folder.path("\xFC.mdl")), threeGeosets());
    EXPECT_EQ(at(played.dump(), "geosetNumber").toInt(), 2);
    // What is printed is UTF-8.
    EXPECT_EQ(at(played.dump(), "modelPath").toString().toStdString(), dir() + "\uFFFD.mdl");
    EXPECT_EQ(folder.names(),
              (std::vector<std::string>{"h\xE9ros.mdl", "\xFC.mdl", "\xFC_TMP.tdl"}));
}

TEST_F(SaveScenario, AModelWhoseNameHasQuotesIsNamedInAScript) {
    folder.write("a \"model\".mdl", squareModel());
    playAll("answer file \"$DIR/a \\\"model\\\".mdl\"\nmenu mnuOpen\nwait 150\n" + kMoveThird +
            "menu mnuSave\n");
    EXPECT_EQ(readFile(folder.path("a \"model\".mdl")), moved(squareModel()));
}

// The limit stands for a full disk: writing stops in the middle of the file.
TEST_F(SaveScenario, AFullDiskLeavesTheOldFile) {
    std::string model = squareModel();
    for (int i = 0; i < 4000; ++i) model += "// a line of no importance to anybody\n";
    folder.write("hero.mdl", model);
    folder.write("small.mdl", squareModel());
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto limit = static_cast<rlim_t>(model.size() + 10);
    const rlimit low{limit, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &low), 0);
    // Merging makes the saved file larger than the limit lets it be.
    const Played played = playAll(kOpen + R"(
answer file "$DIR/small.mdl"
menu mnuMergeGeoset
answer message ok
menu mnuSave
dump
)");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
    EXPECT_NE(played.dialogs().back().find(folder.path("hero.mdl") + ": File too large"),
              std::string::npos)
        << played.dialogs().back();
    EXPECT_EQ(readFile(folder.path("hero.mdl")), model);
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), model);
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 8);
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "hero_TMP.tdl", "small.mdl"}));
}

TEST_F(SaveScenario, LinksAndPermissionsSurvive) {
    std::filesystem::create_directory(folder.path("real"));
    const std::string real = folder.write("real/model.mdl", squareModel());
    ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
    std::filesystem::create_symlink("real/model.mdl", folder.path("hero.mdl"));
    playAll(kOpen + kMoveThird + "menu mnuSave\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("hero.mdl")));
    EXPECT_EQ(readFile(real), moved(squareModel()));
    struct stat status {};
    ASSERT_EQ(::stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

}  // namespace
}  // namespace corvane
