// Removing and merging geosets.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using GeosetsScenario = ScenarioTest;
using Lines = std::vector<std::string>;

std::string openGeoset(int number) {
    return "answer file \"$DIR/hero.mdl\"\nanswer input \"" + std::to_string(number) +
           "\"\nmenu mnuOpen\nwait 150\n";
}
const std::string kRemove = "answer message yes\nmenu mnuDelCurrentGeoset\n";

std::string withoutSecond() {
    return modelHead() + triangleGeoset(0) + triangleGeoset(2) + geosetAnim(0) + geosetAnim(1) +
           bone("A", "0", "0") + bone("B", "Multiple", "None") + bone("C", "1", "1");
}

std::string overwriteQuestion(int number) {
    return "message|Warning|The geoset in memory was removed from the model. Saving writes it over "
           "geoset " +
           std::to_string(number) + ", which has its number now. Write it?|";
}

TEST_F(GeosetsScenario, RemovalIsConfirmedAndReachesTheModelWithTheNextSave) {
    const std::string path = folder.write("hero.mdl", threeGeosets());
    const std::string work = folder.path("hero_TMP.tdl");
    const Played played = playAll(openGeoset(2) + R"(
answer message no
menu mnuDelCurrentGeoset
answer message yes
menu mnuDelCurrentGeoset
dump
)");
    const std::string question =
        "message|Confirmation|Removing a geoset is not undoable. Are you sure you want to "
        "continue?" +
        path + work + '|';
    EXPECT_EQ(played.dialogs()[2], question + "no");
    EXPECT_EQ(played.dialogs()[3], question + "yes");
    EXPECT_EQ(readFile(path), threeGeosets());
    EXPECT_EQ(readFile(work), withoutSecond());
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4) << "the store keeps it";
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 2);
}

TEST_F(GeosetsScenario, ASecondRemovalOnlySaysThatItIsRemovedAlready) {
    folder.write("hero.mdl", threeGeosets());
    const Played played =
        playAll(openGeoset(2) + kRemove + "answer message ok\nmenu mnuDelCurrentGeoset\n");
    EXPECT_NE(played.dialogs().back().find("removed from the model already"), std::string::npos);
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), withoutSecond());
}

TEST_F(GeosetsScenario, SavingOverTheNextGeosetIsAskedFirst) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(2) + kRemove + R"(
answer message yes
menu mnuSave
menu mnuSave
dump
)");
    EXPECT_EQ(played.dialogs().back(), overwriteQuestion(2) + "yes") << "asked once";
    // The sections of the square in the block of the triangle that took its number.
    std::string square = squareGeoset(2);
    for (const std::string line : {"\tMinimumExtent { 0, -30, -30 },\n", "\tSelectionGroup 0,\n"}) {
        square.erase(square.find(line), line.size());
    }
    const std::string expected = modelHead() + triangleGeoset(0) + square + geosetAnim(0) +
                                 geosetAnim(1) + bone("A", "0", "0") +
                                 bone("B", "Multiple", "None") + bone("C", "1", "1");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), expected);
}

TEST_F(GeosetsScenario, AnsweringNoSavesTheModelWithoutItAndChoosesAnother) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(2) + kRemove + R"(
answer message no
answer input "2"
menu mnuSave
dump
)");
    EXPECT_EQ(played.dialogs()[3], overwriteQuestion(2) + "no");
    EXPECT_EQ(played.dialogs()[4], "input|Geoset to open|Geoset to import(1 - 2):|2");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), withoutSecond());
    EXPECT_EQ(readFile(folder.path("hero_TMP.tdl")), withoutSecond());
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 3);
    EXPECT_EQ(played.dump()["geosetNumber"].toInt(), 2);
}

TEST_F(GeosetsScenario, SaveAsAsksAfterTheFileDialog) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(1) + kRemove + R"(
answer file cancel
menu mnuSaveAs
answer file "$DIR/other.mdl"
answer message no
answer input "1"
menu mnuSaveAs
dump
)");
    const std::vector<std::string> dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 7U);
    EXPECT_EQ(dialogs[3], "file|save|Warcraft III MDL|*.mdl|cancel");
    EXPECT_EQ(dialogs[5], overwriteQuestion(1) + "no");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), threeGeosets());
    EXPECT_EQ(readFile(folder.path("other.mdl")),
              modelHead() + squareGeoset(1) + triangleGeoset(2) + geosetAnim(0) + geosetAnim(1) +
                  bone("A", "Multiple", "None") + bone("B", "0", "0") + bone("C", "1", "1"));
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4);
}

TEST_F(GeosetsScenario, UntilTheSaveSwitchingGoesByTheWorkingCopy) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(1) + kRemove + R"(
answer input "1"
menu mnuSwitchGeoset
dump
menu mnuSave
)");
    EXPECT_EQ(played.dialogs().back(), "input|Geoset to open|Geoset to import(1 - 2):|1");
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4) << "the square is the first now";
    EXPECT_EQ(readFile(folder.path("hero.mdl")),
              modelHead() + squareGeoset(1) + triangleGeoset(2) + geosetAnim(0) + geosetAnim(1) +
                  bone("A", "Multiple", "None") + bone("B", "0", "0") + bone("C", "1", "1"));
}

TEST_F(GeosetsScenario, RemovingTheLastGeosetSavesWithoutAQuestion) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(3) + kRemove + "answer message ok\nmenu mnuSave\n");
    EXPECT_EQ(readFile(folder.path("hero.mdl")),
              modelHead() + triangleGeoset(0) + squareGeoset(1) + geosetAnim(0) + geosetAnim(1) +
                  bone("A", "0", "0") + bone("B", "1", "1") + bone("C", "Multiple", "None"));
}

TEST_F(GeosetsScenario, MergeAppendsAGeosetSelectedAndUndoTakesItAwayAgain) {
    folder.write("hero.mdl", squareModel());
    folder.write("part.mdl", threeGeosets());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
drag pbxFront left 130 50 160 70
dump
answer file "$DIR/part.mdl"
answer input "9"
answer input "3"
menu mnuMergeGeoset
dump
wait 150
drag pbxFront right 100 100 120 100
menu mnuSave
menu mnuUndo
menu mnuUndo
dump
)");
    const QJsonObject merged = played.dump(1);
    EXPECT_EQ(merged["modelPath"].toString().toStdString(), folder.path("hero.mdl"));
    EXPECT_EQ(merged["geosetNumber"].toInt(), 1);
    EXPECT_EQ(merged["vertices"].toArray().size(), 7);
    EXPECT_EQ(selected(merged), "5 6 7");
    EXPECT_EQ(position(merged, 7), (std::vector<double>{8, 10, 7}));
    EXPECT_EQ(merged["faces"].toArray()[2].toObject()["corner"].toArray(), (QJsonArray{4, 5, 6}));
    EXPECT_EQ(merged["matrixGroups"].toArray().size(), 2);
    EXPECT_EQ(undoNames(merged), "Merge, Selection");
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 7 {\n"), std::string::npos);
    EXPECT_NE(saved.find("\t\t{ 7, 23, 10 },\n\t}\n"), std::string::npos);
    EXPECT_NE(saved.find("\tFaces 1 9 {\n"), std::string::npos);
    EXPECT_NE(saved.find("{ 0, 1, 2, 0, 2, 3, 4, 5, 6 },"), std::string::npos);
    EXPECT_EQ(played.dump(2)["vertices"], played.dump(0)["vertices"]);
    EXPECT_EQ(played.dump(2)["faces"], played.dump(0)["faces"]);
    EXPECT_EQ(readFile(folder.path("part.mdl")), threeGeosets());
    EXPECT_EQ(folder.names(), (Lines{"hero.mdl", "hero_TMP.tdl", "part.mdl"}));
}

TEST_F(GeosetsScenario, AMergePastTheLimitIsRefusedWithTheNumbers) {
    std::string large = "Geoset {\n\tVertices 32765 {\n";
    for (int i = 0; i < 32765; ++i) large += "\t\t{ 1, 2, 3 },\n";
    large += "\t}\n\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n}\n";
    folder.write("large.mdl", large);
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
answer file "$DIR/large.mdl"
answer message ok
menu mnuMergeGeoset
dump
)");
    EXPECT_EQ(played.dialogs().back(),
              "message|Error|The merged geoset would be too large: 4 + 32765 = 32769 vertices (at "
              "most 32767), 2 + 1 = 3 faces (at most 32767). Nothing was changed.|ok");
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4);
    EXPECT_EQ(undoNames(played.dump()), "");
}

TEST_F(GeosetsScenario, ARemovedGeosetWithNothingLeftIsNotWrittenOverAnother) {
    folder.write("hero.mdl", threeGeosets());
    const Played played = playAll(openGeoset(2) + "menu mnuSelectAll\npress cmdDelete\n" + kRemove +
                                  "answer message yes\nanswer message ok\nmenu mnuSave\n");
    const Lines dialogs = played.dialogs();
    EXPECT_EQ(dialogs.at(dialogs.size() - 2), overwriteQuestion(2) + "yes");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), withoutSecond());
}

}  // namespace
}  // namespace corvane
