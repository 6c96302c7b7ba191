// Models that cannot be opened on systems of the Unix kind: pipes, files taken for folders, links.
#include <sys/stat.h>

#include <filesystem>

#include "edit/undo_history.h"
#include "model/commands/merge_geoset.h"
#include "model_flow.h"
#include "test_commands.h"

namespace corvane {
namespace {

class OpenFailuresPosixTest : public ModelFlowTest {
protected:
    /// Opens geoset 2 of a good model, and leaves an edit and an undo step in it.
    void openGoodModel() {
        openNew("good.mdl", modelOf(threeGeosets()), "2");
        pushUndo(editor, {.keepVertices = true}, {}, "Snap");
        vertex(1).pos[0] = 99;
        select({2});
    }
};

TEST_F(OpenFailuresPosixTest, WhatElseIsWrongWithAFileIsToldBelow) {
    const std::string large = folder.write("large.mdl", "");
    std::filesystem::resize_file(large, (std::uintmax_t{1} << 30U) + 1);
    const std::string pipe = folder.path("pipe.mdl");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string below = large + "/below.mdl";
    open(large);
    expectLast("message", "Error", "Bad file name\n" + large + ": larger than 1024 MiB");
    open(pipe);
    expectLast("message", "Error", "Bad file name\n" + pipe + ": not a regular file");
    open(below);
    expectLast("message", "Error", "Bad file name\n" + below + ": Not a directory");
    openNew("good.mdl", modelOf(threeGeosets()), "2");
    dialogs.files.emplace_back(pipe);
    mergeGeoset(editor);
    expectLast("message", "Error", "Bad file name\n" + pipe + ": not a regular file");
}

TEST_F(OpenFailuresPosixTest, TheModelsOwnWorkingCopyCannotBeOpened) {
    openGoodModel();
    std::filesystem::create_symlink(store().workPath, folder.path("link.mdl"));
    const Before before = remember();
    for (const std::string& path : {store().workPath, folder.path("link.mdl")}) {
        open(path);
        ASSERT_EQ(askedKinds(), "open message");
        expectLast("message", "Error",
                   path + " is the working copy of the model that is open, " +
                       folder.path("good.mdl") + ". Choose another file.");
        expectUnchanged(before);
    }
}

}  // namespace
}  // namespace corvane
