// A picture of the window: draws what the core drew on its surface, and hands mouse events on in
// drawing units.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>
#include <functional>

#include "views/mouse_button.h"
#include "views/recording_surface.h"

namespace corvane {

/// Drawing units to a pixel in the main window's pictures.
inline constexpr int kTwipsPerPixel = 15;

class PictureBox : public QWidget {
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent, int unitsPerPixel = kTwipsPerPixel);

    /// What the core draws on, in drawing units.
    DrawingSurface& surface() { return surface_; }
    /// What has been drawn since it was last cleared.
    const std::vector<Primitive>& drawn() const { return surface_.primitives(); }

    /// A name that stands in the picture's corner.
    void setCaption(const QString& caption);
    /// What to do, shown while the core has drawn nothing yet.
    void setHint(const QString& hint);

    /// The size that the picture wants, pixels, until the window gets another size.
    void setFirstSize(QSize size) { firstSize_ = size; }
    QSize sizeHint() const override { return firstSize_; }

    /// Forgets the buttons that are held down: letting them go does nothing.
    void abandonDrag() { pressed_ = Qt::NoButton; }

    /// For a picture that is not drawn anew when it gets another size: what was drawn keeps its
    /// place about the middle.
    void keepDrawingCentred() { keepsDrawingCentred_ = true; }

    /// The image that the surface draws, at its own size.
    void setImage(const QImage& image);

    /// Called with positions in drawing units.
    std::function<void(double x, double y)> onMove;
    std::function<void(double x, double y)> onPress;
    std::function<void(MouseButton button, double x, double y)> onRelease;
    /// Called after the picture got another size.
    std::function<void()> onResize;
    /// Called with a key that was pressed while the picture has the focus; true when it was used.
    std::function<bool(int key)> onKey;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // Asks for a repaint when the core starts to draw.
    class Surface : public RecordingSurface {
    public:
        explicit Surface(QWidget& widget) : RecordingSurface(0, 0), widget_(widget) {}
        void clear() override {
            RecordingSurface::clear();
            widget_.update();
        }

    private:
        QWidget& widget_;
    };

    QPointF inUnits(const QMouseEvent& event) const;
    void paintImage(QPainter& painter, const Primitive& place) const;

    int unitsPerPixel_;
    Qt::MouseButtons pressed_;  // here, and not released yet
    Surface surface_;
    QImage image_;
    QString caption_;
    QString hint_;
    bool keepsDrawingCentred_ = false;
    QSize firstSize_;
};

}  // namespace corvane
