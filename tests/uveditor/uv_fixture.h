// A texture editor without a window, beside an editor without one.
#pragma once

#include <string>
#include <vector>

#include "editor_fixture.h"
#include "uveditor/commands/exchange.h"
#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_tools.h"
#include "uveditor/uv_view.h"

namespace corvane {

/// Stands in for the texture editor's window.
class TestUVWindow : public UVWindow {
public:
    void updateButtons() override { ++buttonUpdates; }
    void showNotice(const std::string& text) override { notice = text; }
    std::string loadPicture(const std::string& path) override {
        loaded.push_back(path);
        return refusal;
    }

    int buttonUpdates = 0;
    std::string notice;
    std::string refusal;              ///< why no picture can be read; empty where one can
    std::vector<std::string> loaded;  ///< the paths of all that should have been loaded
};

/// Twice as wide as high, so that nothing can take one for the other.
inline constexpr double kViewWidth = 400;
inline constexpr double kViewHeight = 200;

class UVTest : public EditorTest {
protected:
    using Values = std::vector<double>;

    RecordingSurface view{kViewWidth, kViewHeight};
    TestUVWindow uvWindow;
    UVEditor uv{{.picture = view}, uvWindow, dialogs};

    void TearDown() override {
        EXPECT_TRUE(dialogs.files.empty()) << "a file dialog did not come";
        EXPECT_TRUE(dialogs.yesNos.empty()) << "a question did not come";
    }

    /// Puts vertices with these texture coordinates into the geoset, as if a model were open.
    void loadTextureVertices(const std::vector<std::pair<double, double>>& coordinates) {
        loadVertices(std::vector<Triple>(coordinates.size()));
        for (std::size_t i = 0; i < coordinates.size(); ++i) {
            store().Vertices[i].tu = coordinates[i].first;
            store().Vertices[i].tv = coordinates[i].second;
        }
    }

    /// The command UV Mapping.
    void handOver() {
        openTextureEditor(editor);
        ASSERT_TRUE(window.textureData.has_value());
        UVData data = *window.textureData;
        takeHandOver(uv, editor, std::move(data));
    }

    /// Hands over vertices with these texture coordinates, those with these 1-based numbers
    /// selected.
    void edit(const std::vector<std::pair<double, double>>& coordinates,
              const std::vector<int>& selectedNumbers) {
        loadTextureVertices(coordinates);
        select(selectedNumbers);
        handOver();
    }

    /// The 1-based numbers of the selected texture vertices.
    std::vector<int> selected() const {
        std::vector<int> numbers;
        for (std::size_t i = 0; i < uv.data.selected.size(); ++i) {
            if (uv.data.selected[i]) numbers.push_back(static_cast<int>(i) + 1);
        }
        return numbers;
    }

    /// The geoset's texture coordinates.
    Values tu() const {
        Values values;
        for (const VertexRecord& vertex : editor.store.Vertices) values.push_back(vertex.tu);
        return values;
    }
    Values tv() const {
        Values values;
        for (const VertexRecord& vertex : editor.store.Vertices) values.push_back(vertex.tv);
        return values;
    }

    /// Presses a button at one pixel of the view and releases it at another.
    void drag(MouseButton button, double x1, double y1, double x2, double y2) {
        uvMouseDown(uv, x1, y1);
        uvMouseUp(uv, button, x2, y2);
    }

    void expectNear(const Values& actual, const Values& expected, double tolerance = 1e-12) {
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_NEAR(actual[i], expected[i], tolerance) << "vertex " << i + 1;
        }
    }

    /// Whether a call draws the view anew.
    template <class Call>
    bool redraws(Call call) {
        view.clear();
        view.circle(0, 0, 1, kRed);  // gone after a redraw
        call();
        for (const Primitive& item : view.primitives()) {
            if (item.kind == Primitive::Kind::Circle) return false;
        }
        return true;
    }
};

}  // namespace corvane
