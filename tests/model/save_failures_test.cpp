// Saves that fail, and working copies that are gone: nothing is lost, and the next save works.
#include <filesystem>

#include "edit/commands/drag_transforms.h"
#include "edit/transforms.h"
#include "model/commands/save_model.h"
#include "model_flow.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class SaveFailuresTest : public ModelFlowTest {
protected:
    /// Opens geoset 2 of a model of three in `name` and moves its first vertex.
    std::string openAndEdit(const std::string& name) {
        const std::string path = openNew(name, modelOf(threeGeosets()), "2");
        select({1});
        moveSelection(editor, {1, 2, 4});
        return path;
    }

    static std::string edited() {
        ModelParts parts = threeGeosets();
        parts.geosets[1].vertices[0] = "6, 1, 2";
        return modelOf(parts);
    }

    static std::string notSaved(const std::string& reason,
                                const std::string& state = "The file is as it was") {
        return "The model was not saved.\n" + reason + "\n\n" + state +
               ", and your edits are still here: mend the cause and save again, or save to another "
               "place with Save As.";
    }
    static std::string noFile(const std::string& reason) {
        return notSaved(reason, "No file was written");
    }
};

TEST_F(SaveFailuresTest, ATargetThatCannotBeWrittenLeavesEverythingButThePath) {
    const std::string old = openAndEdit("three.mdl");
    fs::create_directory(folder.path("folder.mdl"));
    const std::vector<std::pair<std::string, std::string>> targets = {
        {folder.path("missing/new.mdl"), "No such file or directory"},
        {folder.path("folder.mdl"), "Is a directory"},
        {folder.path("three.mdl/new.mdl"), "Not a directory"}};
    for (const auto& [target, reason] : targets) {
        SCOPED_TRACE(target);
        const Before before = remember();
        saveAs(target);
        ASSERT_EQ(askedKinds(), "save message");
        const bool isThere = target == folder.path("folder.mdl");
        expectLast("message", "Error",
                   isThere ? notSaved(target + ": " + reason) : noFile(target + ": " + reason));
        EXPECT_EQ(store().modelPath, target);  // the new path is the current one
        EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
        store().modelPath = old;  // all else is as it was
        expectUnchanged(before);
    }
}

TEST_F(SaveFailuresTest, AfterAFailedSaveTheModelCanBeSavedElsewhere) {
    const std::string old = openAndEdit("three.mdl");
    saveAs(folder.path("missing/new.mdl"));
    EXPECT_EQ(askedKinds(), "save message");
    saveAs(folder.path("good.mdl"));
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(modelBytes(), edited());
    EXPECT_EQ(workBytes(), edited());
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(readFile(old), modelOf(threeGeosets()));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"good.mdl", "good_TMP.tdl", "three.mdl"}));
}

TEST_F(SaveFailuresTest, APlainSaveAfterAFailedSaveAsTriesTheNewPathAgain) {
    openAndEdit("three.mdl");
    saveAs(folder.path("missing/new.mdl"));
    save();
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Error",
               noFile(folder.path("missing/new.mdl") + ": No such file or directory"));
    fs::create_directory(folder.path("missing"));  // the cause is mended
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(folder.path("missing/new.mdl")), edited());
    EXPECT_EQ(workBytes(), edited());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"missing", "three.mdl"}));
}

TEST_F(SaveFailuresTest, ASaveGeosetThatFailsKeepsTheGeosetNumber) {
    openAndEdit("three.mdl");
    saveGeosetAs(folder.path("missing/part.mdl"));
    ASSERT_EQ(askedKinds(), "save message");
    EXPECT_EQ(store().geosetNumber, 2);
    EXPECT_TRUE(store().isModified());
    saveAs(folder.path("good.mdl"));
    EXPECT_EQ(modelBytes(), edited());
}

TEST_F(SaveFailuresTest, AMissingWorkingCopyIsPutBackAndTheSaveGoesOn) {
    const std::string path = openAndEdit("three.mdl");
    fs::remove(store().workPath);
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_EQ(workBytes(), edited());
    closeModel(editor);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"three.mdl"});
}

TEST_F(SaveFailuresTest, AForeignWorkingCopyDoesNotStopASave) {
    const std::string path = openAndEdit("three.mdl");
    folder.write("three_TMP.tdl", modelOf({.geosets = {squareAt("1")}}));
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_EQ(workBytes(), edited());
}

TEST_F(SaveFailuresTest, ASecondWindowThatClosesDoesNotStopASave) {
    const std::string path = openAndEdit("three.mdl");
    TestWindow secondWindow;
    Editor second{
        .pictures = {front, top, left, perspective}, .window = secondWindow, .dialogs = dialogs};
    dialogs.files.push_back(path);
    dialogs.inputs.push_back("1");
    openCommand(second);
    closeModel(second);
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_EQ(workBytes(), edited());
}

TEST_F(SaveFailuresTest, WithTheFolderGoneTheModelIsSavedElsewhere) {
    fs::create_directory(folder.path("gone"));
    const std::string old = openAndEdit("gone/three.mdl");
    fs::remove_all(folder.path("gone"));
    save();
    ASSERT_EQ(askedKinds(), "message");
    expectLast("message", "Error", noFile(old + ": No such file or directory"));
    const std::string path = folder.path("new.mdl");
    saveAs(path);
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_EQ(store().workPath, folder.path("new_TMP.tdl"));
    EXPECT_EQ(workBytes(), edited());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl"}));
    vertex(1).pos = {0, 0, 2};
    save();
    EXPECT_EQ(readFile(path), modelOf(threeGeosets()));
}

TEST_F(SaveFailuresTest, AModelThatWasWrittenOutsideIsReplacedOnlyAfterAYes) {
    const std::string path = openAndEdit("three.mdl");
    const std::string other = modelOf({.geosets = {squareAt("1")}});
    folder.write("three.mdl", other);
    dialogs.yesNos.push_back(false);
    save();
    ASSERT_EQ(askedKinds(), "yesno");
    expectLast("yesno", "Warning",
               path +
                   " was changed by another program or window since it was opened or saved here. "
                   "Saving replaces what it holds now. Save?");
    EXPECT_EQ(readFile(path), other);
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(readFile(path), edited());
    save();
    EXPECT_EQ(askedKinds(), "") << "it is this window's own now";
}

// Another program may write the model at any moment: what it wrote is not replaced unasked.
TEST_F(SaveFailuresTest, WhatIsWrittenWhileTheGeosetIsAskedForIsNoticed) {
    const std::string path = folder.write("three.mdl", modelOf(threeGeosets()));
    dialogs.onInput = [&] {
        std::ofstream(path, std::ios::app | std::ios::binary) << "// appended\n";
    };
    open(path, "2");
    dialogs.onInput = nullptr;
    dialogs.yesNos.push_back(false);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(readFile(path), modelOf(threeGeosets()) + "// appended\n");
}

TEST_F(SaveFailuresTest, WhatIsWrittenRightAfterASaveIsNoticed) {
    const std::string path = openAndEdit("three.mdl");
    // The first thing that the program does after the file has its name is to renew the working
    // copy, which fails: the message comes right after the rename.
    fs::create_directory(folder.path("new_TMP.tdl"));
    const std::string saved = folder.path("new.mdl");
    dialogs.onMessage = [&] {
        std::ofstream(saved, std::ios::app | std::ios::binary) << "// appended\n";
    };
    saveAs(saved);
    dialogs.onMessage = nullptr;
    dialogs.yesNos.push_back(false);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(readFile(saved), edited() + "// appended\n");
}

TEST_F(SaveFailuresTest, WithModelAndWorkingCopyGoneTheTextComesFromMemory) {
    const std::string path = openAndEdit("three.mdl");
    fs::remove(path);
    fs::remove(store().workPath);
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_EQ(workBytes(), edited());
}

TEST_F(SaveFailuresTest, AnEditMadeSinceASaveIsNotLostWithTheWorkingCopy) {
    const std::string path = openAndEdit("three.mdl");
    save();
    vertex(2).pos = {7, 8, 9};
    fs::remove(path);
    fs::remove(store().workPath);
    save();
    ModelParts parts = threeGeosets();
    parts.geosets[1].vertices[0] = "6, 1, 2";
    parts.geosets[1].vertices[1] = "9, 7, 8";
    EXPECT_EQ(readFile(path), modelOf(parts));
}

TEST_F(SaveFailuresTest, AWorkingCopyThatCannotBeRenewedLeavesTheSaveStanding) {
    openAndEdit("three.mdl");
    fs::create_directory(folder.path("new_TMP.tdl"));
    saveAs(folder.path("new.mdl"));
    ASSERT_EQ(askedKinds(), "save message");
    expectLast("message", "Warning",
               "The model was saved, but its working copy could not be renewed.\n" +
                   folder.path("new_TMP.tdl") +
                   ": Is a directory\n\nYou can go on: nothing is lost. Free some space, then save "
                   "again.");
    EXPECT_EQ(modelBytes(), edited());
    EXPECT_EQ(store().modelPath, folder.path("new.mdl"));
    EXPECT_EQ(folder.names(),
              (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl", "three_TMP.tdl"}));

    fs::remove(folder.path("new_TMP.tdl"));
    vertex(2).pos = {7, 8, 9};
    save();
    EXPECT_EQ(askedKinds(), "");
    ModelParts parts = threeGeosets();
    parts.geosets[1].vertices[0] = "6, 1, 2";
    parts.geosets[1].vertices[1] = "9, 7, 8";
    EXPECT_EQ(modelBytes(), modelOf(parts));
    EXPECT_EQ(workBytes(), modelOf(parts));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"new.mdl", "new_TMP.tdl", "three.mdl"}));
}

TEST_F(SaveFailuresTest, ASavedEditOutlivesAWorkingCopyThatCouldNotBeRenewed) {
    openAndEdit("three.mdl");
    fs::create_directory(folder.path("new_TMP.tdl"));
    saveAs(folder.path("new.mdl"));  // geoset 2 is saved, the working copy is from before
    dialogs.inputs.push_back("1");
    switchGeoset(editor);
    vertex(1).pos = {7, 8, 9};
    save();
    ModelParts parts = threeGeosets();
    parts.geosets[0].vertices[0] = "9, 7, 8";
    parts.geosets[1].vertices[0] = "6, 1, 2";
    EXPECT_EQ(modelBytes(), modelOf(parts));
}

TEST_F(SaveFailuresTest, ASavedSingleGeosetOutlivesAWorkingCopyThatCouldNotBeRenewed) {
    openAndEdit("three.mdl");
    fs::create_directory(folder.path("part_TMP.tdl"));
    saveGeosetAs(folder.path("part.mdl"));
    ASSERT_EQ(askedKinds(), "save message");
    GeosetText edited = squareAt("2");
    edited.vertices[0] = "6, 1, 2";
    EXPECT_EQ(modelBytes(), singleGeosetModelOf(edited));
    // It holds one geoset; saving must not put the whole model into that file.
    fs::remove(folder.path("part_TMP.tdl"));
    save();
    EXPECT_EQ(modelBytes().find("Walk"), std::string::npos);
}

TEST_F(SaveFailuresTest, TheWorkingCopyOfTheModelThatIsOpenIsRefused) {
    openAndEdit("three.mdl");
    const Before before = remember();
    saveAs(store().workPath);
    expectLast("message", "Error",
               store().workPath + " is the working copy of the model that is open, " +
                   store().modelPath + ". Choose another file.");
    expectUnchanged(before);
}

}  // namespace
}  // namespace corvane
