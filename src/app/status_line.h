// The line at the foot of the main window: how much there is and how much of it is selected, the
// geoset, the model.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include "editor/editor.h"

namespace corvane {

/// A label that cuts its text off, with dots, where there is no room for it. Its tool tip then has
/// all of it.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

    void setWhole(const QString& text);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void updateToolTip();
};

class StatusLine : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent);

    /// Brings the line in line with the editor's state.
    void show(const Editor& editor);

private:
    ElidedLabel* lblCounts_;
    QLabel* lblGeoset_;
    ElidedLabel* lblModel_;
};

/// The name of the file at a path, to be read.
QString fileNameOf(const std::string& path);

/// Which geoset is in memory: "Geoset 2 of 3".
QString geosetText(const GeosetStore& store);

}  // namespace corvane
