// Every file of the corpus as a test, so that what fuzzing found stays mended without libFuzzer.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "editor_fixture.h"
#include "fuzz_session.h"

namespace corvane {
namespace {

std::vector<std::string> corpusFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CORVANE_FUZZ_CORPUS)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

// What broke in a session; "held" where nothing did.
std::string broken(const TempFolder& folder, const std::string& input) {
    try {
        playFuzzSession(folder.path(""), input);
    } catch (const BrokenPromise& error) {
        return error.what();
    }
    return "held";
}

class FuzzCorpus : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Files, FuzzCorpus, testing::ValuesIn(corpusFiles()),
                         [](const auto& file) { return file.param; });

TEST_P(FuzzCorpus, KeepsItsPromises) {
    const TempFolder folder;
    const std::string path = std::string(CORVANE_FUZZ_CORPUS) + "/" + GetParam();
    EXPECT_EQ(broken(folder, readFile(path)), "held");
    EXPECT_TRUE(folder.names().empty()) << folder.names().front();
}

TEST(FuzzCorpusFolder, IsThere) { EXPECT_GT(corpusFiles().size(), 50U); }

}  // namespace
}  // namespace corvane
