// How texture coordinates come back to the geoset, and what protects those that are there.
#include "edit/clone.h"
#include "edit/undo_history.h"
#include "model/commands/open_model.h"
#include "test_commands.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

class SaveChangesTest : public UVTest {
protected:
    /// Reads another geoset into the store, with these texture coordinates.
    void readGeoset(const std::vector<std::pair<double, double>>& coordinates, int number) {
        Geoset geoset;
        for (const auto& [u, v] : coordinates) {
            VertexRecord vertex;
            vertex.tu = u;
            vertex.tv = v;
            geoset.Vertices.push_back(vertex);
        }
        takeIntoStore(editor, std::move(geoset), number);
    }

    /// Records a step that keeps the vertices as they are, as tools do before they change them.
    void recordVertices() { pushUndo(editor, {.keepVertices = true}, {}, "Mirror"); }
};

TEST_F(SaveChangesTest, EveryVertexIsWrittenSelectedOrDeletedOrNot) {
    loadTextureVertices({{0, 0}, {0.25, 0.25}, {0.5, 0.5}});
    select({1});
    vertex(2).deleted = true;
    handOver();
    uvSelectAll(uv);
    uvMove(uv, 1, 2);
    uvInvertSelection(uv);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{1, 1.25, 1.5}));
    EXPECT_EQ(tv(), (Values{2, 2.25, 2.5}));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(SaveChangesTest, NothingButTextureCoordinatesGoesBack) {
    loadTextureVertices({{0, 0}, {0.25, 0.25}, {0.5, 0.5}});
    addFace(0, 1, 2);
    select({1});
    handOver();
    Geoset expected = store();
    for (VertexRecord& each : expected.Vertices) each.tu += 1;
    uvSelectAll(uv);
    uvMove(uv, 1, 0);
    saveChanges(uv, editor);
    EXPECT_TRUE(static_cast<const Geoset&>(store()) == expected);
    EXPECT_EQ(uv.data.u, (Values{1, 1.25, 1.5}));
    EXPECT_EQ(selected(), (std::vector<int>{1, 2, 3}));
}

TEST_F(SaveChangesTest, NoStepIsRecordedAndTheViewsAreNotRedrawn) {
    edit({{0, 0}}, {1});
    front.circle(0, 0, 1, kRed);
    uvMove(uv, 1, 0);
    saveChanges(uv, editor);
    EXPECT_FALSE(editor.undo.slots.front().valid);
    EXPECT_EQ(front.primitives().size(), 1U);
}

TEST_F(SaveChangesTest, TheModelCountsAsChangedOnlyWhereACoordinateIsAnother) {
    edit({{0, 0.5}}, {1});
    saveChanges(uv, editor);
    EXPECT_FALSE(store().isModified());
    uvMove(uv, 0, 0.25);
    EXPECT_FALSE(store().isModified());
    EXPECT_TRUE(uv.unsaved);
    saveChanges(uv, editor);
    EXPECT_TRUE(store().isModified());
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(SaveChangesTest, TheListsNeedNotBeOfOneLength) {
    loadTextureVertices({{0, 0}, {0, 0}, {0, 0}});
    EXPECT_EQ(saveUVChanges(editor, Values{1, 2}, Values{3, 4, 5, 6}), 2U);
    EXPECT_EQ(tu(), (Values{1, 2, 0}));
    EXPECT_EQ(tv(), (Values{3, 4, 0}));
    EXPECT_EQ(saveUVChanges(editor, Values{}, Values{}), 0U);
    EXPECT_EQ(tu(), (Values{1, 2, 0}));
}

TEST_F(SaveChangesTest, AGeosetThatGrewGetsWhatThereIsAndAMessage) {
    edit({{0, 0}, {0.5, 0.5}}, {1, 2});
    store().Vertices.resize(3);
    vertex(3).tu = 9;
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{1, 1.5, 9}));
    EXPECT_EQ(dialogs.last().title, "Warning");
    EXPECT_EQ(dialogs.last().text,
              "The geoset has 3 vertices now, but had 2 when its texture coordinates were taken. "
              "The first 2 were written back. Choose UV Mapping in the main window to take them "
              "anew.");
}

TEST_F(SaveChangesTest, AGeosetThatShrankGetsWhatFitsAndAMessage) {
    edit({{0, 0}, {0.5, 0.5}}, {1, 2});
    store().Vertices.resize(1);
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), Values{1});
    EXPECT_EQ(uv.data.u, (Values{1, 1.5})) << "the editor keeps its lists";
    EXPECT_EQ(dialogs.last().text,
              "The geoset has 1 vertex now, but had 2 when its texture coordinates were taken. "
              "The first 1 were written back. Choose UV Mapping in the main window to take them "
              "anew.");
}

TEST_F(SaveChangesTest, AnotherGeosetOfEqualSizeIsWrittenOnlyWhenTheUserSaysSo) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    store().modelPath = "/models/hero.mdl";
    uvMove(uv, 1, 1);
    readGeoset({{7, 8}, {9, 10}}, 2);
    dialogs.yesNos = {false};
    saveChanges(uv, editor);
    EXPECT_EQ(dialogs.last().title, "Warning");
    EXPECT_EQ(dialogs.last().text,
              "A geoset was read since these texture coordinates were taken: geoset 2 of "
              "/models/hero.mdl. It has 2 vertices too, so saving writes them over its own. Write "
              "them?");
    EXPECT_EQ(tu(), (Values{7, 9}));
    EXPECT_FALSE(store().isModified());
    EXPECT_TRUE(uv.unsaved);
    dialogs.yesNos = {true};
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{1, 0.5}));
    EXPECT_EQ(tv(), (Values{1, 0.5}));
    EXPECT_FALSE(uv.unsaved);
}

TEST_F(SaveChangesTest, AfterAHandOverOfTheOtherGeosetThereIsNoQuestion) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    readGeoset({{7, 8}, {9, 10}}, 2);
    handOver();
    uvSelectAll(uv);
    uvMove(uv, 1, 0);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{8, 10}));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(SaveChangesTest, AnotherGeosetOfAnotherSizeIsWrittenOnlyWhenTheUserSaysSo) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    readGeoset({{7, 8}, {9, 10}, {11, 12}}, 2);
    dialogs.yesNos.push_back(false);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{7, 9, 11}));
    EXPECT_TRUE(dialogs.last().text.ends_with(
        "It has 3 vertices, theirs had 2: saving writes the first 2 over its own. Write them?"))
        << dialogs.last().text;
    dialogs.yesNos.push_back(true);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{0, 0.5, 11}));
    EXPECT_EQ(uv.data.u, (Values{0, 0.5, 11})) << "both sides are one again";
    EXPECT_EQ(selected(), std::vector<int>{1});
    dialogs.asked.clear();
    saveChanges(uv, editor);
    EXPECT_TRUE(dialogs.asked.empty()) << "the question is not asked twice";
}

TEST_F(SaveChangesTest, TheSameGeosetReadAgainIsOfOtherVertices) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    readGeoset({{0, 0}, {0.5, 0.5}}, 1);
    dialogs.yesNos.push_back(true);
    saveChanges(uv, editor);
    dialogs.asked.clear();
    saveChanges(uv, editor);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(SaveChangesTest, AListThatWasCutAndGrewAgainIsOfOtherVertices) {
    loadTextureVertices({{0, 0}, {0.5, 0.5}});
    window.onUpdateButtons = [this] { noteEdits(uv, editor); };
    select({1});
    corvane::edit<"Clone", cloneSelected>(editor);
    handOver();
    EXPECT_EQ(uv.data.u.size(), 3U);
    undoLast(editor);
    select({2});
    corvane::edit<"Clone", cloneSelected>(editor);
    ASSERT_EQ(store().Vertices.size(), 3U);
    dialogs.yesNos.push_back(false);
    saveChanges(uv, editor);
    EXPECT_EQ(dialogs.last().kind, "yesno");
    EXPECT_NE(dialogs.last().text.find("from vertex 3 on they belong to others"), std::string::npos)
        << dialogs.last().text;
    EXPECT_EQ(tu(), (Values{0, 0.5, 0.5}));
    dialogs.yesNos.push_back(true);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{0, 0.5, 0}));
}

TEST_F(SaveChangesTest, CoordinatesThatUndoTookBackAreNotLostWithTheNextHandOver) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    recordVertices();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{1, 0.5}));
    undoLast(editor);
    EXPECT_EQ(tu(), (Values{0, 0.5}));
    dialogs.yesNos = {false};
    handOver();
    EXPECT_EQ(dialogs.last().title, "Confirmation");
    EXPECT_EQ(dialogs.last().text,
              "Undo has put back texture coordinates from before Save Changes. Take these, and "
              "lose those in the texture editor? (No keeps them; Save Changes then writes them "
              "again.)");
    EXPECT_EQ(uv.data.u, (Values{1, 0.5}));
    saveChanges(uv, editor);
    EXPECT_EQ(tu(), (Values{1, 0.5}));
}

TEST_F(SaveChangesTest, CoordinatesHandedOverAgainAreNotLostEither) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    recordVertices();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    handOver();
    undoLast(editor);
    dialogs.yesNos = {false};
    handOver();
    EXPECT_EQ(uv.data.u, (Values{1, 0.5}));
    EXPECT_EQ(dialogs.asked.size(), 1U);
}

TEST_F(SaveChangesTest, CoordinatesWrittenToAnotherGeosetAreNotLostEither) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    readGeoset({{7, 8}, {9, 10}}, 2);
    recordVertices();
    dialogs.yesNos = {true};
    saveChanges(uv, editor);
    undoLast(editor);
    EXPECT_EQ(tu(), (Values{7, 9}));
    dialogs.yesNos = {false};
    handOver();
    EXPECT_EQ(uv.data.u, (Values{0, 0.5}));
}

TEST_F(SaveChangesTest, CoordinatesThatUndoTookBackCountAsUnsaved) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    recordVertices();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    noteEdits(uv, editor);
    EXPECT_FALSE(uv.unsaved);
    EXPECT_EQ(window.notice, "");
    undoLast(editor);
    noteEdits(uv, editor);
    EXPECT_TRUE(uv.unsaved);
    EXPECT_EQ(window.notice,
              "Undo took back texture coordinates, too. Save Changes in the texture editor writes "
              "them again.");
    EXPECT_EQ(uvWindow.notice,
              "Undo in the main window took these back. Save Changes writes them again.");
    saveChanges(uv, editor);
    EXPECT_EQ(window.notice, "");
    EXPECT_EQ(uvWindow.notice, "");
    noteEdits(uv, editor);
    EXPECT_FALSE(uv.unsaved);
    EXPECT_EQ(tu(), (Values{1, 0.5}));
}

TEST_F(SaveChangesTest, WhatUndoTookBackIsNotSaidOfAnotherGeoset) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    recordVertices();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    undoLast(editor);
    noteEdits(uv, editor);
    EXPECT_NE(window.notice, "");
    readGeoset({{7, 8}, {9, 10}}, 2);
    noteEdits(uv, editor);
    EXPECT_EQ(window.notice, "");
    EXPECT_EQ(uvWindow.notice, "");
}

TEST_F(SaveChangesTest, OneOfTheTwoCoordinatesIsEnoughToCountAsUnsavedAndToAsk) {
    for (const auto& [du, dv] : {std::pair(1.0, 0.0), std::pair(0.0, 1.0)}) {
        SCOPED_TRACE(du);
        readGeoset({{0, 0}, {0.5, 0.5}}, 1);
        store().modelLoaded = true;
        select({1});
        handOver();
        recordVertices();
        uvMove(uv, du, dv);
        saveChanges(uv, editor);
        undoLast(editor);
        const int before = uvWindow.buttonUpdates;
        noteEdits(uv, editor);
        EXPECT_TRUE(uv.unsaved);
        EXPECT_EQ(uvWindow.buttonUpdates, before + 1) << "its title is marked";
        noteEdits(uv, editor);
        EXPECT_EQ(uvWindow.buttonUpdates, before + 1);
        dialogs.yesNos = {false};
        handOver();
        EXPECT_EQ(uv.data.u, (Values{du, 0.5}));
        EXPECT_EQ(uv.data.v, (Values{dv, 0.5}));
    }
}

TEST_F(SaveChangesTest, WhatWasNeverWrittenIsNotTakenForUndone) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    editor.store.Vertices.pop_back();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);  // one of two
    editor.store.Vertices.emplace_back().tu = 9;
    dialogs.asked.clear();
    handOver();
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(uv.data.u, (Values{1, 9}));
}

TEST_F(SaveChangesTest, CoordinatesThatUndoPutBackAreTakenWhenTheUserSaysSo) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    recordVertices();
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    undoLast(editor);
    dialogs.yesNos = {true};
    handOver();
    EXPECT_EQ(uv.data.u, (Values{0, 0.5}));
    dialogs.asked.clear();
    handOver();
    EXPECT_TRUE(dialogs.asked.empty()) << "asked once";
}

TEST_F(SaveChangesTest, AnUndoThatLeavesTextureCoordinatesAloneAsksNothing) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    recordVertices();
    undoLast(editor);
    uvMove(uv, 1, 1);  // not saved, so it may go
    handOver();
    EXPECT_EQ(uv.data.u, (Values{1, 0.5}));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(SaveChangesTest, AnotherGeosetIsHandedOverWithoutAQuestionAboutUndo) {
    edit({{0, 0}, {0.5, 0.5}}, {1});
    uvMove(uv, 1, 1);
    saveChanges(uv, editor);
    readGeoset({{7, 8}, {9, 10}}, 2);
    handOver();
    EXPECT_EQ(uv.data.u, (Values{7, 9}));
    EXPECT_TRUE(dialogs.asked.empty());
}

}  // namespace
}  // namespace corvane
