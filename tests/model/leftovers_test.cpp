// What killed processes have left beside a model.
#include "leftovers_fixture.h"
#include "model/model_files.h"

namespace corvane {
namespace {

TEST_F(LeftoversTest, OfProcessesThatAreGoneAreDeleted) {
    leave(".corvane-" + gone + "-0.tmp");
    leave(".corvane-" + gone + "-12.tmp");
    EXPECT_EQ(namesAfterOpening(), Names{});
}

TEST_F(LeftoversTest, ThatAreYoungStay) {
    const std::string name = ".corvane-" + gone + "-0.tmp";
    folder.write(name, "leftover");
    makeOlder(folder.path(name), 30);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversTest, AreNotYoungForMoreThanAMinute) {
    const std::string name = ".corvane-" + gone + "-0.tmp";
    folder.write(name, "leftover");
    makeOlder(folder.path(name), 90);
    EXPECT_EQ(namesAfterOpening(), Names{});
}

TEST_F(LeftoversTest, WithAFormerTextStay) {
    const std::string name = ".corvane-" + gone + "-0.former";
    leave(name);
    EXPECT_EQ(namesAfterOpening(), Names{name});
}

TEST_F(LeftoversTest, WithOtherNamesStay) {
    Names others = {"corvane-" + gone + "-0.tmp",
                    ".corvane-" + gone + ".tmp",
                    ".corvane-" + gone + "-.tmp",
                    ".corvane-" + gone + "-0.tmp2",
                    ".corvane-" + gone + "-0.bak",
                    ".corvane-" + gone + "-x.tmp",
                    ".corvane-" + gone + "-0x.tmp",
                    ".corvane-" + gone + "x0.tmp",
                    ".corvane--" + gone + "-0.tmp",
                    ".corvane-0-0.tmp",
                    ".corvane-x-0.tmp",
                    ".corvane-99999999999999999999-0.tmp"};
    for (const std::string& name : others) leave(name);
    std::ranges::sort(others);
    EXPECT_EQ(namesAfterOpening(), others);
}

TEST_F(LeftoversTest, WhatAnInterruptedSaveHeldBeforeIsToldOfAndStays) {
    const std::string name = ".corvane-" + gone + "-0.former";
    folder.write(name, "what it held before");
    folder.write(".corvane-" + std::to_string(files::processId()) + "-0.former",
                 "of one that runs");
    folder.write("hero.mdl", "Geoset {\n\tVert");
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 3U);  // the file dialog, this, and that it cannot be read
    EXPECT_EQ(dialogs.asked[1].kind, "message");
    EXPECT_NE(dialogs.asked[1].text.find("is whole in\n" + folder.path(name) + "\n"),
              std::string::npos)
        << dialogs.asked[1].text;
    EXPECT_EQ(readFile(folder.path(name)), "what it held before");
}

// The number of its process may be another one's by now.
TEST_F(LeftoversTest, WhatAnOldInterruptedSaveHeldBeforeIsToldOf) {
    leave(".corvane-" + std::to_string(files::processId()) + "-0.former");
    folder.write("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_NE(dialogs.asked[1].text.find("-0.former"), std::string::npos) << dialogs.asked[1].text;
}

TEST_F(LeftoversTest, OldFilesWithNamesLikeThatOfAFormerTextAreNotToldOf) {
    for (const char* end : {".former", "-.former", "-0x.former", "-x.former", "-0.former2"}) {
        leave(".corvane-" + gone + end);
    }
    leave(".corvane-0-0.former");
    leave(".corvane-x-0.former");
    EXPECT_EQ(formerTextsBeside(folder.path("hero.mdl")), Names{});
}

// Where a container runs nothing else, the program is its first process.
TEST_F(LeftoversTest, WhatAnOldInterruptedSaveOfTheFirstProcessHeldBeforeIsToldOf) {
    leave(".corvane-1-0.former");
    folder.write("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    open(folder.path("hero.mdl"));
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_NE(dialogs.asked[1].text.find(".corvane-1-0.former"), std::string::npos)
        << dialogs.asked[1].text;
}

}  // namespace
}  // namespace corvane
