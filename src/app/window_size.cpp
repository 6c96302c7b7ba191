#include "app/window_size.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>

namespace corvane {

namespace {

// What a desktop puts around a window, pixels: as thick as those of common desktops.
constexpr QSize kFrame(10, 40);

constexpr int kLeastPanelHeight = 80;  // pixels: a group of buttons

}  // namespace

QSize fitting(QSize wanted, QSize available) { return wanted.boundedTo(available - kFrame); }

QSize firstSize(const QWidget& window) {
    const QSize wanted = window.sizeHint();
    // Without a display there is nothing to fit into.
    if (QGuiApplication::platformName() == "offscreen") return wanted;
    return fitting(wanted, window.screen()->availableSize());
}

PanelScroller::PanelScroller(QWidget* parent, QWidget* panel) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);  // what is in it has
    setWidget(panel);
    verticalScrollBar()->setAccessibleName(tr("Scroll the tools"));
    // The window's colour, not that of a list.
    panel->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    panel->installEventFilter(this);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize PanelScroller::sizeHint() const {
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize PanelScroller::minimumSizeHint() const { return {sizeHint().width(), kLeastPanelHeight}; }

bool PanelScroller::eventFilter(QObject* watched, QEvent* event) {
    // Such as after another font.
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace corvane
