// How the main window is laid out.

#include <QGridLayout>
#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "app/frm_corvane.h"
#include "app/window_size.h"

namespace corvane {

namespace {

// Pixels.
constexpr QSize kPictureSize(209, 201);          // when the window first shows, where it can
constexpr QSize kSmallestPictureSize(125, 117);  // leaves the buttons beside it their room
constexpr int kMargin = 8;
constexpr int kRowGap = 23;        // between the upper and the lower pictures
constexpr int kViewColumnGap = 3;  // between a picture and the buttons beside it
constexpr int kColumnGap = 4;      // between those and what stands to their right
constexpr int kViewButtonSize = 24;
constexpr int kTipFrame = 16;  // what the tip's box needs besides its text

// Of the window's layout. The pictures take both columns before the panel's.
enum Row { kPicturesRow, kGapRow, kTipRow };
enum Column { kTipColumn, kGapColumn, kPanelColumn };

// The grid of the pictures. All that grows in it is of one size: an odd pixel that two columns or
// rows would have to share stays empty. So does what a panel that is higher than the pictures adds
// to the window's first height: the pictures have their first size then, whatever the font makes of
// the panel. In a lower window they first take that room, and then become smaller.
class PictureGrid : public QGridLayout {
public:
    explicit PictureGrid(std::function<int()> panelExcess) : panelExcess_(std::move(panelExcess)) {}

    void setGeometry(const QRect& rect) override {
        const int first = sizeHint().height();
        QSize size = rect.size();
        size.setHeight(std::max(std::min(size.height(), first), size.height() - panelExcess_()));
        const QSize extra = size - minimumSize();
        QGridLayout::setGeometry(
            QRect(rect.topLeft(), size - QSize(extra.width() % 2, extra.height() % 2)));
    }

private:
    std::function<int()> panelExcess_;  // pixels
};

}  // namespace

// The buttons that stand beside a picture.
QWidget* frmCorvane::buildViewButtons(PictureBox& picture, std::span<const ViewButton> buttons) {
    auto* const column = new QWidget(central_);
    auto* const grid = new QGridLayout(column);
    grid->setContentsMargins(kViewColumnGap, 0, kColumnGap, 0);
    grid->setSpacing(0);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    focusOrder_.push_back(&picture);
    for (ToolButton* const button :
         addViewButtons(*grid, buttons, editor_, picture, buttons_, focusOrder_)) {
        button->setFixedSize(kViewButtonSize, kViewButtonSize);
    }
    return column;
}

// The pictures two by two, each with its buttons beside it. They grow alike.
void frmCorvane::fillPictureGrid() {
    pictureGrid_ = new PictureGrid([this] { return panelExcess(); });
    const std::array<PictureBox*, 4> pictures = {pbxFront_, pbxTop_, pbxLeft_, pbxPersp_};
    for (int i = 0; i < 4; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const int row = i / 2 * 2;  // there is a row between them
        const int column = i % 2 * 2;
        pictures[index]->setMinimumSize(kSmallestPictureSize);
        pictures[index]->setFirstSize(kPictureSize);
        pictureGrid_->addWidget(pictures[index], row, column);
        pictureGrid_->setRowStretch(row, 1);
        pictureGrid_->setColumnStretch(column, 1);
        pictureGrid_->addWidget(buildViewButtons(*pictures[index], viewButtons()[index]), row,
                                column + 1, Qt::AlignLeft | Qt::AlignTop);
    }
    pictureGrid_->setSpacing(0);
    pictureGrid_->setRowMinimumHeight(1, kRowGap);
}

// By how much the panel is higher than the pictures at their first size, and the tip where the
// panel reaches down beside it.
int frmCorvane::panelExcess() const {
    const int tip = tipsBesidePanel_ ? kMargin + txtTips_->sizeHint().height() : 0;
    return std::max(0, toolPanel_->sizeHint().height() - pictureGrid_->sizeHint().height() - tip);
}

// The width of the longest tip, in pixels.
int frmCorvane::longestTip() const {
    int longest = 0;
    for (const QString& tip : tips_) {
        longest = std::max(longest, txtTips_->fontMetrics().horizontalAdvance(tip));
    }
    return longest;
}

// The pictures take all the room that the panel beside them and the tip below leave.
void frmCorvane::layOut() {
    layout_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout_->setSpacing(0);
    layout_->addLayout(pictureGrid_, kPicturesRow, kTipColumn, 1, 2);
    layout_->setRowMinimumHeight(kGapRow, kMargin);
    layout_->setRowStretch(kPicturesRow, 1);
    layout_->setColumnMinimumWidth(kGapColumn, kMargin);
    layout_->setColumnStretch(kTipColumn, 1);
    toolScroller_ = new PanelScroller(central_, toolPanel_);
    toolScroller_->setObjectName("toolScroller");
    placeTip();
    resize(firstSize(*this));
}

// The panel may be as high as the window where every tip fits under the pictures.
void frmCorvane::placeTip() {
    const int room = pictureGrid_->sizeHint().width() - kMargin;
    tipsBesidePanel_ = longestTip() + kTipFrame <= room;
    const int panelRows = tipsBesidePanel_ ? kTipRow + 1 : kGapRow;
    layout_->addWidget(toolScroller_, kPicturesRow, kPanelColumn, panelRows, 1);
    layout_->addWidget(txtTips_, kTipRow, kTipColumn, 1, tipsBesidePanel_ ? 1 : 3);
}

}  // namespace corvane
