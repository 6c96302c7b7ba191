// How the main window is laid out.

#include <QGridLayout>
#include <array>

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
enum Row { kPicturesRow, kSlackRow, kGapRow, kTipRow };
enum Column { kTipColumn, kGapColumn, kPanelColumn };

// A grid in which all that grows is of one size: an odd pixel that two columns or rows would have
// to share stays empty.
class EvenGrid : public QGridLayout {
public:
    void setGeometry(const QRect& rect) override {
        const QSize extra = rect.size() - minimumSize();
        const QSize odd(extra.width() % 2, extra.height() % 2);
        QGridLayout::setGeometry(QRect(rect.topLeft(), rect.size() - odd));
    }
};

// The space below the pictures that a panel higher than they are makes. Without it they would be
// larger than their first size in the first window, by what the font makes of the panel. In a lower
// window it goes before the pictures become very small.
class PanelSlack : public QSpacerItem {
public:
    PanelSlack(const QLayout& pictures, const QWidget& panel, const QWidget& tip,
               const bool& beside)
        : QSpacerItem(0, 0), pictures_(pictures), panel_(panel), tip_(tip), beside_(beside) {}

    QSize sizeHint() const override {
        const int tips = beside_ ? kMargin + tip_.sizeHint().height() : 0;
        const int pictures = pictures_.sizeHint().height();
        return {0, std::max(0, panel_.sizeHint().height() - pictures - tips)};
    }
    QSize minimumSize() const override { return {0, 0}; }
    QSize maximumSize() const override { return sizeHint(); }

private:
    const QLayout& pictures_;
    const QWidget& panel_;
    const QWidget& tip_;
    const bool& beside_;  // whether the panel reaches down beside the tip
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
    pictureGrid_ = new EvenGrid;
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
    layout_->addItem(new PanelSlack(*pictureGrid_, *toolPanel_, *txtTips_, tipsBesidePanel_),
                     kSlackRow, kTipColumn);
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
