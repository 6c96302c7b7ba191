// Every file of the textures' corpus as a test, so that what fuzzing found stays mended without
// libFuzzer.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "editor_fixture.h"
#include "fuzz_session.h"
#include "texture_session.h"
#include "textures/texture.h"

namespace corvane {
namespace {

std::vector<std::string> corpusFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CORVANE_TEXTURE_CORPUS)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string corpusFile(const std::string& name) {
    return readFile(std::string(CORVANE_TEXTURE_CORPUS) + "/" + name);
}

// What broke; "held" where nothing did.
std::string broken(const std::string& file) {
    try {
        playTextureSession(file);
    } catch (const BrokenPromise& error) {
        return error.what();
    }
    return "held";
}

class TextureCorpus : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Files, TextureCorpus, testing::ValuesIn(corpusFiles()),
                         [](const auto& file) { return file.param; });

TEST_P(TextureCorpus, KeepsItsPromisesCutOffAnywhereToo) {
    const std::string file = corpusFile(GetParam());
    for (std::size_t size = 0; size <= file.size(); ++size) {
        EXPECT_EQ(broken(file.substr(0, size)), "held") << size;
    }
}

// Those that the script makes are whole, so that fuzzing starts behind the first checks.
TEST(TextureCorpusFolder, HoldsAFileOfEachKindThatIsRead) {
    int whole = 0;
    for (const std::string& name : corpusFiles()) {
        if (name.starts_with("found_")) continue;
        const std::string file = corpusFile(name);
        EXPECT_TRUE(isTexture(file)) << name;
        EXPECT_NO_THROW(static_cast<void>(decodeTexture(file, 1000))) << name;
        ++whole;
    }
    EXPECT_GE(whole, 30);
}

}  // namespace
}  // namespace corvane
