// Small meshes out of dice, for comparing a tool with its plain twin to the last bit.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <random>
#include <utility>

#include "base/geoset.h"

namespace corvane {

/// Random numbers, the same ones wherever the test runs.
class Dice {
public:
    /// 0 to sides - 1.
    int roll(int sides) {
        return static_cast<int>(numbers_() % static_cast<std::uint_fast32_t>(sides));
    }
    bool oneIn(int sides) { return roll(sides) == 0; }
    /// -100 to 100. No binary fraction is a seventh, so that another order gives other bits.
    double number() { return static_cast<double>(roll(1'400'001) - 700'000) / 7000; }

private:
    std::mt19937 numbers_{20020703};  // the seed may be any number, but always the same
};

/// A mesh of 3 to 30 vertices on a few grid lines, so that many coincide, with faces that may be
/// doubled, degenerate or deleted.
inline Geoset randomMesh(Dice& dice) {
    // No sum of these is exact, so that another order of adding gives other bits.
    constexpr std::array<double, 8> kLines = {0.0, -0.0, 0.1, -0.7, 1.0 / 3, 2.3, -5.9, 11.7};
    const int lines = 2 + dice.roll(5);
    const auto coordinate = [&] { return kLines.at(static_cast<std::size_t>(dice.roll(lines))); };
    const auto number = [&] { return static_cast<double>(dice.roll(2001) - 1000) / 700; };
    const int selectedOf12 = std::array<int, 5>{0, 4, 8, 11, 12}.at(
        static_cast<std::size_t>(dice.roll(5)));  // how many of twelve are selected
    const bool deletes = !dice.oneIn(4);

    Geoset mesh;
    const int vertices = 3 + dice.roll(28);
    for (int i = 0; i < vertices; ++i) {
        VertexRecord& vertex = mesh.Vertices.emplace_back();
        for (double& value : vertex.pos) value = coordinate();
        for (double& value : vertex.normal) value = number();
        vertex.tu = number();
        vertex.tv = number();
        vertex.group = static_cast<std::int16_t>(dice.roll(5));
        vertex.selected = dice.roll(12) < selectedOf12;
        vertex.deleted = deletes && dice.oneIn(5);
    }
    const int faces = dice.roll(2 * vertices + 1);
    const int reach = dice.oneIn(2) ? vertices : std::min(vertices, 5);  // between a face's corners
    for (int g = 0; g < faces; ++g) {
        FaceRecord face;
        if (g > 0 && dice.oneIn(6)) {
            face = mesh.Faces[static_cast<std::size_t>(dice.roll(g))];
            std::rotate(face.corner.begin(), face.corner.begin() + dice.roll(3), face.corner.end());
            if (dice.oneIn(2)) std::swap(face.corner[0], face.corner[1]);
        } else {
            const int first = dice.roll(vertices);
            for (std::int16_t& corner : face.corner) {
                corner = static_cast<std::int16_t>((first + dice.roll(reach)) % vertices);
            }
        }
        face.deleted = deletes && dice.oneIn(5);
        mesh.Faces.push_back(face);
    }
    mesh.matrixGroups.resize(static_cast<std::size_t>(dice.roll(3)));
    return mesh;
}

inline bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

inline bool sameBits(const Triple& a, const Triple& b) {
    return std::ranges::equal(a, b, [](double x, double y) { return sameBits(x, y); });
}

inline bool sameBits(const VertexRecord& a, const VertexRecord& b) {
    return sameBits(a.pos, b.pos) && sameBits(a.normal, b.normal) && sameBits(a.tu, b.tu) &&
           sameBits(a.tv, b.tv) && a.group == b.group && a.selected == b.selected &&
           a.deleted == b.deleted;
}

inline bool sameBits(const Geoset& a, const Geoset& b) {
    return std::ranges::equal(
               a.Vertices, b.Vertices,
               [](const VertexRecord& x, const VertexRecord& y) { return sameBits(x, y); }) &&
           a.Faces == b.Faces && a.matrixGroups == b.matrixGroups;
}

}  // namespace corvane
