// What is kept of texture coordinates that Save Changes has not written yet.
#include "model/commands/open_model.h"
#include "test_commands.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

class UnsavedTextureTest : public UVTest {
protected:
    void SetUp() override {
        edit({{0, 0}, {0.5, 0.5}}, {2});
        uvMove(uv, 1, 2);
    }

    static Values tuOf(const Snapshot& snapshot) {
        Values values;
        for (const VertexRecord& vertex : snapshot.geoset.Vertices) values.push_back(vertex.tu);
        return values;
    }
};

TEST_F(UnsavedTextureTest, GoesWithTheMeshThatItBelongsTo) {
    Snapshot mesh = snapshotOf(store());
    EXPECT_TRUE(addUnsavedTexture(uv, store(), mesh));
    EXPECT_EQ(tuOf(mesh), (Values{0, 1.5}));
    ASSERT_TRUE(unsavedTexture(uv, store()).has_value());
    EXPECT_EQ(tuOf(*unsavedTexture(uv, store())), (Values{0, 1.5}));
    EXPECT_EQ(tu(), (Values{0, 0.5})) << "the geoset itself is as it was";
}

TEST_F(UnsavedTextureTest, GoesWithTheMeshThatLeftMemory) {
    Snapshot mesh = snapshotOf(store());
    addUnsavedTexture(uv, store(), mesh);
    takeIntoStore(editor, Geoset(store()), 2);
    Snapshot other = snapshotOf(store());
    EXPECT_FALSE(addUnsavedTexture(uv, store(), other)) << "of another geoset";
    EXPECT_EQ(tuOf(other), (Values{0, 0.5}));
    ASSERT_TRUE(unsavedTexture(uv, store()).has_value());
    EXPECT_EQ(tuOf(*unsavedTexture(uv, store())), (Values{0, 1.5}));
    EXPECT_EQ(unsavedTexture(uv, store())->geosetNumber, mesh.geosetNumber);
}

TEST_F(UnsavedTextureTest, ThatWasNeverTakenOrIsSavedIsNotKept) {
    saveChanges(uv, editor);
    Snapshot mesh = snapshotOf(store());
    EXPECT_FALSE(addUnsavedTexture(uv, store(), mesh));
    EXPECT_FALSE(unsavedTexture(uv, store()).has_value());
    uv.dataReceived = false;
    uv.unsaved = true;
    EXPECT_FALSE(addUnsavedTexture(uv, store(), mesh));
    uv.leftMesh.reset();
    takeIntoStore(editor, Geoset(store()), 2);
    EXPECT_FALSE(unsavedTexture(uv, store()).has_value()) << "whose mesh nobody has";
}

}  // namespace
}  // namespace corvane
