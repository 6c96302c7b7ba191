// The blocks in a block.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/model_scanner.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

// The blocks directly in the first block of a text, as "KEYWORD|what it holds".
Texts inside(std::string_view text) {
    Texts texts;
    for (const ModelBlock& block : scanInside(text, scanBlocks(text).at(0))) {
        EXPECT_LE(block.begin, block.bodyBegin);
        EXPECT_LE(block.bodyEnd, block.end);
        texts.push_back(std::string(block.keyword) + '|' +
                        std::string(text.substr(block.bodyBegin, block.bodyEnd - block.bodyBegin)));
    }
    return texts;
}

TEST(ScanInside, FindsWhatIsDirectlyInIt) {
    EXPECT_EQ(
        inside(
            "Materials 2 {\n\tMaterial {\n\t\tLayer {\n\t\t}\n\t}\n\tOther \"}\" {\n\t\tA 1,\n\t}\n"
            "}\nMaterial {\n}\n"),
        (Texts{"Material|\t\tLayer {\n\t\t}\n", "Other|\t\tA 1,\n"}));
    EXPECT_EQ(inside("A { B { 1, } C { { 2 }, } D 3, } E { }"), (Texts{"B| 1, ", "C| { 2 }, "}));
    EXPECT_TRUE(inside("A {\n\tB 1,\n\t// C {\n}\n").empty());
}

TEST(ScanInside, WhatIsNotClosedEndsWithTheBlockAroundIt) {
    const std::string_view text = "A {\n\tB {\n\t\tC 1,\n";
    const std::vector<ModelBlock> blocks = scanInside(text, scanBlocks(text).at(0));
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_FALSE(blocks[0].closed);
    EXPECT_EQ(blocks[0].end, text.size());
    EXPECT_TRUE(inside("A {").empty());
    EXPECT_EQ(inside("A {\n\tB {"), Texts{"B|"});
}

TEST(ScanInside, GoesOnInABlockThatItFound) {
    const std::string_view text = "A {\n\tB {\n\t\tC {\n\t\t\tD 1,\n\t\t}\n\t}\n}\n";
    const ModelBlock outer = scanInside(text, scanBlocks(text).at(0)).at(0);
    const std::vector<ModelBlock> inner = scanInside(text, outer);
    ASSERT_EQ(inner.size(), 1U);
    EXPECT_EQ(inner[0].keyword, "C");
    EXPECT_TRUE(scanInside(text, inner[0]).empty());
}

}  // namespace
}  // namespace corvane
