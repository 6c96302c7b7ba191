// The runner's output: numbers must come back as they were.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <limits>

#include "../scenario_runner/output.h"

namespace corvane::scenario {
namespace {

std::string printed(double value) {
    const QJsonObject object = {{"n", number(value)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

TEST(RunnerOutput, NumbersHaveTheDigitsToReadThemBack) {
    EXPECT_EQ(printed(-12), R"({"n":-12})");
    EXPECT_EQ(printed(0.30000000000000004), R"({"n":0.30000000000000004})");
}

TEST(RunnerOutput, WhatIsNoNumberInJsonIsATextThatSaysWhatItIs) {
    EXPECT_EQ(printed(std::numeric_limits<double>::quiet_NaN()), R"({"n":"NaN"})");
    EXPECT_EQ(printed(std::numeric_limits<double>::infinity()), R"({"n":"Infinity"})");
    EXPECT_EQ(printed(-std::numeric_limits<double>::infinity()), R"({"n":"-Infinity"})");
}

}  // namespace
}  // namespace corvane::scenario
