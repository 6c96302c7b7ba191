// Paths whose bytes are no UTF-8.
#include "app/system_path.h"

#include "app/command_line.h"
#include "window_fixture.h"

namespace corvane {
namespace {

TEST(SystemPathTest, UsualPathsAreTheirCharacters) {
    EXPECT_EQ(textOfPath("/models/Grün/héros \xF0\x9F\x98\x80.mdl"),
              QString::fromUtf8("/models/Grün/héros \xF0\x9F\x98\x80.mdl"));
    EXPECT_EQ(systemPath(QString::fromUtf8("/models/Grün \xF0\x9F\x98\x80.mdl")),
              "/models/Grün \xF0\x9F\x98\x80.mdl");
}

TEST(SystemPathTest, NoByteIsLost) {
    for (const char* const path :
         {"h\xE9ros.mdl", "\xFF\xFE\x80", "a\xC3", "\xE2\x82", "\xED\xA0\x80.mdl", "\xC0\x80x",
          "\xF0\x9F\x98\x80\xFC.mdl", "Gr\xC3\xBCn\xFC", ""}) {
        EXPECT_EQ(systemPath(textOfPath(path)), path);
    }
}

TEST(SystemPathTest, AUrlGivesItsBytes) {
    EXPECT_EQ(systemPath(QUrl::fromEncoded("file:///models/h%E9ros%20%25.mdl")),
              "/models/h\xE9ros %.mdl");
    EXPECT_EQ(systemPath(QUrl::fromLocalFile("/models/a b#c?.mdl")), "/models/a b#c?.mdl");
    EXPECT_EQ(systemPath(QUrl("http://example.org/hero.mdl")), "");
}

TEST(SystemPathTest, WhatADialogShowsOfTheCurrentFileIsThatFile) {
    const auto chosen = [](const QString& path, const std::string& current) {
        return chosenPath(QUrl::fromLocalFile(path), current);
    };
    const std::string current = "/old\xFC/h\xE9ros.mdl";
    EXPECT_EQ(chosen(QString::fromStdString(current), current), current);
    // Another name in that folder, and the same name in another one.
    EXPECT_EQ(chosen(QString::fromUtf8("/old\uFFFD/new.mdl"), current), "/old\xFC/new.mdl");
    EXPECT_EQ(chosen("/models/new.mdl", current), "/models/new.mdl");
    EXPECT_EQ(chosen("/models/new.mdl", ""), "/models/new.mdl");
    EXPECT_EQ(chosen("/models/new.mdl", "/models/old.mdl"), "/models/new.mdl");
}

class OldNamesTest : public WindowTest {};

TEST_F(OldNamesTest, AModelWhoseNameIsNoUtf8OpensAndIsSaved) {
    const std::string text = modelWithGeosets(1);
    const std::string path = folder.write("h\xE9ros.mdl", text);
    const char* const arguments[] = {"corvane", path.c_str()};
    window->openOnStart(readCommandLine(argumentsOf(2, arguments)).model, {});
    ASSERT_TRUE(editor().store.modelLoaded);
    EXPECT_EQ(window->windowTitle().toStdString(), "h\uFFFDros.mdl[*] - Geoset 1 - Corvane");
    while (!editor().modes.selectEnabled) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    edit();
    choose("mnuSave");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_NE(readFile(path), text);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"h\xE9ros.mdl", "h\xE9ros_TMP.tdl"}));
}

}  // namespace
}  // namespace corvane
