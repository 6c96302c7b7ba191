// Files that are dropped on the windows.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

#include "test_pictures.h"
#include "uv_window_fixture.h"

namespace corvane {
namespace {

class DropTest : public UVWindowTest {
protected:
    static QUrl urlOf(const std::string& path) {
        return QUrl::fromEncoded("file://" +
                                 QByteArray::fromStdString(path).toPercentEncoding("/"));
    }

    /// Drops files on a control, as a display would. Whether they were accepted.
    static bool drop(QWidget& target, const std::vector<std::string>& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : paths) urls << urlOf(path);
        data.setUrls(urls);
        return drop(target, data);
    }
    static bool drop(QWidget& target, const QMimeData& data) {
        const QPoint at = target.rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &dropped);
        QApplication::processEvents();
        return true;
    }

    std::string model(const std::string& name, int geosets = 1) const {
        return folder.write(name, modelWithGeosets(geosets));
    }
    std::string title() const { return window->windowTitle().toStdString(); }
};

TEST_F(DropTest, AModelOpensWhereverInTheWindowItIsDropped) {
    for (const char* const name : {"pbxFront", "cmdMove", "txtTips", "txtX", "lblCounts"}) {
        EXPECT_TRUE(drop(widget(name), {model(std::string(name) + ".mdl")})) << name;
        EXPECT_EQ(title(), std::string(name) + ".mdl[*] - Geoset 1 - Corvane");
    }
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(DropTest, TheGeosetIsAskedForAsByOpen) {
    dialogs.inputs.push_back("2");
    EXPECT_TRUE(drop(*window, {model("HERO.MDL", 3)}));
    EXPECT_EQ(dialogs.last().title, "Geoset to open");
    EXPECT_EQ(title(), "HERO.MDL[*] - Geoset 2 - Corvane");
}

TEST_F(DropTest, ANameThatIsNoUtf8Opens) {
    EXPECT_TRUE(drop(*window, {model("h\xE9ros.mdl")}));
    EXPECT_EQ(editor().store.modelPath, folder.path("h\xE9ros.mdl"));
}

TEST_F(DropTest, WhatIsNoModelIsNotAccepted) {
    const std::string path = model("hero.mdl");
    const std::string picture = folder.write("a.bmp", bytesOf(plain(Qt::red), "BMP"));
    std::filesystem::create_directory(folder.path("folder.mdl"));
    EXPECT_FALSE(drop(*window, {picture}));
    EXPECT_FALSE(drop(*window, {path, picture})) << "more than one file";
    EXPECT_FALSE(drop(*window, {folder.path("nosuch.mdl")}));
    EXPECT_FALSE(drop(*window, {folder.path("folder.mdl")}));
    EXPECT_FALSE(drop(*window, {folder.write("mdl", "")})) << "no extension";
    EXPECT_FALSE(drop(*window, std::vector<std::string>{}));
    QMimeData text;
    text.setText(QString::fromStdString(path));
    EXPECT_FALSE(drop(*window, text));
    QMimeData remote;
    remote.setUrls({QUrl("http://example.org/hero.mdl")});
    EXPECT_FALSE(drop(*window, remote));
    EXPECT_EQ(title(), "Corvane");
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(DropTest, AModelThatCannotBeReadLeavesTheOneThatIsOpen) {
    openModel("hero.mdl");
    EXPECT_TRUE(drop(*window, {folder.write("broken.mdl", "Geoset {\n\tVertices 1 {\n{ x },\n")}));
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 1 - Corvane");
}

TEST_F(DropTest, APictureIsShownInTheTextureWindow) {
    openTextureEditor();
    EXPECT_TRUE(drop(view(), {folder.write("a.BMP", bytesOf(plain(Qt::red), "BMP"))}));
    EXPECT_TRUE(uv().imageLoaded);
    EXPECT_EQ(uv().imagePath, folder.path("a.BMP"));
    EXPECT_EQ(view().grab().toImage().pixelColor(view().width() / 4, 20), QColor(Qt::red));
}

TEST_F(DropTest, WhatIsNoPictureIsNotAcceptedThere) {
    openTextureEditor();
    EXPECT_FALSE(drop(uvWindow(), {model("villain.mdl")}));
    EXPECT_FALSE(drop(uvButton("cmdMove"), {folder.write("notes.txt", "text")}));
    EXPECT_FALSE(drop(findUV<QLineEdit>("txtUVX"), {model("other.mdl")}));
    EXPECT_FALSE(uv().imageLoaded);
    EXPECT_TRUE(dialogs.last().kind == "open") << "only the model's dialog came";
}

TEST_F(DropTest, APictureThatCannotBeReadIsSaid) {
    openTextureEditor();
    EXPECT_TRUE(drop(view(), {folder.write("a.bmp", "no picture")}));
    EXPECT_TRUE(dialogs.last().text.starts_with("The picture cannot be read.\n"))
        << dialogs.last().text;
    EXPECT_FALSE(uv().imageLoaded);
}

}  // namespace
}  // namespace corvane
