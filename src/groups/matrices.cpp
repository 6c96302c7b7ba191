#include "groups/matrices.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr std::size_t kShownBones = 5;    // of a group
constexpr std::size_t kPageLength = 300;  // characters; a page ends with the line that passes it

std::string lineOf(std::size_t index, const MatrixGroup& group) {
    std::string line = std::to_string(index) + ": " + std::to_string(group[0]);
    for (std::size_t row = 1; row < kShownBones && group[row] != kNoMatrix; ++row) {
        line += ", " + std::to_string(group[row]);
    }
    return line + "\r\n";
}

}  // namespace

std::vector<std::string> matrixPages(const Geoset& geoset) {
    std::vector<std::string> pages(1);
    std::size_t index = 0;
    for (const MatrixGroup& group : geoset.matrixGroups) {
        pages.back() += lineOf(index++, group);
        if (pages.back().size() > kPageLength) pages.emplace_back();
    }
    return pages;
}

void appendMatrixGroup(Geoset& geoset, std::span<const std::int16_t> bones) {
    MatrixGroup group;
    group.fill(kNoMatrix);
    std::ranges::copy(bones.first(std::min(bones.size(), kStoredBones)), group.begin());
    geoset.matrixGroups.push_back(group);
}

}  // namespace corvane
