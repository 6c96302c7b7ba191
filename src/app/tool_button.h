// A push button that shows a mode by its colour, or an arrow instead of a caption.
#pragma once

#include <QPushButton>

#include "views/drawing_surface.h"

namespace corvane {

class ToolButton : public QPushButton {
    Q_OBJECT

public:
    explicit ToolButton(QWidget* parent) : QPushButton(parent) {}

    /// kButtonFace for the look that buttons have.
    Colour backColour() const { return backColour_; }
    void setBackColour(Colour colour);

    /// Draws an arrow; Qt::NoArrow for none.
    void setArrow(Qt::ArrowType arrow);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Colour backColour_ = kButtonFace;
    Qt::ArrowType arrow_ = Qt::NoArrow;
};

}  // namespace corvane
