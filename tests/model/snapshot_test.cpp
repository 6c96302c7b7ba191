#include "model/snapshot.h"

#include <gtest/gtest.h>

#include "editor_fixture.h"
#include "model/geoset_reader.h"
#include "model/geoset_store.h"
#include "model_texts.h"

namespace corvane {
namespace {

constexpr const char* kModel =
    "Version {\n\tFormatVersion 800,\n}\n"
    "Geoset {\n\tVertices 3 {\n\t\t{ 0, 0, 0 },\n\t\t{ 1, 0, 0 },\n\t\t{ 0, 1, 0 },\n\t}\n"
    "\tTVertices 3 {\n\t\t{ 0, 0 },\n\t\t{ 1, 0 },\n\t\t{ 0, 1 },\n\t}\n"
    "\tTangents 3 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 1, 0, 0, 1 },\n\t}\n"
    "\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n\t}\n}\n";

class SnapshotTest : public testing::Test {
protected:
    TempFolder folder;
    GeosetStore store;

    void SetUp() override {
        const std::string path = folder.write("hero.mdl", kModel);
        FileStamp stamp;
        auto base = std::make_shared<const ModelBase>(readModelFile(path, &stamp));
        PendingFile workingCopy = prepareWorkingCopy(path, base->text.view());
        store.open(path, base, stamp, workingCopy);
        store.takeGeoset(parseGeoset(base->text, base->geosets, 1), 1);
    }
    void TearDown() override { store.close(); }
};

TEST_F(SnapshotTest, HoldsTheModelWhateverIsEditedAfterwards) {
    const Snapshot snapshot = snapshotOf(store);
    store.Vertices[0].deleted = true;
    store.Faces[0].deleted = true;
    EXPECT_EQ(composeSnapshot(snapshot).joined(), kModel);
    EXPECT_EQ(snapshot.modelPath, store.modelPath);
    EXPECT_EQ(snapshot.stamp, stampOf(store.modelPath));
    EXPECT_EQ(snapshot.geosetNumber, 1);
}

TEST_F(SnapshotTest, IsOfTheFileThatTheModelCameFromWhereverASaveWouldGo) {
    const std::string path = store.modelPath;
    store.modelPath = path + "other";
    EXPECT_EQ(snapshotOf(store).modelPath, path);
    EXPECT_EQ(snapshotOf(store).stamp, stampOf(path));
}

TEST_F(SnapshotTest, WithoutADeletedVertexHasTheRowsThatCannotFollowAsTheyWereRead) {
    const std::string rows = "\tTangents 3 {\n\t\t{ 1, 0, 0, 1 },\n\t\t5,\n\t}\n";
    std::string model = kModel;
    const std::size_t begin = model.find("\tTangents");
    model.replace(begin, model.find("\tFaces") - begin, rows);
    Snapshot snapshot = snapshotOf(store);
    snapshot.base = std::make_shared<const ModelBase>(ModelText("hero.mdl", model));
    snapshot.geoset = parseGeoset(snapshot.base->text, snapshot.base->geosets, 1);
    snapshot.geoset.Vertices[0].deleted = true;
    const std::string text = composeSnapshot(snapshot).joined();
    EXPECT_NE(text.find(rows), std::string::npos) << text;
    EXPECT_NE(text.find("\tVertices 2 {\n\t\t{ 1, 0, 0 },\n\t\t{ 0, 1, 0 },\n\t}\n"),
              std::string::npos)
        << text;
}

TEST_F(SnapshotTest, OfATextWithoutThatGeosetIsTheText) {
    Snapshot snapshot = snapshotOf(store);
    snapshot.geosetNumber = 2;
    EXPECT_EQ(composeSnapshot(snapshot).joined(), kModel);
    snapshot.geosetNumber = 0;
    EXPECT_EQ(composeSnapshot(snapshot).joined(), kModel);
}

TEST_F(SnapshotTest, TakesTextureCoordinatesAsFarAsBothReach) {
    Snapshot snapshot = snapshotOf(store);
    mergeTexture(snapshot, std::vector<double>{0.5, 0.25}, std::vector<double>{0.75, 0.125, 7, 8});
    EXPECT_EQ(snapshot.geoset.Vertices[0].tu, 0.5);
    EXPECT_EQ(snapshot.geoset.Vertices[1].tv, 0.125);
    EXPECT_EQ(snapshot.geoset.Vertices[2], store.Vertices[2]);
    EXPECT_EQ(store.Vertices[0].tu, 0);
}

TEST_F(SnapshotTest, SharesWhatNeverChanges) {
    const Snapshot snapshot = snapshotOf(store);
    ASSERT_EQ(store.rowSections.size(), 1U);
    EXPECT_EQ(&snapshot.geoset.rowSections[0], &store.rowSections[0]);
    EXPECT_EQ(snapshot.base, store.sharedBase());
    store.rowSections.push_back(store.rowSections[0]);
    EXPECT_EQ(store.rowSections.size(), 2U);
    EXPECT_EQ(snapshot.geoset.rowSections.size(), 1U);
}

TEST_F(SnapshotTest, ATextThatNoFileHoldsIsUnsavedUntilItIsWritten) {
    store.noteTextUnsaved();
    EXPECT_TRUE(store.isModified());
    store.takeGeoset(store, 1);
    EXPECT_TRUE(store.isModified());
    store.savePath = store.modelPath;
    store.writeAsItIs();
    EXPECT_FALSE(store.isModified());
}

}  // namespace
}  // namespace corvane
