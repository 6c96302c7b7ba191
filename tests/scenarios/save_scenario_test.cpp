// Saving, and what is left when saving fails.
#include "save_scenarios.h"

namespace corvane {
namespace {

TEST_F(SaveScenario, SavingAnUnchangedModelChangesNoByte) {
    folder.write("hero.mdl", threeGeosets());
    playAll(R"(
answer file "$DIR/hero.mdl"
answer input "2"
menu mnuOpen
menu mnuSave
)");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), threeGeosets());
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), threeGeosets());
}

TEST_F(SaveScenario, TheFileHoldsTheEditAndNothingElse) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kMoveThird + "menu mnuSave\ndump\n");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), moved(squareModel()));
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), moved(squareModel()));
    EXPECT_EQ(undoNames(played.dump()), "Move, Selection") << "a save does not end undoing";
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "hero_TMP.tdl"}));
}

TEST_F(SaveScenario, LineBreaksAndOddBytesComeBackAsTheyWere) {
    std::string model = "\xEF\xBB\xBF// caf\xE9 \x01\r\n";
    for (const char c : squareModel()) {
        if (c == '\n') model += '\r';
        model += c;
    }
    model += "// no break at the end";
    folder.write("hero.mdl", model);
    playAll(kOpen + kMoveThird + "menu mnuSave\n");
    std::string expected = model;
    const std::string row = "\t\t{ 0, 30, 30 },\r\n";
    expected.replace(expected.find(row), row.size(), "\t\t{ 0, 45, 36 },\r\n");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), expected);
}

TEST_F(SaveScenario, SaveAsGoesOnWithTheNewFile) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kMoveThird + R"(
answer file cancel
menu mnuSaveAs
dump
answer file "$DIR/other.mdl"
menu mnuSaveAs
dump
menu mnuUndo
menu mnuSave
)");
    EXPECT_EQ(played.dump(0)["modelPath"].toString().toStdString(), folder.path("hero.mdl"));
    EXPECT_EQ(played.dump(1)["modelPath"].toString().toStdString(), folder.path("other.mdl"));
    EXPECT_EQ(played.dump(1)["workPath"].toString().toStdString(), folder.path("other_TMP.tdl"));
    EXPECT_EQ(played.dialogs().back(),
              "file|save|Warcraft III MDL|*.mdl|" + folder.path("other.mdl"));
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel());
    EXPECT_EQ(readFile(folder.path("other.mdl")), squareModel()) << "moved, saved, undone, saved";
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "other.mdl", "other_TMP.tdl"}));
}

TEST_F(SaveScenario, SaveGeosetWritesOneUnanimatedGeoset) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
answer input "2"
menu mnuOpen
answer file "$DIR/part.mdl"
menu mnuSaveGeoset
dump
)");
    std::string geoset = squareGeoset(1);
    const std::string groups = "\t\t0,\n\t\t0,\n\t\t1,\n\t\t1,\n";
    geoset.replace(geoset.find(groups), groups.size(), "\t\t0,\n\t\t0,\n\t\t0,\n\t\t0,\n");
    const std::string matrices = "\tGroups 2 3 {\n\t\tMatrices { 0 },\n\t\tMatrices { 0, 1 },\n";
    geoset.replace(geoset.find(matrices), matrices.size(), "\tGroups 1 1 {\n\t\tMatrices { 0 },\n");
    EXPECT_EQ(readFile(folder.path("part.mdl")),
              "// made for a test\n"
              "Version {\n"
              "\tFormatVersion 800,\n"
              "}\n"
              "Model \"Test\" {\n"
              "\tNumGeosets 3,\n"
              "\tBlendTime 150,\n"
              "}\n"
              "Sequences 1 {\n"
              "\tAnim \"Stand\" {\n"
              "\t\tInterval { 0, 3333 },\n"
              "\t}\n"
              "}\n" +
                  geoset +
                  "Bone \"Bone0\" {\n"
                  "\tObjectId 0,\n"
                  "\tGeosetAnimId None,\n"
                  "}\n"
                  "PivotPoints 1 {\n"
                  "\t{ 0, 0, 0 },\n"
                  "}\n");
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 1);
    EXPECT_EQ(played.dump()["modelPath"].toString().toStdString(), folder.path("part.mdl"));
    EXPECT_EQ(readFile(folder.path("hero.mdl")), threeGeosets());
}

TEST_F(SaveScenario, DeletedVerticesAreDroppedFromTheFileOnly) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxFront left 130 150 160 130
press cmdDelete
menu mnuSave
menu mnuUndo
dump
menu mnuSave
)");
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4);
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel()) << "undone and saved again";
    const Played again =
        playAll(kOpen + "drag pbxFront left 130 150 160 130\npress cmdDelete\n" + "menu mnuSave\n");
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 3 {\n\t\t{ 0, -30, -30 },\n\t\t{ 0, 30, 30 },\n"
                         "\t\t{ 24, -30, 30 },\n\t}\n"),
              std::string::npos);
    EXPECT_NE(saved.find("\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n"),
              std::string::npos);
    EXPECT_NE(saved.find("\tVertexGroup {\n\t\t0,\n\t\t1,\n\t\t1,\n\t}\n"), std::string::npos);
}

TEST_F(SaveScenario, AnEmptiedGeosetIsRemovedAndAnotherOneChosen) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
answer input "2"
menu mnuOpen
menu mnuSelectAll
press cmdDelete
answer message ok
answer input "2"
menu mnuSave
dump
)");
    EXPECT_EQ(played.dialogs(),
              (Lines{"file|open|Warcraft III MDL|*.mdl|" + folder.path("hero.mdl"),
                     "input|Geoset to open|Geoset to import(1 - 3):|2",
                     "message|Warning|Removing geoset|ok",
                     "input|Geoset to open|Geoset to import(1 - 2):|2"}));
    const std::string expected = modelHead() + triangleGeoset(0) + triangleGeoset(2) +
                                 geosetAnim(0) + geosetAnim(1) + bone("A", "0", "0") +
                                 bone("B", "Multiple", "None") + bone("C", "1", "1");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), expected);
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), expected);
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 2);
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 3);
    EXPECT_EQ(undoNames(played.dump()), "");
}

TEST_F(SaveScenario, AFailedSaveCanBeRepeatedElsewhere) {
    folder.write("hero.mdl", squareModel());
    std::filesystem::create_directory(folder.path("taken.mdl"));
    const Played played = playAll(kOpen + kMoveThird + R"(
dump
answer file "$DIR/missing/other.mdl"
answer message ok
menu mnuSaveAs
answer file "$DIR/taken.mdl"
answer message ok
menu mnuSaveAs
dump
answer file "$DIR/other.mdl"
menu mnuSaveAs
)");
    EXPECT_EQ(played.dialogs()[2],
              "message|Error|The model was not saved.\n" + folder.path("missing/other.mdl") +
                  ": No such file or directory\n\nNo file was written, and your edits are still "
                  "here: mend the cause and save again, or save to another place with Save As.|ok");
    EXPECT_NE(played.dialogs()[4].find("Is a directory"), std::string::npos);
    EXPECT_EQ(played.dump(0)["vertices"], played.dump(1)["vertices"]);
    EXPECT_EQ(played.dump(0)["undo"], played.dump(1)["undo"]);
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel());
    EXPECT_EQ(readFile(folder.path("other.mdl")), moved(squareModel()));
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "other.mdl", "other_TMP.tdl", "taken.mdl"}));
}

// A second window on the same model takes the working copy along when it closes.
TEST_F(SaveScenario, AMissingWorkingCopyIsPutBackAndTheSaveSucceeds) {
    folder.write("hero.mdl", squareModel());
    RunningScenario first = start();
    first.send(kOpen + kMoveThird + "dump\n");
    first.waitForDump();
    std::filesystem::remove(folder.path("hero_TMP.tdl"));
    first.send("menu mnuSave\ndump\n");
    first.waitForDump();
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), moved(squareModel()));
    const Played played = first.finish();
    EXPECT_EQ(played.exitCode, 0) << played.error();
    EXPECT_EQ(readFile(folder.path("hero.mdl")), moved(squareModel()));
}

// Two windows on one model: the second save would undo the first one, so it asks.
TEST_F(SaveScenario, AModelWrittenOutsideIsNotReplacedWithoutAsking) {
    folder.write("hero.mdl", squareModel());
    RunningScenario first = start();
    first.send(kOpen + kMoveThird + "dump\n");
    first.waitForDump();
    playAll(kOpen +
            "menu mnuSelectAll\ndrag pbxFront right 100 100 140 100\nmenu mnuSave\nclose\n");
    const std::string other = readFile(folder.path("hero.mdl"));
    first.send("answer message no\nmenu mnuSave\ndump\n");
    first.waitForDump();
    EXPECT_EQ(readFile(folder.path("hero.mdl")), other);
    first.send("answer message yes\nmenu mnuSave\n");
    const Played played = first.finish();
    EXPECT_EQ(played.exitCode, 0) << played.error();
    EXPECT_NE(played.dialogs()[1].find("was changed by another program or window"),
              std::string::npos);
    EXPECT_EQ(readFile(folder.path("hero.mdl")), moved(squareModel()));
}

TEST_F(SaveScenario, AVanishedFolderCanBeLeftWithSaveAs) {
    std::filesystem::create_directory(folder.path("gone"));
    folder.write("gone/hero.mdl", squareModel());
    RunningScenario first = start();
    first.send("answer file \"$DIR/gone/hero.mdl\"\nmenu mnuOpen\nwait 150\n" + kMoveThird +
               "dump\n");
    first.waitForDump();
    std::filesystem::remove_all(folder.path("gone"));
    first.send(
        "answer message ok\nmenu mnuSave\n"
        "answer file \"$DIR/other.mdl\"\nmenu mnuSaveAs\n");
    const Played played = first.finish();
    EXPECT_EQ(played.exitCode, 0) << played.error();
    EXPECT_EQ(readFile(folder.path("other.mdl")), moved(squareModel()));
}

TEST_F(SaveScenario, AKilledProgramLeavesTheModelWhole) {
    folder.write("hero.mdl", squareModel());
    RunningScenario first = start();
    first.send(kOpen + kMoveThird + "dump\n");
    first.waitForDump();
    first.kill();
    EXPECT_EQ(readFile(folder.path("hero.mdl")), squareModel());
    // The working copy that it left behind is in nobody's way.
    playAll(kOpen + kMoveThird + "menu mnuSave\nclose\n");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), moved(squareModel()));
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl"}));
}

}  // namespace
}  // namespace corvane
