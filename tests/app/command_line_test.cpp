#include "app/command_line.h"

#include <QProcess>

#include "window_fixture.h"

namespace corvane {
namespace {

CommandLine read(const QStringList& arguments) {
    return readCommandLine(QStringList{"corvane"} + arguments);
}

TEST(CommandLineTest, WithoutArgumentsNoModelIsOpened) {
    const CommandLine found = read({});
    EXPECT_TRUE(found.refusal.empty());
    EXPECT_TRUE(found.model.empty());
    EXPECT_FALSE(found.geoset);
}

TEST(CommandLineTest, AModelAndItsGeosetAreNamed) {
    const CommandLine found = read({"--geoset", "3", "/models/hero.mdl"});
    EXPECT_TRUE(found.refusal.empty()) << found.refusal;
    EXPECT_EQ(found.model, "/models/hero.mdl");
    EXPECT_EQ(found.geoset, 3);
    EXPECT_EQ(read({"/models/hero.mdl", "--geoset=12"}).geoset, 12);
}

TEST(CommandLineTest, ARelativePathIsOfTheFolderInWhichTheProgramStarted) {
    EXPECT_EQ(read({"hero.mdl"}).model, (std::filesystem::current_path() / "hero.mdl").string());
}

TEST(CommandLineTest, AModelWhoseNameBeginsLikeAnOptionStandsBehindTwoDashes) {
    EXPECT_TRUE(read({"--", "-h"}).model.ends_with("/-h"));
    EXPECT_FALSE(textAskedFor({"corvane", "--", "-h"}));
}

TEST(CommandLineTest, BytesThatAreNoUtf8ArriveInThePath) {
    const char* const arguments[] = {"corvane", "/models/h\xE9ros.mdl"};
    EXPECT_EQ(readCommandLine(argumentsOf(2, arguments)).model, "/models/h\xE9ros.mdl");
}

TEST(CommandLineTest, WhatMakesNoSenseIsRefusedInWords) {
    EXPECT_EQ(read({"--bogus"}).refusal, "Unknown option 'bogus'.");
    EXPECT_EQ(read({"a.mdl", "b.mdl", "c.mdl"}).refusal,
              "Only one model is open at a time, but 3 files are named. Start the program once "
              "for each.");
    EXPECT_EQ(read({""}).refusal, "The name of the model is empty.");
    EXPECT_EQ(read({"--geoset", "2"}).refusal, "--geoset needs a model.");
    for (const char* const number : {"0", "-1", "x", "1.5", "99999999999"}) {
        EXPECT_EQ(read({QString("--geoset=") + number, "a.mdl"}).refusal,
                  std::string("--geoset takes the number of a geoset, 1 or more, not \"") + number +
                      "\".");
    }
    EXPECT_FALSE(read({"a.mdl", "--geoset"}).refusal.empty());
}

TEST(CommandLineTest, ARefusalIsSaidInABoxAndOnTheErrorOutput) {
    ScriptedDialogs dialogs;
    testing::internal::CaptureStderr();
    EXPECT_EQ(refuse(read({"--bogus"}), dialogs), 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "corvane: Unknown option 'bogus'. \"corvane --help\" says what can be given.\n");
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(dialogs.last().text,
              "Unknown option 'bogus'.\n\n\"corvane --help\" says what can be given.");
}

TEST(CommandLineTest, HelpAndTheVersionArePrintedWithoutADisplay) {
    const std::vector<std::pair<QStringList, QString>> asked = {
        {{"--help"}, "--geoset <number>"},
        {{"a.mdl", "-h"}, "--geoset <number>"},
        {{"-platform", "nosuch", "--version"}, "Corvane 1.14\n"},
        {{"-v"}, "Corvane 1.14\n"}};
    for (const auto& [arguments, expected] : asked) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY"}) environment.remove(name);
        environment.insert("QT_QPA_PLATFORM", "xcb");
        program.setProcessEnvironment(environment);
        program.start(CORVANE_PROGRAM, arguments);
        ASSERT_TRUE(program.waitForFinished(-1));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        const QString printed = program.readAllStandardOutput();
        EXPECT_TRUE(printed.contains(expected)) << printed.toStdString();
        EXPECT_EQ(program.readAllStandardError().toStdString(), "");
    }
}

class OpenOnStartTest : public WindowTest {
protected:
    std::string shownTitle() const { return window->windowTitle().toStdString(); }
};

TEST_F(OpenOnStartTest, TheModelIsOpenedAndItsGeosetAskedFor) {
    dialogs.inputs.push_back("2");
    window->openOnStart(folder.write("hero.mdl", modelWithGeosets(3)), {});
    EXPECT_EQ(dialogs.last().title, "Geoset to open");
    EXPECT_EQ(shownTitle(), "hero.mdl[*] - Geoset 2 - Corvane");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(OpenOnStartTest, TheGeosetThatIsNamedIsNotAskedFor) {
    window->openOnStart(folder.write("hero.mdl", modelWithGeosets(3)), 3);
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(shownTitle(), "hero.mdl[*] - Geoset 3 - Corvane");
}

TEST_F(OpenOnStartTest, AGeosetThatTheModelLacksLeavesTheWindowEmpty) {
    const std::string path = folder.write("hero.mdl", modelWithGeosets(3));
    window->openOnStart(path, 4);
    EXPECT_EQ(dialogs.last().text,
              path +
                  " has 3 geosets, so there is no geoset 4.\n\nThe file was not opened and is "
                  "unchanged. Choose another geoset or model.");
    EXPECT_EQ(shownTitle(), "Corvane");
    EXPECT_FALSE(editor().store.modelLoaded);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"hero.mdl"});
}

TEST_F(OpenOnStartTest, AFileThatIsNotThereLeavesTheWindowEmpty) {
    window->openOnStart(folder.path("hero.mdl"), {});
    EXPECT_EQ(dialogs.last().text, "Bad file name");
    EXPECT_EQ(shownTitle(), "Corvane");
}

TEST_F(OpenOnStartTest, UnsavedEditsThatWereBroughtBackStay) {
    openModel("kept.mdl");
    const std::string path = folder.write("hero.mdl", modelWithGeosets(1));
    window->openOnStart(path, {});
    EXPECT_EQ(dialogs.last().text,
              path + " was not opened, since the unsaved edits are. File, Open opens it.");
    EXPECT_EQ(shownTitle(), "kept.mdl[*] - Geoset 1 - Corvane");
}

}  // namespace
}  // namespace corvane
