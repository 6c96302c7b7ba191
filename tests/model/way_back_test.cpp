// Whatever a command would drop is handed to the way back first, as a save would have written it.
#include "editor/way_back.h"

#include <filesystem>
#include <limits>

#include "edit/commands/drag_transforms.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/new_model.h"
#include "model/commands/recover_model.h"
#include "model_flow.h"
#include "uveditor/commands/exchange.h"
#include "uveditor/uv_tools.h"

namespace corvane {
namespace {

/// Keeps what it is given in a list.
class ListedWayBack : public WayBack {
public:
    struct Kept {
        KeptBecause because{};
        std::string path;
        std::string text;
    };

    void keep(Snapshot snapshot, KeptBecause because) override {
        kept.push_back({because, snapshot.modelPath, composeSnapshot(snapshot).joined()});
    }
    void keepReplaced(SharedBase text, const std::string& path) override {
        kept.push_back({KeptBecause::Replaced, path, std::string(text->text.view())});
    }
    void noteLost(const char* reason) override { lost.emplace_back(reason); }
    void noteSaved() override { ++saves; }

    std::vector<Kept> kept;
    std::vector<std::string> lost;
    int saves = 0;
};

/// A texture editor's window that shows nothing.
class TestTextureWindow : public UVWindow {
public:
    void updateButtons() override {}
    void showNotice(const std::string& /*text*/) override {}
    std::string loadPicture(const std::string& /*path*/) override { return ""; }
};

class WayBackTest : public ModelFlowTest {
protected:
    WayBackTest() { editor.wayBack = &wayBack; }

    /// Opens geoset 2 of a model of three and moves its first vertex.
    std::string openAndEdit() {
        const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
        select({1});
        moveSelection(editor, {1, 2, 4});
        wayBack.kept.clear();
        return path;
    }

    static std::string edited() {
        ModelParts parts = threeGeosets();
        parts.geosets[1].vertices[0] = "6, 1, 2";
        return modelOf(parts);
    }

    void expectKept(const std::vector<ListedWayBack::Kept>& expected) const {
        ASSERT_EQ(wayBack.kept.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(wayBack.kept[i].because, expected[i].because) << i;
            EXPECT_EQ(wayBack.kept[i].path, expected[i].path) << i;
            EXPECT_EQ(wayBack.kept[i].text, expected[i].text) << i;
        }
    }

    ListedWayBack wayBack;
};

TEST_F(WayBackTest, OpeningAnotherModelKeepsTheUnsavedOne) {
    const std::string path = openAndEdit();
    open(folder.write("other.mdl", modelOf({.geosets = {squareAt("5")}})));
    expectKept({{KeptBecause::AnotherOpened, path, edited()}});
}

TEST_F(WayBackTest, WhatCannotBeOpenedDropsNothing) {
    openAndEdit();
    open(folder.path("missing.mdl"));
    open(folder.write("broken.mdl", "Geoset {\n\tVertices 1 {\n\t\t{ x },\n\t}\n}\n"));
    expectKept({});
}

TEST_F(WayBackTest, SwitchingKeepsTheGeosetThatIsLeft) {
    const std::string path = openAndEdit();
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    expectKept({{KeptBecause::Switched, path, edited()}});
}

TEST_F(WayBackTest, WhereNothingIsUnsavedNothingIsKept) {
    openNew("three.mdl", modelOf(threeGeosets()), "2");
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    open(folder.write("other.mdl", modelOf({.geosets = {squareAt("5")}})));
    save();
    expectKept({});
    EXPECT_EQ(wayBack.saves, 1);
}

TEST_F(WayBackTest, ASaveKeepsTheTextThatItReplaces) {
    const std::string path = openAndEdit();
    save();
    expectKept({{KeptBecause::Replaced, path, modelOf(threeGeosets())}});
    EXPECT_EQ(wayBack.saves, 1);
    save();
    EXPECT_EQ(wayBack.kept.size(), 1U) << "once where it differs";
}

TEST_F(WayBackTest, ASaveKeepsWhatAnotherProgramWrote) {
    const std::string path = openAndEdit();
    folder.write("three.mdl", "// another program's\n");
    dialogs.yesNos.push_back(true);
    save();
    expectKept({{KeptBecause::Replaced, path, "// another program's\n"}});
}

TEST_F(WayBackTest, SaveAsKeepsTheFileThatItReplacesAndNoneThatIsNotThere) {
    openAndEdit();
    const std::string other = folder.write("other.mdl", "// of the other\n");
    saveAs(other);
    expectKept({{KeptBecause::Replaced, other, "// of the other\n"}});
    saveAs(folder.path("new.mdl"));
    EXPECT_EQ(wayBack.kept.size(), 1U);
}

TEST_F(WayBackTest, AFailedSaveReplacesNothing) {
    openAndEdit();
    saveAs(folder.path("missing/new.mdl"));
    expectKept({});
    EXPECT_EQ(wayBack.saves, 0);
}

TEST_F(WayBackTest, SaveGeosetKeepsTheWholeModel) {
    const std::string path = openAndEdit();
    saveGeosetAs(folder.path("part.mdl"));
    expectKept({{KeptBecause::GeosetSaved, path, edited()}});
}

TEST_F(WayBackTest, AnEmptiedGeosetIsKeptBeforeASaveRemovesIt) {
    const std::string path = openAndEdit();
    vertex(1).deleted = true;  // both faces use it
    dialogs.yesNos.push_back(true);
    dialogs.inputs.push_back("1");
    save();
    ASSERT_EQ(wayBack.kept.size(), 2U);
    EXPECT_EQ(wayBack.kept[0].because, KeptBecause::GeosetRemoved);
    // The vertices are there all the same, without a face.
    EXPECT_NE(wayBack.kept[0].text.find("\tVertices 3 {\n\t\t{ 2, 10, 0 },\n"), std::string::npos);
    EXPECT_NE(wayBack.kept[0].text.find("\tFaces 1 0 {\n"), std::string::npos);
    EXPECT_EQ(wayBack.kept[1].because, KeptBecause::Replaced);
    EXPECT_EQ(wayBack.kept[1].text, modelOf(threeGeosets()));
    EXPECT_EQ(wayBack.kept[1].path, path);
}

TEST_F(WayBackTest, ARemovedGeosetThatASaveLeavesOutIsKeptInTheModelThatItWasRemovedFrom) {
    const std::string path = openAndEdit();
    deleteGeoset();
    dialogs.yesNos.push_back(false);
    dialogs.inputs.push_back("1");
    save();
    expectKept({{KeptBecause::LeftOut, path, edited()},
                {KeptBecause::Replaced, path, modelOf(threeGeosets())}});
}

TEST_F(WayBackTest, AHandOverKeepsTextureCoordinatesThatNothingElseHolds) {
    openAndEdit();
    RecordingSurface view{400, 200};
    TestTextureWindow textureWindow;
    UVEditor uv{{.picture = view}, textureWindow, dialogs};
    const auto handOver = [&] { takeHandOver(uv, editor, uvDataOf(editor.store)); };
    handOver();
    handOver();
    EXPECT_TRUE(wayBack.kept.empty()) << "nothing was changed";
    assignCoordinate(uv, uv.data.u[0], 0.25);
    handOver();
    ModelParts parts = threeGeosets();
    parts.geosets[1].vertices[0] = "6, 1, 2";
    parts.geosets[1].texture[0] = "0.25, 1";
    expectKept({{KeptBecause::TextureDropped, store().modelPath, modelOf(parts)}});
    EXPECT_EQ(uv.data.u[0], 0);
}

TEST_F(WayBackTest, SwitchingFromARemovedGeosetKeepsIt) {
    const std::string path = openAndEdit();
    deleteGeoset();
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    expectKept({{KeptBecause::Switched, path, edited()}});
}

TEST_F(WayBackTest, TheNewModelThatTheOpenOneIsWrittenOverIsKept) {
    openAndEdit();
    const std::string box = folder.path("box.mdl");
    dialogs.files.push_back(box);
    newModel(editor);
    const std::string empty = readFile(box);
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(readFile(box), edited());
    expectKept({{KeptBecause::Replaced, box, empty}});
}

TEST_F(WayBackTest, NewOverTheOpenModelsOwnFileKeepsItAndLeavesItUnsaved) {
    const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
    dialogs.files.push_back(path);
    newModel(editor);
    expectKept({{KeptBecause::Replaced, path, modelOf(threeGeosets())}});
    EXPECT_TRUE(store().isModified());
}

TEST_F(WayBackTest, AfterAFailedSaveTheModelIsKeptUnderTheNameOfItsFile) {
    const std::string path = openAndEdit();
    saveAs(folder.path("missing/new.mdl"));
    open(folder.write("other.mdl", modelOf({.geosets = {squareAt("5")}})));
    expectKept({{KeptBecause::AnotherOpened, path, edited()}});
}

TEST_F(WayBackTest, ASaveAfterAFailedOneOntoAnotherFileAsks) {
    openAndEdit();
    const std::string other = folder.write("other.mdl", "// of the other\n");
    vertex(1).pos[0] = std::numeric_limits<double>::infinity();
    saveAs(other);
    vertex(1).pos[0] = 1;
    dialogs.yesNos.push_back(false);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(readFile(other), "// of the other\n");
}

TEST_F(WayBackTest, TheTextWithoutARemovedGeosetIsKeptBesideIt) {
    const std::string path = openAndEdit();
    dialogs.yesNos = {true};
    deleteCurrentGeoset(editor);
    const std::string without(store().base().text.view());
    wayBack.kept.clear();
    open(folder.write("other.mdl", modelOf({.geosets = {squareAt("5")}})));
    expectKept({{KeptBecause::AnotherOpened, path, edited()},
                {KeptBecause::AnotherOpened, path, without}});
}

TEST_F(WayBackTest, AFileInTheWorkingCopysPlaceIsKept) {
    const std::string path = folder.write("hero.mdl", modelOf({.geosets = {squareAt("5")}}));
    const std::string foreign = folder.write("hero_TMP.tdl", "somebody's notes");
    open(path);
    expectKept({{KeptBecause::Replaced, foreign, "somebody's notes"}});
    wayBack.kept.clear();
    closeModel(editor);
    folder.write("hero_TMP.tdl", readFile(path));  // left over from a program that was killed
    open(path);
    expectKept({});
}

TEST_F(WayBackTest, AFileInTheNewWorkingCopysPlaceIsKeptWhereASaveMakesOne) {
    openAndEdit();
    const std::string foreign = folder.write("hero_TMP.tdl", "somebody's notes");
    saveAs(folder.path("hero.mdl"));
    EXPECT_EQ(readFile(foreign), edited());
    expectKept({{KeptBecause::Replaced, foreign, "somebody's notes"}});
}

TEST_F(WayBackTest, AFileInTheWorkingCopysPlaceIsKeptWhereAModelIsBroughtBack) {
    const std::string foreign = folder.write("hero_TMP.tdl", "somebody's notes");
    const std::string path = folder.path("hero.mdl");
    const std::string text = modelOf(threeGeosets());
    EXPECT_TRUE(openKept(
        editor,
        {.text = ModelText(path, text), .modelPath = path, .stamp = {}, .geosetNumber = 1}));
    EXPECT_EQ(readFile(foreign), text);
    expectKept({{KeptBecause::Replaced, foreign, "somebody's notes"}});
}

TEST_F(WayBackTest, NewKeepsTheFileThatItReplaces) {
    const std::string other = folder.write("other.mdl", "// of the other\n");
    dialogs.files.push_back(other);
    newModel(editor);
    EXPECT_EQ(readFile(other), templateModel());
    expectKept({{KeptBecause::Replaced, other, "// of the other\n"}});
}

// Nobody who saves waits for the way back, but what it cannot have is told.
TEST_F(WayBackTest, AReplacedFileThatCannotBeReadIsTold) {
    openAndEdit();
    saveAs(folder.path("new.mdl"));
    EXPECT_TRUE(wayBack.lost.empty()) << "there was none";
    const std::string large = folder.path("large.mdl");
    folder.write("large.mdl", "");
    std::filesystem::resize_file(large, (std::uintmax_t{1} << 30U) + 1);  // holds no blocks
    saveAs(large);
    EXPECT_EQ(readFile(large), edited());
    ASSERT_EQ(wayBack.lost.size(), 1U);
    EXPECT_NE(wayBack.lost[0].find(large), std::string::npos) << wayBack.lost[0];
    std::filesystem::resize_file(large, (std::uintmax_t{1} << 30U) + 1);
    dialogs.files.push_back(large);
    newModel(editor);
    EXPECT_EQ(readFile(large), templateModel());
    EXPECT_EQ(wayBack.lost.size(), 2U);
    EXPECT_TRUE(wayBack.kept.empty());
}

}  // namespace
}  // namespace corvane
