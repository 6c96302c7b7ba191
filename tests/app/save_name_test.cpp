// Which file a save dialog comes to, whatever dialog it is: one of a desktop, too, which asks about
// the name that was typed and not about the one that is written.
#include "app/save_name.h"

#include <gtest/gtest.h>

#include "editor_fixture.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

class SaveNameTest : public testing::Test {
protected:
    TempFolder folder;
    std::deque<std::optional<std::string>> typed;  ///< what the dialog gives back, each time
    std::deque<bool> answers;                      ///< to the questions
    Names proposed;                                ///< what the dialog started with
    Names asked;                                   ///< which files the questions were about

    std::optional<std::string> picked() {
        const auto pick = [this](const std::string& start) {
            proposed.push_back(start);
            std::optional<std::string> path = typed.at(0);
            typed.pop_front();
            return path;
        };
        const auto mayReplace = [this](const std::string& path) {
            asked.push_back(path);
            const bool answer = answers.at(0);
            answers.pop_front();
            return answer;
        };
        return pickSaveName("start.mdl", pick, mayReplace);
    }
};

TEST_F(SaveNameTest, AFileThatGetsItsNameByTheExtensionIsNotReplacedUnasked) {
    const std::string path = folder.write("treasure.mdl", "a model");
    typed = {folder.path("treasure")};
    answers = {true};
    EXPECT_EQ(picked(), path);
    EXPECT_EQ(asked, Names{path});
    EXPECT_EQ(proposed, Names{"start.mdl"});
}

TEST_F(SaveNameTest, AfterANoTheDialogComesAgainWithThatName) {
    const std::string path = folder.write("treasure.mdl", "a model");
    typed = {folder.path("treasure"), folder.path("treasure"), folder.path("other")};
    answers = {false, false};
    EXPECT_EQ(picked(), folder.path("other.mdl"));
    EXPECT_EQ(asked, (Names{path, path}));
    EXPECT_EQ(proposed, (Names{"start.mdl", path, path}));
}

TEST_F(SaveNameTest, AfterANoTheDialogCanBeCancelled) {
    folder.write("treasure.mdl", "a model");
    typed = {folder.path("treasure"), std::nullopt};
    answers = {false};
    EXPECT_EQ(picked(), std::nullopt);
}

TEST_F(SaveNameTest, ANameThatTheDialogHasAskedAboutIsNotAskedAboutAgain) {
    const std::string path = folder.write("treasure.mdl", "a model");
    typed = {path};
    EXPECT_EQ(picked(), path);
    EXPECT_EQ(asked, Names{});
}

TEST_F(SaveNameTest, ANewNameIsNotAskedAbout) {
    typed = {folder.path("new")};
    EXPECT_EQ(picked(), folder.path("new.mdl"));
    typed = {folder.path("new.txt")};
    EXPECT_EQ(picked(), folder.path("new.txt"));
    EXPECT_EQ(asked, Names{});
}

TEST_F(SaveNameTest, AFileThatHasTheBareNameIsAnotherFile) {
    folder.write("treasure", "no model");
    typed = {folder.path("treasure")};
    EXPECT_EQ(picked(), folder.path("treasure.mdl"));
}

TEST_F(SaveNameTest, APeriodInAFolderIsNoExtension) {
    std::filesystem::create_directory(folder.path("v1.2"));
    const std::string path = folder.write("v1.2/treasure.mdl", "a model");
    typed = {folder.path("v1.2/treasure")};
    answers = {true};
    EXPECT_EQ(picked(), path);
}

TEST_F(SaveNameTest, ALinkThatLeadsNowhereIsAskedAbout) {
    std::filesystem::create_symlink("nowhere", folder.path("treasure.mdl"));
    typed = {folder.path("treasure")};
    answers = {true};
    EXPECT_EQ(picked(), folder.path("treasure.mdl"));
    EXPECT_EQ(asked, Names{folder.path("treasure.mdl")});
}

TEST_F(SaveNameTest, CancelIsNoName) {
    typed = {std::nullopt};
    EXPECT_EQ(picked(), std::nullopt);
}

}  // namespace
}  // namespace corvane
