// No step of Undo is left out of the fuzzed sessions, and every one is undone.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "edit/undo_steps.h"
#include "editor_fixture.h"
#include "fuzz_session.h"
#include "test_models.h"

namespace corvane {
namespace {

// What a rotation's step is called goes on with its axis.
std::string kindOf(const std::string& step) {
    return step.starts_with("Rotate ") ? "Rotate" : step;
}

// A turn by an angle and back misses the old numbers by their last digits; a new scaling after one
// with equal numbers enlarges again.
bool isUndoneExactly(const std::string& kind) { return kind != "Rotate" && kind != "Scale"; }

TEST(FuzzEdits, EveryStepIsAmongThemAndIsUndone) {
    const TempFolder folder;
    const std::string path = folder.write("square.mdl", modelOf({.geosets = {squareAt("5")}}));
    std::set<std::string> kinds;
    for (const FuzzEditOutcome& outcome : playEveryFuzzEdit(path)) {
        if (outcome.step.empty()) continue;
        const std::string kind = kindOf(outcome.step);
        kinds.insert(kind);
        EXPECT_TRUE(outcome.undone || !isUndoneExactly(kind))
            << "the edit '" << outcome.letter << "' (" << kind << ") is not undone";
    }
    for (const StepKind& kind : kStepKinds) {
        EXPECT_TRUE(kinds.contains(std::string(kind.name)) || kind.name == "Select All" ||
                    kind.name == "Selection")
            << "no edit of the table kEdits in fuzz_session.cpp takes the step " << kind.name;
    }
}

TEST(UndoSteps, HaveNamesOfTheirOwn) {
    std::set<std::string_view> names;
    for (const StepKind& kind : kStepKinds) {
        EXPECT_FALSE(kind.name.empty());
        EXPECT_TRUE(names.insert(kind.name).second) << kind.name;
    }
}

// What is put back must have been kept, and what changes the model must be put back somehow.
TEST(UndoSteps, KeepWhatPutsThemBack) {
    for (const StepKind& kind : kStepKinds) {
        const UndoCopies& keeps = kind.keeps;
        const bool keepsAny = keeps.keepFaces || keeps.keepVertices || keeps.keepSelection;
        EXPECT_EQ(kind.undoneBy == UndoneBy::Copies, keepsAny) << kind.name;
    }
}

}  // namespace
}  // namespace corvane
