// The name that Save Geoset proposes where names are bytes of any kind.
#include "model/commands/save_model.h"
#include "model_flow.h"

namespace corvane {
namespace {

class SaveGeosetNamePosixTest : public ModelFlowTest {};

TEST_F(SaveGeosetNamePosixTest, LeavesNamesOfOtherEncodingsAlone) {
    openNew("h\xE9ro \xC3\xBC.mdl", modelOf({.geosets = {squareAt("1")}}));
    dialogs.files.emplace_back(std::nullopt);
    saveGeoset(editor);
    EXPECT_EQ(dialogs.last().kind, "save");
    EXPECT_EQ(dialogs.last().defaultText, folder.path("h\xE9ro \xC3\xBC-geoset1.mdl"));
}

}  // namespace
}  // namespace corvane
