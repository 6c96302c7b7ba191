// Memory that runs out during a command, at each of its allocations in turn: files and mesh are
// those of before or those of after, whole, and the user is told which.
#include <functional>

#include "edit/commands/drag_transforms.h"
#include "edit/commands/tools.h"
#include "edit/transforms.h"
#include "editor/way_back.h"
#include "failing_memory.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/replaced_text.h"
#include "model_flow.h"

namespace corvane {
namespace {

using faults::FailingMemory;
using Names = std::vector<std::string>;

// Takes what commands keep, for which memory may run out like for all else.
class ForgetfulWayBack : public WayBack {
public:
    void keep(Snapshot /*snapshot*/, KeptBecause /*because*/) override {}
    void keepReplaced(SharedBase /*text*/, const std::string& /*path*/) override {}
    void noteLost(const char* /*reason*/) override { ++lost; }
    void noteSaved() override {}

    int lost = 0;
};

class MemoryFaultsTest : public ModelFlowTest {
protected:
    ForgetfulWayBack wayBack;

    MemoryFaultsTest() { editor.wayBack = &wayBack; }

    /// Opens geoset 2 of the model "three.mdl", as it was at first, and moves its first vertex.
    std::string openAndEdit() {
        const std::string path = openNew("three.mdl", modelOf(threeGeosets()), "2");
        select({1});
        moveSelection(editor, {1, 2, 4});
        dialogs.asked.clear();
        return path;
    }

    static std::string edited() {
        ModelParts parts = threeGeosets();
        parts.geosets[1].vertices[0] = "6, 1, 2";
        return modelOf(parts);
    }

    /// Runs `prepare`, then `command` with an allocation that fails, then `check`; for each
    /// allocation of the command. Returns how many there are.
    static std::size_t atEachAllocation(const std::function<void()>& prepare,
                                        const std::function<void()>& command,
                                        const std::function<void(bool hasFailed)>& check) {
        for (std::size_t number = 1;; ++number) {
            SCOPED_TRACE("allocation " + std::to_string(number));
            prepare();
            bool hasFailed = false;
            {
                const FailingMemory failing(number);
                command();
                hasFailed = FailingMemory::hasFailed();
            }
            check(hasFailed);
            if (testing::Test::HasFailure() || !hasFailed) return number - 1;
        }
    }

    /// What the command said, without advice: the first line of its only message.
    std::string said() const {
        std::string text;
        for (const auto& asked : dialogs.asked) {
            if (asked.kind == "message") text += asked.text;
        }
        return text.substr(0, text.find("\n\n"));
    }

    const std::string notSaved = "The model was not saved.\nThere is not enough memory.";
    const std::string savedBut = "The model was saved, but then memory ran out.";
    const std::string notRead = "There is not enough memory to read that model.";
    const std::string readBut =
        "The geoset was read, but there is not enough memory to show all of it.";
};

TEST_F(MemoryFaultsTest, ASaveIsWholeOrNotDone) {
    bool wasSaved = false;
    bool wasNotSaved = false;
    const std::size_t allocations = atEachAllocation(
        [&] { openAndEdit(); }, [&] { corvane::save(editor); },
        [&](bool hasFailed) {
            const std::string path = folder.path("three.mdl");
            const bool isNew = readFile(path) == edited();
            EXPECT_TRUE(isNew || readFile(path) == modelOf(threeGeosets()));
            EXPECT_TRUE(said() == notSaved ? !isNew
                                           : isNew && (said().empty() || said() == savedBut))
                << said();
            EXPECT_TRUE(hasFailed || said().empty());
            EXPECT_EQ(store().isModified(), !isNew);
            EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 6}));
            EXPECT_EQ(store().modelPath, path);
            EXPECT_EQ(folder.names(), (Names{"three.mdl", "three_TMP.tdl"}));
            (isNew ? wasSaved : wasNotSaved) = true;
            save();
            EXPECT_EQ(askedKinds(), "");
            EXPECT_EQ(readFile(path), edited());
            EXPECT_EQ(workBytes(), edited());
        });
    EXPECT_GT(allocations, 10U);
    EXPECT_TRUE(wasSaved && wasNotSaved);
}

TEST_F(MemoryFaultsTest, ADeleteWhoseStepCannotBeRecordedIsShown) {
    bool hasThrown = false;
    atEachAllocation([&] { openAndEdit(); },
                     [&] {
                         try {
                             deleteSelection(editor);
                         } catch (const std::bad_alloc&) {
                             hasThrown = true;
                         }
                     },
                     [&](bool /*hasFailed*/) {
                         EXPECT_TRUE(vertex(1).deleted);
                         EXPECT_TRUE(store().isModified());
                     });
    EXPECT_TRUE(hasThrown);
}

TEST_F(MemoryFaultsTest, TheButtonsShowWhetherASaveWasDone) {
    bool isShownModified = false;
    window.onUpdateButtons = [&] { isShownModified = store().isModified(); };
    atEachAllocation([&] { openAndEdit(); }, [&] { corvane::save(editor); },
                     [&](bool /*hasFailed*/) {
                         EXPECT_EQ(isShownModified, store().isModified());
                         save();
                     });
}

TEST_F(MemoryFaultsTest, AReplacedFileThatCannotBeReadIsToldAllTheSame) {
    std::optional<ReplacedFile> replaced;
    const std::size_t allocations = atEachAllocation(
        [&] {
            wayBack.lost = 0;
            replaced.emplace(&wayBack, folder.path(""));
        },
        [&] { replaced->keep(); }, [&](bool /*hasFailed*/) { EXPECT_EQ(wayBack.lost, 1); });
    EXPECT_GT(allocations, 0U);
}

TEST_F(MemoryFaultsTest, ASaveOfAFileWithOtherNamesIsWholeOrNotDone) {
    std::filesystem::path other = folder.path("other.mdl");
    atEachAllocation(
        [&] {
            openAndEdit();
            if (!std::filesystem::exists(other)) {
                std::filesystem::create_hard_link(folder.path("three.mdl"), other);
            }
        },
        [&] { corvane::save(editor); },
        [&](bool /*hasFailed*/) {
            const std::string text = readFile(other.string());
            EXPECT_TRUE(text == edited() || text == modelOf(threeGeosets()));
            EXPECT_EQ(text == edited(), !store().isModified());
            EXPECT_EQ(folder.names(), (Names{"other.mdl", "three.mdl", "three_TMP.tdl"}));
        });
}

TEST_F(MemoryFaultsTest, AModelIsOpenAsAWholeOrNotAtAll) {
    ModelParts parts = threeGeosets();
    parts.geosets = {squareAt("7"), triangleAt("9")};
    folder.write("new.mdl", modelOf(parts));
    bool wasOpened = false;
    bool wasNotOpened = false;
    std::optional<Before> before;
    atEachAllocation(
        [&] {
            openAndEdit();
            before.emplace(remember());
            dialogs.files = {folder.path("new.mdl")};
            dialogs.inputs = {"2"};
        },
        [&] { openCommand(editor); },
        [&](bool hasFailed) {
            dialogs.files.clear();
            dialogs.inputs.clear();
            const bool isOpen = store().modelPath == folder.path("new.mdl");
            (isOpen ? wasOpened : wasNotOpened) = true;
            EXPECT_TRUE(said() == notRead ? !isOpen
                                          : isOpen && (said().empty() || said() == readBut))
                << said();
            EXPECT_TRUE(hasFailed || said().empty());
            if (!isOpen) {
                expectUnchanged(*before);
                save();
                EXPECT_EQ(modelBytes(), edited());
                return;
            }
            EXPECT_EQ(store().Vertices.size(), 3U);
            EXPECT_EQ(store().geosetNumber, 2);
            EXPECT_FALSE(store().isModified());
            EXPECT_FALSE(hasUndoStep());
            EXPECT_EQ(folder.names(), (Names{"new.mdl", "new_TMP.tdl", "three.mdl"}));
            EXPECT_EQ(workBytes(), modelOf(parts));
            save();
            EXPECT_EQ(modelBytes(), modelOf(parts));
        });
    EXPECT_TRUE(wasOpened && wasNotOpened);
}

TEST_F(MemoryFaultsTest, SwitchingReadsTheGeosetOrLeavesTheOldOne) {
    std::optional<Before> before;
    atEachAllocation(
        [&] {
            openAndEdit();
            before.emplace(remember());
            dialogs.inputs = {"3"};
        },
        [&] { switchGeoset(editor); },
        [&](bool hasFailed) {
            dialogs.inputs.clear();
            const bool isRead = store().geosetNumber == 3;
            EXPECT_TRUE(said() == notRead ? !isRead
                                          : isRead && (said().empty() || said() == readBut))
                << said();
            EXPECT_TRUE(hasFailed || said().empty());
            if (!isRead) expectUnchanged(*before);
            EXPECT_EQ(store().isModified(), !isRead);
        });
}

TEST_F(MemoryFaultsTest, AMergeIsDoneAsAWholeOrNotAtAll) {
    folder.write("other.mdl", modelOf({.geosets = {triangleAt("9")}}));
    std::optional<Before> before;
    atEachAllocation(
        [&] {
            openAndEdit();
            before.emplace(remember());
            dialogs.files = {folder.path("other.mdl")};
        },
        [&] { mergeGeoset(editor); },
        [&](bool hasFailed) {
            dialogs.files.clear();
            const bool isMerged = store().Vertices.size() == before->geoset.Vertices.size() + 3;
            EXPECT_EQ(said().empty(), !hasFailed) << said();
            if (isMerged) {
                EXPECT_EQ(store().Faces.size(), before->geoset.Faces.size() + 1);
                EXPECT_NE(said().find("was merged, but"), hasFailed ? std::string::npos : 0)
                    << said();
            } else {
                EXPECT_EQ(static_cast<const Geoset&>(store()), before->geoset);
                EXPECT_EQ(said().find("was merged, but"), std::string::npos);
            }
            EXPECT_EQ(modelBytes(), before->modelBytes);
        });
}

TEST_F(MemoryFaultsTest, WhatWasDeletedCountsThoughItsStepCannotBeRecorded) {
    int failures = 0;
    const std::size_t allocations =
        atEachAllocation([&] { openAndEdit(); },
                         [&] {
                             try {
                                 deleteSelection(editor);
                             } catch (const std::bad_alloc&) {
                                 ++failures;
                             }
                         },
                         [&](bool hasFailed) {
                             EXPECT_TRUE(vertex(1).deleted);
                             EXPECT_FALSE(vertex(2).deleted);
                             EXPECT_TRUE(store().isModified());
                             const std::string step = editor.undo.slots.front().name;
                             EXPECT_TRUE(step == "Delete" || hasFailed) << step;
                         });
    EXPECT_GT(allocations, 0U);
    EXPECT_GT(failures, 0);
}

TEST_F(MemoryFaultsTest, AGeosetIsRemovedOrNot) {
    std::optional<Before> before;
    atEachAllocation(
        [&] {
            openAndEdit();
            before.emplace(remember());
            dialogs.yesNos = {true};
        },
        [&] {
            try {
                deleteCurrentGeoset(editor);
            } catch (const std::bad_alloc&) {
                // in its question; the window tells of that
            }
        },
        [&](bool hasFailed) {
            dialogs.yesNos.clear();
            if (store().isGeosetRemoved()) {
                EXPECT_NE(workBytes(), before->workBytes);
                return;
            }
            EXPECT_TRUE(hasFailed);
            expectUnchanged(*before);
        });
}

// Memory is what the part holds as soon as the part is there.
TEST_F(MemoryFaultsTest, AGeosetIsSavedAloneOrStaysWithItsModel) {
    bool wasSaved = false;
    bool wasNotSaved = false;
    atEachAllocation(
        [&] {
            openAndEdit();
            std::filesystem::remove(folder.path("part.mdl"));
            dialogs.files = {folder.path("part.mdl")};
        },
        [&] { saveGeoset(editor); },
        [&](bool hasFailed) {
            dialogs.files.clear();
            const bool isSaved = std::filesystem::exists(folder.path("part.mdl"));
            EXPECT_TRUE(hasFailed || isSaved);
            EXPECT_EQ(store().geosetNumber, isSaved ? 1 : 2);
            EXPECT_EQ(store().isModified(), !isSaved);
            EXPECT_EQ(vertex(1).pos, (Triple{1, 2, 6}));
            (isSaved ? wasSaved : wasNotSaved) = true;
            if (!isSaved) return;
            EXPECT_EQ(store().matrixGroups.size(), 1U);
            const std::string part = readFile(folder.path("part.mdl"));
            save();
            EXPECT_EQ(readFile(folder.path("part.mdl")), part);
        });
    EXPECT_TRUE(wasSaved && wasNotSaved);
}

}  // namespace
}  // namespace corvane
