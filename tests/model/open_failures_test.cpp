// Models that cannot be opened: a message that says why, and everything stays as it was.
#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/open_model.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

const char* const kOpenAdvice =
    "\n\nThe file was not opened and is unchanged. Mend the line in a text editor, or choose "
    "another geoset or model.";

class OpenFailuresTest : public ModelFlowTest {
protected:
    /// Opens geoset 2 of a good model, and leaves an edit and an undo step in it.
    void openGoodModel() {
        openNew("good.mdl", modelOf(threeGeosets()), "2");
        pushUndo(editor, {.keepVertices = true}, {}, "Snap");
        vertex(1).pos[0] = 99;
        select({2});
    }

    /// Runs `tryToOpen` without and with a model open and expects nothing to change.
    template <class F>
    void expectNothingChanges(F tryToOpen) {
        {
            SCOPED_TRACE("no model is open");
            const Before before = remember();
            tryToOpen();
            EXPECT_FALSE(store().modelLoaded);
            expectUnchanged(before);
        }
        {
            SCOPED_TRACE("a model is open");
            openGoodModel();
            const Before before = remember();
            const std::vector<VertexRecord>* copy = editor.undo.slots[0].vertices.get();
            tryToOpen();
            expectUnchanged(before);
            EXPECT_EQ(editor.undo.slots[0].vertices.get(), copy);
            EXPECT_EQ(store().modelPath, folder.path("good.mdl"));
        }
        // What was open can still be saved, to its own file.
        save();
        EXPECT_EQ(askedKinds(), "");
        ModelParts saved = threeGeosets();
        saved.geosets[1].vertices[0] = "2, 99, 0";
        EXPECT_EQ(readFile(folder.path("good.mdl")), modelOf(saved));
        EXPECT_EQ(workBytes(), modelOf(saved));
    }

    /// A model of three geosets the second of which cannot be read.
    static std::string brokenModel() {
        ModelParts parts = threeGeosets();
        parts.geosets[1] = unreadableSquare();
        return modelOf(parts);
    }
};

TEST_F(OpenFailuresTest, AFileThatIsNotThereIsABadFileName) {
    expectNothingChanges([&] {
        open(folder.path("missing.mdl"));
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error", "Bad file name");
    });
}

TEST_F(OpenFailuresTest, AFolderIsABadFileNameWithTheReason) {
    const std::string path = folder.path("folder.mdl");
    std::filesystem::create_directory(path);
    expectNothingChanges([&] {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error", "Bad file name\n" + path + ": Is a directory");
    });
}

TEST_F(OpenFailuresTest, AfterABadFileNameTheDialogStartsFromTheModelThatIsOpen) {
    openGoodModel();
    open(folder.path("missing.mdl"));
    dialogs.asked.clear();
    dialogs.files.push_back(std::nullopt);
    openCommand(editor);
    EXPECT_EQ(dialogs.asked[0].defaultText, folder.path("good.mdl"));
}

TEST_F(OpenFailuresTest, AGeosetThatCannotBeReadIsNamedWithItsFileAndLine) {
    const std::string text = brokenModel();
    const std::string path = folder.write("broken.mdl", text);
    expectNothingChanges([&] {
        open(path, "2");
        ASSERT_EQ(askedKinds(), "open input message");
        expectLast("message", "Error",
                   "Geoset 2 cannot be read.\n" + path + ", line " +
                       lineOf(text, "0, 1, 2, 3, 4, 5, 6, 7") +
                       ": the matrix group has more than 7 matrix indices." + kOpenAdvice);
        EXPECT_EQ(readFile(path), text);
    });
}

TEST_F(OpenFailuresTest, TheOtherGeosetsOfThatModelOpen) {
    folder.write("broken.mdl", brokenModel());
    open(folder.path("broken.mdl"), "3");
    EXPECT_EQ(askedKinds(), "open input");
    EXPECT_EQ(store().geosetNumber, 3);
    EXPECT_EQ(vertex(1).pos, (Triple{0, 0, 3}));
}

TEST_F(OpenFailuresTest, AGeosetWithoutVerticesIsRefused) {
    const std::string text =
        replacedOnce(modelOf({.geosets = {squareAt("5")}}), "\tVertices 4 {", "\tCorners 4 {");
    const std::string path = folder.write("corners.mdl", text);
    expectNothingChanges([&] {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error",
                   "Geoset 1 cannot be read.\n" + path + ", line " + lineOf(text, "Geoset {") +
                       ": the geoset that starts here has no section \"Vertices\"." + kOpenAdvice);
    });
}

// It ends in line 5 by its braces, and would lose its faces without a word.
TEST_F(OpenFailuresTest, AGeosetWithAClosingBraceTooManyIsRefused) {
    const std::string path = folder.write("odd.mdl",
                                          "Geoset {\n"
                                          "\tVertices 1 {\n"
                                          "\t\t{ 0, 0, 0 },\n"
                                          "\t}\n"
                                          "\t}\n"
                                          "\tFaces 1 3 {\n"
                                          "\t\tTriangles {\n"
                                          "\t\t\t{ 0, 0, 0 },\n"
                                          "\t\t}\n"
                                          "\t}\n"
                                          "}\n");
    expectNothingChanges([&] {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error",
                   "Geoset 1 cannot be read.\n" + path +
                       ", line 6: there is a closing brace too many up to here, so that the geoset "
                       "that starts in line 1 ended too early." +
                       kOpenAdvice);
    });
}

TEST_F(OpenFailuresTest, AFileThatEndsInsideASectionIsRefused) {
    const std::string whole = modelOf({.geosets = {squareAt("5")}});
    const std::string text = whole.substr(0, whole.find("\tTVertices") + 20);
    const std::string path = folder.write("cut.mdl", text);
    expectNothingChanges([&] {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error",
                   "Geoset 1 cannot be read.\n" + path + ", line " + lineOf(text, "\tTVertices") +
                       ": the section TVertices that starts here does not end (a closing brace "
                       "\"}\" is missing in its geoset)." +
                       kOpenAdvice);
    });
}

TEST_F(OpenFailuresTest, AWorkingCopyThatCannotBeMadeIsNamedWithTheReason) {
    const std::string text = modelOf(threeGeosets());
    const std::string path = folder.write("hero.mdl", text);
    std::filesystem::create_directory(folder.path("hero_TMP.tdl"));
    expectNothingChanges([&] {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error",
                   "The working copy of the model cannot be made.\n" + folder.path("hero_TMP.tdl") +
                       ": Is a directory\n\nThe file was not opened. The folder must have room and "
                       "let you write: free some space, or copy the model to another folder and "
                       "open it there.");
        EXPECT_EQ(readFile(path), text);
    });
}

// The geoset was picked by then, but nothing of it was taken.
TEST_F(OpenFailuresTest, AWorkingCopyWhosePlaceIsTakenMeanwhileIsNamedWithTheReason) {
    const std::string text = modelOf(threeGeosets());
    const std::string path = folder.write("hero.mdl", text);
    const std::string place = folder.path("hero_TMP.tdl");
    expectNothingChanges([&] {
        dialogs.onInput = [&] { std::filesystem::create_directory(place); };
        open(path, "3");
        dialogs.onInput = nullptr;
        ASSERT_EQ(askedKinds(), "open input message");
        expectLast("message", "Error",
                   "The working copy of the model cannot be made.\n" + place +
                       ": Is a directory\n\nThe file was not opened. The folder must have room and "
                       "let you write: free some space, or copy the model to another folder and "
                       "open it there.");
        EXPECT_EQ(readFile(path), text);
        EXPECT_TRUE(std::filesystem::remove(place)) << "it is still there, and empty";
    });
}

TEST_F(OpenFailuresTest, AModelWhoseWorkingCopyWouldTakeThePlaceOfTheOpenOneIsNotOpened) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    const std::string path = openNew("hero_TMP.tdl", text);
    const std::string other = folder.write("hero.mdl", modelOf(threeGeosets()));
    const Before before = remember();
    for (const bool saves : {false, true}) {
        if (saves) {
            saveAs(other);
        } else {
            open(other);
        }
        EXPECT_EQ(askedKinds(), saves ? "save message" : "open message");
        expectLast("message", "Error",
                   "The working copy of " + other + " would take the place of " + path +
                       ", which is open. Save that model under another name first.");
        expectUnchanged(before);
    }
}

TEST_F(OpenFailuresTest, AWorkingCopyOfAnotherWindowOpensAsAModelOfItsOwn) {
    const std::string text = modelOf({.geosets = {squareAt("5")}});
    open(folder.write("other_TMP.tdl", text));
    EXPECT_EQ(askedKinds(), "open");
    EXPECT_EQ(store().workPath, folder.path("other_TMP_TMP.tdl"));
    EXPECT_EQ(readFile(folder.path("other_TMP.tdl")), text);
}

TEST_F(OpenFailuresTest, AFileThatIsTooLargeIsToldBelow) {
    const std::string large = folder.write("large.mdl", "");
    std::filesystem::resize_file(large, (std::uintmax_t{1} << 30U) + 1);
    open(large);
    expectLast("message", "Error", "Bad file name\n" + large + ": larger than 1024 MiB");
}

TEST_F(OpenFailuresTest, TheWorkingCopyOfTheModelThatIsOpenIsRefused) {
    openGoodModel();
    const Before before = remember();
    open(store().workPath);
    expectLast("message", "Error",
               store().workPath + " is the working copy of the model that is open, " +
                   folder.path("good.mdl") + ". Choose another file.");
    expectUnchanged(before);
}

}  // namespace
}  // namespace corvane
