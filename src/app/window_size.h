// How large windows are when they first show, and what of them scrolls.
#pragma once

#include <QScrollArea>

namespace corvane {

/// The size for a window's content that wants `wanted` where the screen has room for `available`:
/// as much as fits with a frame around it, pixels.
QSize fitting(QSize wanted, QSize available);

/// The size for a window's content on the screen that it will be on.
QSize firstSize(const QWidget& window);

/// A panel that scrolls up and down where the window is too low for it. It is as wide as the panel
/// and a scroll bar, whether or not there is one.
class PanelScroller : public QScrollArea {
    Q_OBJECT

public:
    PanelScroller(QWidget* parent, QWidget* panel);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace corvane
