#include "app/status_line.h"

#include <QFileInfo>
#include <QPainter>
#include <QStyle>

#include "edit/kept_counts.h"

namespace corvane {

namespace {

constexpr int kMargin = 6;  // pixels, besides what the style adds

QString counted(int number, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(number).arg(number == 1 ? one : many);
}

QString countsText(const KeptCounts& counts) {
    return StatusLine::tr("%1, %2; selected: %3, %4")
        .arg(counted(counts.vertices, "vertex", "vertices"), counted(counts.faces, "face", "faces"),
             counted(counts.selectedVertices, "vertex", "vertices"),
             counted(counts.selectedFaces, "face", "faces"));
}

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);  // a name may look like markup
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance("MM..."), QLabel::minimumSizeHint().height()};
}

void ElidedLabel::setWhole(const QString& text) {
    if (text == this->text()) return;
    setText(text);
    updateToolTip();
}

void ElidedLabel::updateToolTip() {
    const bool isCutOff = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
    setToolTip(isCutOff ? text() : QString());
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                          isEnabled(), shown, foregroundRole());
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      lblCounts_(new ElidedLabel(this)),
      lblGeoset_(new QLabel(this)),
      lblModel_(new ElidedLabel(this)) {
    setObjectName("statusLine");
    lblCounts_->setObjectName("lblCounts");
    lblGeoset_->setObjectName("lblGeoset");
    lblModel_->setObjectName("lblModel");
    setContentsMargins(kMargin, 0, 0, 0);
    lblGeoset_->setContentsMargins(kMargin, 0, kMargin, 0);
    constexpr int kCountsShare = 2;  // of the room, to the model's 1
    addWidget(lblCounts_, kCountsShare);
    addPermanentWidget(lblGeoset_);
    addPermanentWidget(lblModel_);
}

void StatusLine::show(const Editor& editor) {
    const GeosetStore& store = editor.store;
    QString left;
    if (store.modelLoaded) left = countsText(countKept(store));
    if (editor.modes.placingMarker) left = tr("Click in a view to add a marker. Escape: add none.");
    lblCounts_->setWhole(left);
    lblGeoset_->setText(store.modelLoaded ? geosetText(store) : QString());
    lblModel_->setWhole(store.modelLoaded ? fileNameOf(store.modelPath) : tr("No model"));
}

QString fileNameOf(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).fileName();
}

QString geosetText(const GeosetStore& store) {
    if (store.isGeosetRemoved()) return StatusLine::tr("Removed geoset");
    const std::size_t count = store.base().geosets.size();
    if (count == 0) return StatusLine::tr("No geoset");
    return StatusLine::tr("Geoset %1 of %2").arg(store.geosetNumber).arg(count);
}

}  // namespace corvane
