#include "model/commands/new_model.h"

#include <algorithm>
#include <cstdlib>

#include "edit/undo_history.h"
#include "model/files.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

/// The texts between the line breaks; the last line has to end with one, too.
Lines linesOf(const std::string& text) {
    Lines lines;
    std::string line;
    for (const char c : text) {
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else {
            line += c;
        }
    }
    EXPECT_EQ(line, "") << "the last line is not ended";
    return lines;
}

class NewModelTest : public ModelFlowTest {
protected:
    /// The command New with this answer to the file dialog.
    void makeNew(const std::optional<std::string>& answer) {
        dialogs.asked.clear();
        dialogs.files.push_back(answer);
        newModel(editor);
    }

    // The whole template; only spaces and tabs could be taken for one another.
    const Lines templateLines = {"Version {",                       // 1
                                 "\t 800 ",                         //
                                 "}",                               //
                                 "Model Corvane {",                 //
                                 "\tNumGeosets; 1,",                // 5
                                 "\tNumBones; 1,",                  //
                                 "\tBlendTime; 150,",               //
                                 "\tMinimumExtent { -5, -5, 0 },",  //
                                 "\tMaximumExtent { 5, 5, 10 },",   //
                                 "\tBoundsRadius 8.66025,",         // 10
                                 "}",                               //
                                 "Sequences 1 {",                   //
                                 "\tAnim Stand {",                  //
                                 "\t\tInterval { 0, 3333 },",       //
                                 "\t}",                             // 15
                                 "}",                               //
                                 "Textures 1 {",                    //
                                 "\tBitmap {",                      //
                                 "\t\tImage white.blp,",            //
                                 "\t}",                             // 20
                                 "}",                               //
                                 "Materials 1 {",                   //
                                 "\tMaterial {",                    //
                                 "\t\tLayer {",                     //
                                 "\t\t\tFilterMode None,",          // 25
                                 "\t\t\tstatic TextureID 0,",       //
                                 "\t\t}",                           //
                                 "\t}",                             //
                                 "}",                               //
                                 "Geoset {",                        // 30
                                 "\tVertices 8 {",                  //
                                 "\t\t{ 5, 5, 10 },",               //
                                 "\t\t{ 5, -5, 10 },",              //
                                 "\t\t{ -5, -5, 10 },",             //
                                 "\t\t{ -5, 5, 10 },",              // 35
                                 "\t\t{ -5, -5, 0 },",              //
                                 "\t\t{ 5, -5, 0 },",               //
                                 "\t\t{ 5, 5, 0 },",                //
                                 "\t\t{ -5, 5, 0 },",               //
                                 "\t}",                             // 40
                                 "",
                                 "",
                                 "",
                                 "",
                                 "",
                                 ""};
};

TEST_F(NewModelTest, TheTemplateHas46LinesOfWhichTheLastSixAreEmpty) {
    const Lines lines = linesOf(std::string(templateModel()));
    ASSERT_EQ(lines.size(), 46U);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i], templateLines[i]) << "line " << i + 1;
    }
}

TEST_F(NewModelTest, TheTemplateIsWrittenToTheChosenFile) {
    const std::string path = folder.path("box.mdl");
    makeNew(path);
    EXPECT_EQ(linesOf(readFile(path)), templateLines);
    EXPECT_EQ(folder.names(), Lines{"box.mdl"});
    EXPECT_EQ(store().modelPath, path);
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(dialogs.last().text, "Warcraft III MDL|*.mdl");
    EXPECT_GT(window.buttonUpdates, 0);
}

TEST_F(NewModelTest, AFileThatIsThereIsReplaced) {
    const std::string path = folder.write("box.mdl", std::string(5000, 'x'));
    makeNew(path);
    EXPECT_EQ(linesOf(readFile(path)), templateLines);
}

TEST_F(NewModelTest, NothingIsLoaded) {
    makeNew(folder.path("box.mdl"));
    EXPECT_FALSE(store().modelLoaded);
    EXPECT_TRUE(store().Vertices.empty());
    EXPECT_EQ(store().workPath, "");
    EXPECT_FALSE(hasUndoStep());
    EXPECT_TRUE(front.primitives().empty());
}

TEST_F(NewModelTest, ReadingItBackGivesEightVerticesAndNoFaces) {
    const std::string path = folder.path("box.mdl");
    makeNew(path);
    open(path);
    EXPECT_EQ(askedKinds(), "open");
    EXPECT_TRUE(store().modelLoaded);
    EXPECT_EQ(store().geosetNumber, 1);
    ASSERT_EQ(store().Vertices.size(), 8U);
    // In slot order: the file's second, third and first number.
    const std::vector<Triple> expected = {{5, 10, 5},  {-5, 10, 5}, {-5, 10, -5}, {5, 10, -5},
                                          {-5, 0, -5}, {-5, 0, 5},  {5, 0, 5},    {5, 0, -5}};
    for (int i = 1; i <= 8; ++i) {
        const VertexRecord record{.pos = expected[static_cast<std::size_t>(i) - 1]};
        EXPECT_TRUE(vertex(i) == record) << "vertex " << i;
    }
    EXPECT_TRUE(store().Faces.empty());
    EXPECT_TRUE(store().matrixGroups.empty());
}

TEST_F(NewModelTest, TheModelThatIsOpenStaysInMemoryAndTheNextSaveGoesToTheNewFile) {
    const std::string model = modelOf({.geosets = {squareAt("1")}});
    const std::string opened = openNew("hero.mdl", model);
    store().Vertices[0].selected = true;
    pushUndo(editor, {}, {}, "Move");
    Before expected = remember();
    makeNew(folder.path("box.mdl"));
    EXPECT_EQ(linesOf(readFile(folder.path("box.mdl"))), templateLines);
    EXPECT_EQ(dialogs.last().title, "New Model");
    EXPECT_EQ(dialogs.last().defaultText, folder.path("untitled.mdl"));

    expected.modelPath = folder.path("box.mdl");
    expected.modelBytes = modelBytes();
    expected.names = {"box.mdl", "hero.mdl", "hero_TMP.tdl"};
    expectUnchanged(expected);
    EXPECT_EQ(readFile(opened), model);
    dialogs.yesNos.push_back(true);
    save();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_EQ(dialogs.last().title, "Warning");
    EXPECT_EQ(dialogs.last().text,
              "box.mdl is a new, empty model. Saving writes the open model over it. Write it?");
    EXPECT_EQ(readFile(folder.path("box.mdl")), model);
    save();
    EXPECT_EQ(askedKinds(), "") << "it is the open model now";
}

TEST_F(NewModelTest, TheOpenModelIsNotWrittenOverTheNewOneAfterANo) {
    const std::string model = modelOf({.geosets = {squareAt("1")}});
    openNew("hero.mdl", model);
    makeNew(folder.path("box.mdl"));
    dialogs.asked.clear();
    dialogs.yesNos.push_back(false);
    dialogs.files.push_back(folder.path("other.mdl"));
    corvane::save(editor);
    EXPECT_EQ(askedKinds(), "yesno save");
    EXPECT_EQ(linesOf(readFile(folder.path("box.mdl"))), templateLines);
    EXPECT_EQ(readFile(folder.path("other.mdl")), model);
}

TEST_F(NewModelTest, AfterItSwitchingStillReadsTheModelThatIsOpen) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1"), triangleAt("7")}}), "1");
    makeNew(folder.path("box.mdl"));
    dialogs.inputs.push_back("2");
    switchGeoset(editor);
    EXPECT_EQ(store().Vertices.size(), 3U);
    EXPECT_EQ(store().geosetNumber, 2);
}

// The text that a save takes over is then no longer the file's: the numbers that the user sees
// when switching must be those of that text.
TEST_F(NewModelTest, WrittenOverTheModelThatIsOpenSwitchingReadsTheWorkingCopy) {
    const std::string path =
        openNew("hero.mdl", modelOf({.geosets = {squareAt("1"), triangleAt("7")}}), "1");
    makeNew(path);
    EXPECT_EQ(linesOf(readFile(path)), templateLines);
    dialogs.asked.clear();
    dialogs.inputs.push_back("2");
    switchGeoset(editor);
    EXPECT_EQ(askedKinds(), "input");
    EXPECT_EQ(store().Vertices.size(), 3U);
    EXPECT_EQ(store().geosetNumber, 2);
    dialogs.inputs.clear();
}

TEST_F(NewModelTest, CancelWritesNothing) {
    makeNew(std::nullopt);
    EXPECT_EQ(folder.names(), Lines{});
    EXPECT_EQ(store().modelPath, "");
    EXPECT_EQ(askedKinds(), "save");
}

TEST_F(NewModelTest, CancelLeavesTheModelThatIsOpen) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    const Before before = remember();
    makeNew(std::nullopt);
    expectUnchanged(before);
}

TEST_F(NewModelTest, AFolderThatIsMissingIsToldAndNothingChanges) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    const Before before = remember();
    const std::string path = folder.path("gone/box.mdl");
    makeNew(path);
    expectLast("message", "Error",
               "The new model was not written.\n" + path +
                   ": No such file or directory\n\nChoose another name or folder.");
    EXPECT_EQ(askedKinds(), "save message");
    expectUnchanged(before);
}

TEST_F(NewModelTest, AFolderThatIsMissingIsToldBeforeAModelIsLoadedToo) {
    const std::string path = folder.path("gone/box.mdl");
    makeNew(path);
    EXPECT_EQ(askedKinds(), "save message");
    EXPECT_EQ(store().modelPath, "");
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(NewModelTest, AFolderIsNoFileToWriteTo) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    const Before before = remember();
    makeNew(folder.path(""));
    EXPECT_EQ(askedKinds(), "save message");
    EXPECT_EQ(dialogs.last().title, "Error");
    expectUnchanged(before);
}

TEST_F(NewModelTest, AProposedNameIsThatOfNoFile) {
    folder.write("untitled.mdl", "a model");
    folder.write("untitled-2.mdl", "another one");
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    makeNew(std::nullopt);
    EXPECT_EQ(dialogs.last().defaultText, folder.path("untitled-3.mdl"));
}

TEST_F(NewModelTest, TheOpenModelsWorkingCopyIsRefused) {
    openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
    const Before before = remember();
    makeNew(folder.path("hero_TMP.tdl"));
    EXPECT_EQ(askedKinds(), "save message");
    EXPECT_TRUE(dialogs.last().text.starts_with(folder.path("hero_TMP.tdl") +
                                                " is the working copy of the model that is open"))
        << dialogs.last().text;
    expectUnchanged(before);
}

}  // namespace
}  // namespace corvane
