// The user guide is found beside the program and shown, or it is said why not.
#include "app/guide.h"

#include <QDir>

#include "window_fixture.h"

namespace corvane {
namespace {

class GuideTest : public testing::Test {
protected:
    ScriptedDialogs dialogs;
    TempFolder folder;

    // Makes a folder with an empty page and returns the page's path.
    QString makePage(const QString& inFolder) {
        const QString pages = QString::fromStdString(folder.path("")) + inFolder;
        EXPECT_TRUE(QDir().mkpath(pages));
        folder.write((inFolder + "/index.html").toStdString(), "");
        return QDir::cleanPath(pages + "/index.html");
    }

    QString at(const char* name) { return QString::fromStdString(folder.path(name)); }
};

TEST_F(GuideTest, IsFoundWhereItIsInstalled) {
    const QString page = makePage("usr/share/corvane/guide");
    EXPECT_EQ(guidePage(at("usr/bin"), "index.html"), page);
    EXPECT_EQ(guidePage(at("usr/bin"), "other.html"), "");
    EXPECT_EQ(guidePage(at("opt/bin"), "index.html"), "");
}

TEST_F(GuideTest, IsFoundInTheBuildTree) {
    const QString page = makePage("build/docs/guide");
    EXPECT_EQ(guidePage(at("build/src/app"), "index.html"), page);
}

TEST_F(GuideTest, IsShownByTheDesktop) {
    const QString page = makePage("usr/share/corvane/guide");
    showGuideOf(at("usr/bin"), dialogs);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().kind, "document");
    EXPECT_EQ(dialogs.last().text, page.toStdString());
}

TEST_F(GuideTest, WithoutAProgramThatShowsItTheMessageNamesThePage) {
    const QString page = makePage("usr/share/corvane/guide");
    dialogs.documentsShow = false;
    showGuideOf(at("usr/bin"), dialogs);
    ASSERT_EQ(dialogs.asked.size(), 2U);
    EXPECT_EQ(dialogs.last().kind, "message");
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(
        dialogs.last().text,
        "No program was found that shows the user guide.\n\nOpen this page in a web browser: " +
            page.toStdString());
}

TEST_F(GuideTest, WhereItIsMissingTheMessageNamesTheFolder) {
    showGuideOf(at("usr/bin"), dialogs);
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(dialogs.last().text,
              "The user guide is not installed: there is no page in " +
                  folder.path("usr/share/corvane/guide") +
                  ".\n\nThe other items of the Help menu need no page. The guide comes with "
                  "Corvane: install it again or, where it came as a zip, unpack the whole zip and "
                  "start the program there.");
}

}  // namespace
}  // namespace corvane
