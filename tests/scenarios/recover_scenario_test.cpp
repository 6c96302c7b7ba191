// What was not saved comes back by File, Recover.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

class RecoverScenario : public ScenarioTest {
protected:
    std::vector<std::string> environment() const { return {"CORVANE_KEPT=" + folder.path("kept")}; }

    // Opens the model and moves its selected vertices.
    const std::string openAndEdit =
        "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n"
        "menu mnuSelectAll\npress cmdMove\ndrag pbxFront right 100 100 120 100\n";
};

TEST_F(RecoverScenario, AClosedModelIsOpenedAgainUnsaved) {
    const std::string path = folder.write("hero.mdl", squareModel());
    const Played closed = playAll(openAndEdit + "dump\nclose\n", environment());
    EXPECT_EQ(readFile(path), squareModel());
    const Played back = playAll(R"(
menu mnuRecover
window recover
press cmdRecoverOpen
window main
dump
menu mnuSave
)",
                                environment());
    EXPECT_EQ(back.dump()["vertices"][0]["pos"], closed.dump()["vertices"][0]["pos"]);
    EXPECT_EQ(back.dump()["modelPath"].toString().toStdString(), path);
    EXPECT_EQ(back.dialogs().size(), 0U) << "nobody else changed the file";
    EXPECT_NE(readFile(path), squareModel());
}

TEST_F(RecoverScenario, ACopyIsWrittenAndADeletedEntryIsGone) {
    folder.write("hero.mdl", squareModel());
    playAll(openAndEdit + "close\n", environment());
    playAll(R"(
menu mnuRecover
window recover
choose lstRecover "closed without saving"
answer file "$DIR/copy.mdl"
press cmdRecoverCopy
answer message no
press cmdRecoverDelete
answer message yes
press cmdRecoverDelete
)",
            environment());
    EXPECT_TRUE(readFile(folder.path("copy.mdl")).starts_with(squareModel().substr(0, 20)));
    const Played none =
        play("menu mnuRecover\nwindow recover\npress cmdRecoverOpen\n", environment());
    EXPECT_EQ(none.error(), "cmdRecoverOpen is disabled");
}

TEST_F(RecoverScenario, NothingIsKeptOfWhatWasSaved) {
    folder.write("hero.mdl", squareModel());
    playAll("answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nclose\n", environment());
    const Played none =
        play("menu mnuRecover\nwindow recover\npress cmdRecoverOpen\n", environment());
    EXPECT_EQ(none.error(), "cmdRecoverOpen is disabled");
}

}  // namespace
}  // namespace corvane
