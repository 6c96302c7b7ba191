// A push button that shows a mode by its colour, or an arrow instead of a caption.
#pragma once

#include <QPushButton>

#include "views/drawing_surface.h"

namespace corvane {

/// Whether a button shows that something is on or switched off, or only what it does.
enum class Look { Plain, On, Off };

/// How a button is painted. A plain one looks like any other button, whatever its colour.
struct ButtonLook {
    Look look = Look::Plain;
    Colour colour = kButtonFace;
    bool checked = false;  ///< what a checkable button tells assistive technology

    bool operator==(const ButtonLook&) const = default;
};

class ToolButton : public QPushButton {
    Q_OBJECT

public:
    explicit ToolButton(QWidget* parent);

    /// kButtonFace for the look that buttons have.
    Colour backColour() const { return look_.colour; }
    void setLook(ButtonLook look);

    /// Draws an arrow; Qt::NoArrow for none.
    void setArrow(Qt::ArrowType arrow);

protected:
    void paintEvent(QPaintEvent* event) override;
    // Whether it is checked follows from the state that a click leaves.
    void nextCheckState() override {}

private:
    // Filled with the painter's brush; `width` in pixels.
    void drawFrame(QPainter& painter, const QColor& colour, int width) const;

    ButtonLook look_;
    Qt::ArrowType arrow_ = Qt::NoArrow;
};

}  // namespace corvane
