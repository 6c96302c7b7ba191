// The name that Save Geoset proposes.
#include "model/commands/save_model.h"
#include "model_flow.h"

namespace corvane {
namespace {

class SaveGeosetNameTest : public ModelFlowTest {
protected:
    /// The path that the dialog starts with.
    std::string proposed() {
        dialogs.files.emplace_back(std::nullopt);
        saveGeoset(editor);
        EXPECT_EQ(dialogs.last().kind, "save");
        EXPECT_EQ(dialogs.last().title, "Save Geoset");
        EXPECT_EQ(dialogs.last().text, "Warcraft III MDL|*.mdl");
        return dialogs.last().defaultText;
    }
};

TEST_F(SaveGeosetNameTest, IsTheModelsWithTheGeosetsNumber) {
    openNew("hero.mdl", modelOf(threeGeosets()), "2");
    EXPECT_EQ(proposed(), folder.path("hero-geoset2.mdl"));
}

TEST_F(SaveGeosetNameTest, IsThatOfNoFile) {
    openNew("hero.v2.mdl", modelOf(threeGeosets()), "3");
    folder.write("hero.v2-geoset3.mdl", "a part");
    EXPECT_EQ(proposed(), folder.path("hero.v2-geoset3-2.mdl"));
    std::filesystem::create_directory(folder.path("hero.v2-geoset3-2.mdl"));
    EXPECT_EQ(proposed(), folder.path("hero.v2-geoset3-3.mdl"));
}

}  // namespace
}  // namespace corvane
