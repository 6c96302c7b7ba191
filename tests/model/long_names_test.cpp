// Models with names as long as a file system takes, whose working copy would have a longer one.
#include "edit/commands/drag_transforms.h"
#include "edit/transforms.h"
#include "model/commands/open_model.h"
#include "model/commands/save_model.h"
#include "model_flow.h"

namespace corvane {
namespace {

using Names = std::vector<std::string>;

std::string nameOf(std::size_t bytes) { return std::string(bytes - 4, 'n') + ".mdl"; }

class LongNamesTest : public ModelFlowTest, public testing::WithParamInterface<std::size_t> {
protected:
    std::string name = nameOf(GetParam());
    std::string path = folder.path(name);
    bool hasWorkingCopy = GetParam() <= 251;

    Names expectedNames() const {
        Names names = {name};
        if (hasWorkingCopy) names.push_back(name.substr(0, name.size() - 4) + "_TMP.tdl");
        std::ranges::sort(names);
        return names;
    }

    static std::string edited() {
        ModelParts parts = threeGeosets();
        parts.geosets[1].vertices[0] = "6, 1, 2";
        return modelOf(parts);
    }
};

TEST_P(LongNamesTest, TheModelOpensSavesAndCloses) {
    openNew(name, modelOf(threeGeosets()), "2");
    EXPECT_TRUE(store().modelLoaded);
    EXPECT_EQ(store().workPath, path.substr(0, path.size() - 4) + "_TMP.tdl");
    EXPECT_EQ(folder.names(), expectedNames());
    select({1});
    moveSelection(editor, {1, 2, 4});
    save();
    EXPECT_EQ(askedKinds(), "");
    EXPECT_EQ(readFile(path), edited());
    EXPECT_FALSE(store().isModified());
    EXPECT_EQ(folder.names(), expectedNames());
    deleteGeoset();
    EXPECT_EQ(askedKinds(), "yesno");
    EXPECT_TRUE(store().isGeosetRemoved());
    closeModel(editor);
    EXPECT_EQ(folder.names(), Names{name});
}

TEST_P(LongNamesTest, SaveAsTakesTheName) {
    openNew("a.mdl", modelOf(threeGeosets()), "2");
    saveAs(path);
    EXPECT_EQ(askedKinds(), "save");
    EXPECT_EQ(readFile(path), modelOf(threeGeosets()));
    Names expected = expectedNames();
    expected.insert(expected.begin(), "a.mdl");
    EXPECT_EQ(folder.names(), expected) << "the former working copy is gone";
}

INSTANTIATE_TEST_SUITE_P(Bytes, LongNamesTest, testing::Range(std::size_t{250}, std::size_t{256}));

class TooLongNameTest : public ModelFlowTest {};

TEST_F(TooLongNameTest, IsToldAndNothingIsLost) {
    openNew("a.mdl", modelOf(threeGeosets()), "2");
    const std::string path = folder.path(nameOf(256));
    saveAs(path);
    EXPECT_EQ(askedKinds(), "save message");
    EXPECT_TRUE(dialogs.last().text.starts_with("The model was not saved.\n" + path +
                                                ": File name too long\n\nNo file was written"))
        << dialogs.last().text;
    EXPECT_EQ(folder.names(), (Names{"a.mdl", "a_TMP.tdl"}));
    open(path);
    expectLast("message", "Error", "Bad file name\n" + path + ": File name too long");
}

}  // namespace
}  // namespace corvane
