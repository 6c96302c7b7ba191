#include "edit/selection.h"

#include "editor_fixture.h"

namespace corvane {
namespace {

using SelectionTest = EditorTest;

TEST_F(SelectionTest, CentreIsTheMeanAndLeavesOutDeletedVertices) {
    loadVertices({{1, 0, 0}, {4, 3, 0}, {100, 100, 100}});
    select({1, 2, 3});
    vertex(3).deleted = true;
    EXPECT_EQ(selectionCentre(store()), (Triple{2.5, 1.5, 0}));
    EXPECT_EQ(numSelVerts(store()), 3);
}

}  // namespace
}  // namespace corvane
