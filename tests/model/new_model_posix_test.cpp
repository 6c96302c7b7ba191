// The command New with the links and the home folders of systems of the Unix kind.
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "model/commands/new_model.h"
#include "model/files.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class NewModelPosixTest : public ModelFlowTest {
protected:
    /// The command New with this answer to the file dialog.
    void makeNew(const std::optional<std::string>& answer) {
        dialogs.asked.clear();
        dialogs.files.push_back(answer);
        newModel(editor);
    }
};

TEST_F(NewModelPosixTest, ANameIsProposedThatNoFileHas) {
    folder.write("untitled.mdl", "a model");
    ASSERT_EQ(::symlink("nowhere", folder.path("untitled-2.mdl").c_str()), 0);
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    makeNew(std::nullopt);
    EXPECT_EQ(dialogs.last().defaultText, folder.path("untitled-3.mdl"));
}

// Where the environment names no home, the system's own list of users does.
TEST_F(NewModelPosixTest, TheHomeOfAUserWithoutTheVariableIsTheSystems) {
    const char* const home = std::getenv("HOME");
    const std::string before = home != nullptr ? home : "";
    const struct passwd* const user = ::getpwuid(::getuid());
    ASSERT_NE(user, nullptr);
    const std::string expected = user->pw_dir;
    ::unsetenv("HOME");
    EXPECT_EQ(files::homeFolder(), expected);
    ::setenv("HOME", "", 1);
    EXPECT_EQ(files::homeFolder(), expected);
    ::setenv("HOME", "/home/of/mine", 1);
    EXPECT_EQ(files::homeFolder(), "/home/of/mine");
    ::setenv("HOME", before.c_str(), 1);
}

TEST_F(NewModelPosixTest, WithoutAModelTheNameIsProposedInTheHomeFolder) {
    const char* const home = std::getenv("HOME");
    const std::string before = home == nullptr ? "" : home;
    ASSERT_EQ(::setenv("HOME", folder.path("").c_str(), 1), 0);
    makeNew(std::nullopt);
    ASSERT_EQ(::setenv("HOME", before.c_str(), 1), 0);
    EXPECT_EQ(dialogs.last().title, "New Model");
    EXPECT_EQ(dialogs.last().defaultText, folder.path("untitled.mdl"));
}

TEST_F(NewModelPosixTest, TheWorkingCopyOfTheModelThatIsOpenIsRefused) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    const std::string link = folder.path("link.mdl");
    ASSERT_EQ(::symlink(folder.path("hero_TMP.tdl").c_str(), link.c_str()), 0);
    const Before before = remember();
    for (const std::string& name : {folder.path("hero_TMP.tdl"), link}) {
        makeNew(name);
        EXPECT_EQ(askedKinds(), "save message");
        EXPECT_EQ(dialogs.last().title, "Error");
        EXPECT_TRUE(dialogs.last().text.starts_with(
            name + " is the working copy of the model that is open"))
            << dialogs.last().text;
        expectUnchanged(before);
    }
}

}  // namespace
}  // namespace corvane
