// The main window with a model and the texture editor open.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <set>

#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_view.h"
#include "window_fixture.h"

namespace corvane {

class UVWindowTest : public WindowTest {
protected:
    /// Opens a model with one triangle, whose texture coordinates are (0, 0), (1, 0) and (0, 1),
    /// and the texture editor.
    void openTextureEditor() {
        openModel("hero.mdl");
        choose("mnuUVMapping");
        ASSERT_NE(window->textureEditor(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&uvWindow()));
    }

    frmUVEditor& uvWindow() const { return *window->textureEditor(); }
    const UVEditor& uv() const { return uvWindow().uv(); }

    template <class T>
    T& findUV(const QString& name) const {
        T* const found = uvWindow().findChild<T*>(name);
        if (found == nullptr) throw std::runtime_error("there is no " + name.toStdString());
        return *found;
    }
    PictureBox& view() const { return findUV<PictureBox>("pbxUVView"); }
    ToolButton& uvButton(const QString& name) const { return findUV<ToolButton>(name); }
    QString text(const QString& name) const { return findUV<QLineEdit>(name).text(); }

    void press(const QString& name) {
        const ToolButton& pressed = uvButton(name);
        QTest::mouseClick(uvWindow().windowHandle(), Qt::LeftButton, {},
                          pressed.mapTo(&uvWindow(), pressed.rect().center()));
    }

    void resizeUVWindow(QSize size) {
        uvWindow().resize(size);
        QApplication::processEvents();
    }

    /// Moves the mouse to a pixel of the view.
    void hoverView(QPoint at) {
        QTest::mouseMove(uvWindow().windowHandle(), view().mapTo(&uvWindow(), at));
    }

    /// A drag in the view, pixels.
    void dragInView(Qt::MouseButton with, QPoint from, QPoint to) {
        QWindow* const handle = uvWindow().windowHandle();
        const auto place = [&](QPoint at) { return view().mapTo(&uvWindow(), at); };
        QTest::mousePress(handle, with, {}, place(from));
        QTest::mouseMove(handle, place(to));
        QTest::mouseRelease(handle, with, {}, place(to));
    }

    /// Everything in the window that the user can reach, by its place in the content.
    std::vector<QWidget*> uvControls() const {
        std::vector<QWidget*> found;
        for (QWidget* const child : uvWindow().centralWidget()->findChildren<QWidget*>()) {
            const bool isControl = qobject_cast<QPushButton*>(child) != nullptr ||
                                   qobject_cast<PictureBox*>(child) != nullptr ||
                                   qobject_cast<QLineEdit*>(child) != nullptr ||
                                   qobject_cast<QComboBox*>(child) != nullptr;
            if (isControl) found.push_back(child);
        }
        return found;
    }
};

}  // namespace corvane
