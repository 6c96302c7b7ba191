#include "app/frm_corvane.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "app/guide.h"
#include "editor/run_edit.h"
#include "model/commands/open_model.h"
#include "views/commands/mouse.h"
#include "views/commands/view_commands.h"
#include "views/help_texts.h"

namespace corvane {

namespace {

// Pixels.
constexpr QSize kPictureSize(209, 201);  // in the smallest window
constexpr int kMargin = 8;
constexpr int kRowGap = 23;        // between the upper and the lower pictures
constexpr int kViewColumnGap = 3;  // between a picture and the buttons beside it
constexpr int kColumnGap = 4;      // between those and what stands to their right
constexpr int kViewButtonSize = 24;
constexpr int kTipFrame = 16;      // what the tip's box needs besides its text
constexpr int kSelectDelay = 100;  // milliseconds from opening a model until a box selects

QString fileName(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).fileName();
}

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
// larger than their first size in the smallest window, by what the font makes of the panel.
class PanelSlack : public QSpacerItem {
public:
    PanelSlack(const QLayout& pictures, const QWidget& panel, const QWidget& tip,
               const bool& beside)
        : QSpacerItem(0, 0), pictures_(pictures), panel_(panel), tip_(tip), beside_(beside) {}

    QSize sizeHint() const override {
        const int tips = beside_ ? kMargin + tip_.sizeHint().height() : 0;
        const int pictures = pictures_.minimumSize().height();
        return {0, std::max(0, panel_.sizeHint().height() - pictures - tips)};
    }
    QSize minimumSize() const override { return sizeHint(); }
    QSize maximumSize() const override { return sizeHint(); }

private:
    const QLayout& pictures_;
    const QWidget& panel_;
    const QWidget& tip_;
    const bool& beside_;  // whether the panel reaches down beside the tip
};

}  // namespace

frmCorvane::frmCorvane(Dialogs& dialogs, const UserNumberFormat& userNumbers, Keeper* keeper)
    : central_(new QWidget(this)),
      pbxFront_(new PictureBox(central_)),
      pbxTop_(new PictureBox(central_)),
      pbxLeft_(new PictureBox(central_)),
      pbxPersp_(new PictureBox(central_)),
      toolPanel_(new QWidget(central_)),
      txtX_(new QLineEdit(toolPanel_)),
      txtY_(new QLineEdit(toolPanel_)),
      txtZ_(new QLineEdit(toolPanel_)),
      txtTips_(new QLineEdit(central_)),
      layout_(new QGridLayout(central_)),
      pictureGrid_(new EvenGrid),
      editor_{.pictures = {pbxFront_->surface(), pbxTop_->surface(), pbxLeft_->surface(),
                           pbxPersp_->surface()},
              .window = *this,
              .dialogs = dialogs,
              .userNumbers = userNumbers},
      keeper_(keeper) {
    setObjectName("frmCorvane");
    setCentralWidget(central_);
    central_->setObjectName("central");
    tmrTime_.setObjectName("tmrTime");
    tmrTime_.setSingleShot(true);
    tmrTime_.setInterval(kSelectDelay);
    connect(&tmrTime_, &QTimer::timeout, this, [this] { editor_.modes.selectEnabled = true; });

    for (const Tip& tip : controlTips()) tips_.insert(tip.control, tip.text);
    buildPictures();
    fillPictureGrid();
    buildToolPanel();
    buildTipBox();
    menus_ = addMenus(*this, mainMenus(), editor_, buttons_.byName);
    // The tab order follows the eye: pictures with their buttons, the tool panel, the tip.
    setFocusOrder(focusOrder_);
    watchControls();

    startKeeping();
    layOut();
    adjustSize();
    updateButtons();
    button("cmdSelect")->setFocus();  // where a stray blank does no harm
}

frmCorvane::~frmCorvane() { stopKeeping(); }

void frmCorvane::start() {
    const QString page =
        guidePage(QCoreApplication::applicationDirPath(), QStringLiteral("decimal-separator.html"));
    if (!page.isEmpty()) editor_.decimalSeparatorPage = page.toStdString();
    startUp(editor_);
    offerKilled();
}

void frmCorvane::buildPictures() {
    const std::array<std::pair<PictureBox*, const char*>, 4> pictures = {{
        {pbxFront_, "Front"},
        {pbxTop_, "Top"},
        {pbxLeft_, "Left"},
        {pbxPersp_, "Persp"},
    }};
    for (const auto& [picture, name] : pictures) {
        picture->setObjectName(QStringLiteral("pbx") + name);
    }
    pbxFront_->setAccessibleName(tr("Front viewport"));
    pbxTop_->setAccessibleName(tr("Top viewport"));
    pbxLeft_->setAccessibleName(tr("Left viewport"));
    pbxPersp_->setAccessibleName(tr("Perspective view"));
    pbxFront_->setCaption(tr("Front"));
    pbxTop_->setCaption(tr("Top"));
    pbxLeft_->setCaption(tr("Left"));
    pbxPersp_->setCaption(tr("Perspective"));
    pbxFront_->setHint(tr("Choose File, Open to edit a geoset of a model."));
    pbxTop_->setHint(tr("Drag a box with the left button to select vertices."));
    pbxLeft_->setHint(tr("Drag with the right button to move, rotate or scale them."));
    pbxPersp_->setHint(tr("The buttons beside a view zoom it and move it."));
    connectPicture(*pbxFront_, View::Front);
    connectPicture(*pbxTop_, View::Top);
    connectPicture(*pbxLeft_, View::Left);
    pbxPersp_->onMove = [this](double, double) { showTip(""); };
    // Only its own buttons draw it: another size must not show edits either.
    pbxPersp_->keepDrawingCentred();
}

void frmCorvane::connectPicture(PictureBox& picture, View view) {
    picture.onMove = [this, view](double x, double y) {
        const Readout readout = mouseMove(editor_, view, x, y);
        txtX_->setText(QString::fromStdString(readout.x));
        txtY_->setText(QString::fromStdString(readout.y));
        txtZ_->setText(QString::fromStdString(readout.z));
    };
    picture.onPress = [this, view](double x, double y) { mouseDown(editor_, view, x, y); };
    picture.onRelease = [this, view](MouseButton button, double x, double y) {
        mouseUp(editor_, view, button, x, y);
    };
    picture.onResize = [this, view] { updateView(editor_, view); };
}

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

void frmCorvane::buildToolPanel() {
    auto* const panelLayout = new QVBoxLayout(toolPanel_);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->setSpacing(4);
    for (const ButtonGroup& group : toolPanel()) {
        QGridLayout& grid = addGroup(*toolPanel_, tr(group.caption));
        addButtons(grid, group.buttons, editor_, buttons_, focusOrder_);
    }
    for (const auto& [button, entry] : buttons_.panel) {
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance("MMM"));
    }
    buildReadouts();
    panelLayout->addStretch();
}

void frmCorvane::buildReadouts() {
    QGridLayout& grid = addGroup(*toolPanel_, tr("Under the mouse"));
    const std::array<std::pair<QLineEdit*, const char*>, 3> readouts = {
        {{txtX_, "X"}, {txtY_, "Y"}, {txtZ_, "Z"}}};
    int row = 0;
    for (const auto& [text, letter] : readouts) {
        text->setObjectName(QStringLiteral("txt") + letter);
        text->setAccessibleName(tr("%1 coordinate under the mouse").arg(letter));
        addReadout(grid, row++, *text, letter, "-00000.000 ");
        focusOrder_.push_back(text);
    }
}

void frmCorvane::buildTipBox() {
    txtTips_->setObjectName("txtTips");
    txtTips_->setAccessibleName(tr("Tip"));
    txtTips_->setReadOnly(true);
    focusOrder_.push_back(txtTips_);
}

// The mouse shows tips wherever it goes.
void frmCorvane::watchControls() {
    central_->setMouseTracking(true);
    central_->installEventFilter(this);
    for (QWidget* const widget : central_->findChildren<QWidget*>()) {
        widget->setMouseTracking(true);
        widget->installEventFilter(this);
    }
}

// The width of the longest tip, in pixels.
int frmCorvane::longestTip() const {
    int longest = 0;
    for (const QString& tip : tips_) {
        longest = std::max(longest, txtTips_->fontMetrics().horizontalAdvance(tip));
    }
    return longest;
}

// The pictures two by two, each with its buttons beside it. They grow alike.
void frmCorvane::fillPictureGrid() {
    const std::array<PictureBox*, 4> pictures = {pbxFront_, pbxTop_, pbxLeft_, pbxPersp_};
    for (int i = 0; i < 4; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const int row = i / 2 * 2;  // there is a row between them
        const int column = i % 2 * 2;
        pictures[index]->setMinimumSize(kPictureSize);
        pictureGrid_->addWidget(pictures[index], row, column);
        pictureGrid_->setRowStretch(row, 1);
        pictureGrid_->setColumnStretch(column, 1);
        pictureGrid_->addWidget(buildViewButtons(*pictures[index], viewButtons()[index]), row,
                                column + 1, Qt::AlignLeft | Qt::AlignTop);
    }
    pictureGrid_->setSpacing(0);
    pictureGrid_->setRowMinimumHeight(1, kRowGap);
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
    toolPanel_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
    placeTip();
}

// The panel may be as high as the window where every tip fits under the pictures.
void frmCorvane::placeTip() {
    const int room = pictureGrid_->minimumSize().width() - kMargin;
    tipsBesidePanel_ = longestTip() + kTipFrame <= room;
    const int panelRows = tipsBesidePanel_ ? kTipRow + 1 : kGapRow;
    layout_->addWidget(toolPanel_, kPicturesRow, kPanelColumn, panelRows, 1);
    layout_->addWidget(txtTips_, kTipRow, kTipColumn, 1, tipsBesidePanel_ ? 1 : 3);
}

bool frmCorvane::isMet(Needs needs) const {
    switch (needs) {
        case Needs::Model:
            return editor_.store.modelLoaded;
        case Needs::UndoStep:
            return editor_.undo.slots.front().valid;
        case Needs::Nothing:
            break;
    }
    return true;
}

void frmCorvane::updateButtons() {
    showState(buttons_, editor_);
    button("cmdSnap")->setEnabled(editor_.modes.editButtonsEnabled);
    button("cmdDelete")->setEnabled(editor_.modes.editButtonsEnabled);
    showState(menus_, editor_, buttons_.byName, [this](Needs needs) { return isMet(needs); });
    for (PictureBox* const picture : {pbxFront_, pbxTop_, pbxLeft_}) {
        picture->setEnabled(editor_.store.modelLoaded);
    }
    txtTips_->setEnabled(editor_.modes.tipsEnabled);
    if (textureEditor_) textureEditor_->noteEdits();
    if (autoKeep_) autoKeep_->noteState();
    updateTitle();
}

void frmCorvane::updateTitle() {
    const GeosetStore& store = editor_.store;
    if (!store.modelLoaded) {
        setWindowTitle(tr("Corvane"));
        return;
    }
    QString geoset = tr("Geoset %1").arg(store.geosetNumber);
    if (store.isGeosetRemoved()) geoset = tr("Removed geoset");
    // In a title "[*]" is where edits are marked; twice it stands for itself.
    const QString name = fileName(store.modelPath).replace("[*]", "[*][*]");
    setWindowTitle(tr("%1[*] - %2 - Corvane").arg(name, geoset));
    setWindowModified(store.isModified());
}

void frmCorvane::showTip(const std::string& text) {
    if (!notice_.isEmpty() || !editor_.modes.tipsEnabled) return;
    txtTips_->setText(QString::fromStdString(text));
    txtTips_->setCursorPosition(0);
}

void frmCorvane::showNotice(const std::string& text) {
    notice_ = QString::fromStdString(text);
    txtTips_->setText(notice_);
    txtTips_->setCursorPosition(0);
}

void frmCorvane::startSelectTimer() { tmrTime_.start(); }

void frmCorvane::showTextureEditor(UVData newData) {
    if (!textureEditor_) {
        textureEditor_ = std::make_unique<frmUVEditor>(editor_);
        if (autoKeep_) {
            textureEditor_->onChange = [this] { autoKeep_->noteState(); };
            textureEditor_->onClose = [this] { autoKeep_->keepTexture(); };
        }
    }
    textureEditor_->showWith(std::move(newData));
}

void frmCorvane::showGuide() {
    showGuideOf(QCoreApplication::applicationDirPath(), editor_.dialogs);
}

void frmCorvane::copyText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void frmCorvane::closeEvent(QCloseEvent* event) {
    if (!mayClose()) {
        event->ignore();
        return;
    }
    if (autoKeep_) autoKeep_->end(KeptBecause::Closed);
    if (textureEditor_) textureEditor_->close();
    closeModel(editor_);
    event->accept();
}

bool frmCorvane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtTips_ && event->type() == QEvent::FontChange) placeTip();
    if (isForShortcuts(*event) && qobject_cast<QLineEdit*>(watched) != nullptr) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::MouseMove && qobject_cast<PictureBox*>(watched) == nullptr) {
        const QString tip = tips_.value(watched->objectName());
        showTip(tip.toStdString());
        // Otherwise the move would go on to the control's parents, which clear the tip.
        if (!tip.isEmpty() && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace corvane
