// Files as killed processes leave them beside a model, and what opening it makes of them.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "gone_process.h"
#include "model/files.h"
#include "model_flow.h"

namespace corvane {

using Names = std::vector<std::string>;

class LeftoversTest : public ModelFlowTest {
protected:
    static void makeOlder(const std::string& path, int seconds) {
        const auto then = std::filesystem::file_time_type::clock::now();
        std::filesystem::last_write_time(path, then - std::chrono::seconds(seconds));
    }

    /// Writes an old file.
    void leave(const std::string& name) {
        folder.write(name, "leftover");
        makeOlder(folder.path(name), 3600);
    }

    /// What is beside a model after it was opened and closed.
    Names namesAfterOpening() {
        openNew("hero.mdl", modelOf({.geosets = {squareAt("1")}}));
        EXPECT_TRUE(store().modelLoaded);
        closeModel(editor);
        Names names = folder.names();
        std::erase(names, "hero.mdl");
        return names;
    }

    std::string gone = std::to_string(goneProcess());
};

}  // namespace corvane
