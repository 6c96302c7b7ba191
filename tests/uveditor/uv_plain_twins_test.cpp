// The texture editor's transforms and Remap give, on many small meshes, the same bits as their
// numbers worked out step by step.
#include "plain_transforms.h"
#include "random_meshes.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

constexpr int kLists = 500;

class UVPlainTwinsTest : public UVTest {
protected:
    /// Lists of a random mesh, in which some vertices lie straight above others.
    void handOverRandom() {
        static_cast<Geoset&>(store()) = randomMesh(dice);
        store().modelLoaded = true;
        for (VertexRecord& vertex : store().Vertices) {
            if (dice.oneIn(3)) vertex.tu = 0.1;
            if (dice.oneIn(3)) vertex.tv = -0.7;
        }
        handOver();
    }

    /// Compares a transform with its plain twin; both change the lists, with two random numbers.
    void compare(const std::function<void(double, double)>& transform,
                 const std::function<void(Values&, Values&, double, double)>& twin) {
        int changed = 0;
        for (int i = 1; i <= kLists; ++i) {
            handOverRandom();
            const double first = dice.number() / 30;
            const double second = dice.number() / 30;
            Values u = uv.data.u;
            Values v = uv.data.v;
            twin(u, v, first, second);
            if (u != uv.data.u || v != uv.data.v) ++changed;
            transform(first, second);
            ASSERT_TRUE(sameBits(uv.data.u, u)) << "u of lists " << i;
            ASSERT_TRUE(sameBits(uv.data.v, v)) << "v of lists " << i;
        }
        EXPECT_GT(changed, kLists / 2);  // the lists gave it something to do
    }

    static bool sameBits(const Values& a, const Values& b) {
        return std::ranges::equal(a, b, [](double x, double y) { return corvane::sameBits(x, y); });
    }

    /// Runs `compared` with both axes enabled and with each of them off.
    void withAxes(const std::function<void(const std::array<bool, 2>&)>& compared) {
        for (const std::array<bool, 2>& enabled :
             {std::array{true, true}, std::array{true, false}, std::array{false, true}}) {
            uv.xEnabled = enabled[0];
            uv.yEnabled = enabled[1];
            compared(enabled);
        }
    }

    Dice dice;
};

TEST_F(UVPlainTwinsTest, Move) {
    withAxes([&](const std::array<bool, 2>& enabled) {
        compare([&](double du, double dv) { uvMove(uv, du, dv); },
                [&](Values& u, Values& v, double du, double dv) {
                    plain::uvMove(u, v, uv.data.selected, du, dv, enabled);
                });
    });
}

TEST_F(UVPlainTwinsTest, Scale) {
    withAxes([&](const std::array<bool, 2>& enabled) {
        compare([&](double factor, double) { uvScale(uv, factor); },
                [&](Values& u, Values& v, double factor, double) {
                    plain::uvScale(u, v, uv.data.selected, factor, enabled);
                });
    });
}

TEST_F(UVPlainTwinsTest, Rotate) {
    compare([&](double angle, double) { uvRotate(uv, angle); },
            [&](Values& u, Values& v, double angle, double) {
                plain::uvRotate(u, v, uv.data.selected, angle);
            });
}

TEST_F(UVPlainTwinsTest, DragsOfEachMode) {
    const auto drag = [&](TransformMode mode) {
        return [&, mode](double du, double dv) {
            uv.transformMode = mode;
            uv.uStart = 0.3;
            uv.vStart = -0.1;
            uv.uEnd = 0.3 + du;
            uv.vEnd = -0.1 + dv;
            uvTransform(uv);
        };
    };
    compare(drag(TransformMode::Move), [&](Values& u, Values& v, double du, double dv) {
        plain::uvMove(u, v, uv.data.selected, 0.3 + du - 0.3, -0.1 + dv - -0.1, {true, true});
    });
    compare(drag(TransformMode::Rotate), [&](Values& u, Values& v, double, double dv) {
        plain::uvRotate(u, v, uv.data.selected, (-0.1 + dv - -0.1) * 1.5);
    });
    compare(drag(TransformMode::Scale), [&](Values& u, Values& v, double du, double dv) {
        const double d = (-0.1 + dv - -0.1) + (0.3 + du - 0.3);
        const double factor = d >= 0 ? d + 1 : 1 / (std::fabs(d) + 1);
        plain::uvScale(u, v, uv.data.selected, factor, {true, true});
    });
}

TEST_F(UVPlainTwinsTest, Remap) {
    struct Case {
        RemapPlane plane;
        std::size_t u;  // the slots that are projected
        std::size_t v;
    };
    int changed = 0;
    for (const Case& tried : {Case{.plane = RemapPlane::Top, .u = 0, .v = 2},
                              Case{.plane = RemapPlane::Front, .u = 0, .v = 1},
                              Case{.plane = RemapPlane::Left, .u = 2, .v = 1}}) {
        for (int i = 1; i <= kLists; ++i) {
            handOverRandom();
            const bool far = dice.oneIn(4);  // beyond the bound of the search for extremes
            for (VertexRecord& vertex : store().Vertices) {
                if (far) vertex.pos[tried.u] += 6400;
                if (far) vertex.pos[tried.v] -= 6400;
            }
            const std::vector<bool> selection = uv.data.selected;
            const Values a = plain::remap(store(), selection, tried.u);
            const Values b = plain::remap(store(), selection, tried.v);
            Values u = uv.data.u;
            Values v = uv.data.v;
            const bool flat = a.empty() || b.empty();
            for (std::size_t n = 0; n < u.size() && !flat; ++n) {
                if (!selection[n]) continue;
                u[n] = a[n];
                v[n] = 1 - b[n];
                ++changed;
            }
            remapSelection(uv, editor, tried.plane);
            ASSERT_TRUE(sameBits(uv.data.u, u)) << "u of lists " << i;
            ASSERT_TRUE(sameBits(uv.data.v, v)) << "v of lists " << i;
        }
    }
    EXPECT_GT(changed, kLists);
}

}  // namespace
}  // namespace corvane
