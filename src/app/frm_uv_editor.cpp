#include "app/frm_uv_editor.h"

#include <QAbstractItemView>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

#include "app/dropped_file.h"
#include "app/picture_file.h"
#include "app/status_line.h"
#include "app/window_size.h"
#include "uveditor/commands/exchange.h"
#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_view.h"

namespace corvane {

namespace {

constexpr int kSmallestView = 240;  // pixels, a square
constexpr int kFirstView = 512;
constexpr int kMargin = 8;

}  // namespace

frmUVEditor::frmUVEditor(Editor& main)
    : main_(main),
      pbxUVView_(new PictureBox(this, 1)),
      panel_(new QWidget(this)),
      foot_(new QWidget(this)),
      cboView_(new QComboBox(panel_)),
      txtUVX_(new QLineEdit(panel_)),
      txtUVY_(new QLineEdit(panel_)),
      lblNotice_(new QLabel(foot_)),
      uv_{{.picture = pbxUVView_->surface()}, *this, main.dialogs},
      commands_{.uv = uv_, .main = main} {
    setObjectName("frmUVEditor");
    setAcceptDrops(true);
    abandonByEscape(*this, [this] { pbxUVView_->abandonDrag(); });
    pbxUVView_->setObjectName("pbxUVView");
    pbxUVView_->setAccessibleName(tr("Texture view"));
    connectView();
    focusOrder_.push_back(pbxUVView_);
    buildPanel();
    addMenus(*this, uvMenus(), commands_, buttons_.byName);

    layOut();
    // The tab order follows the eye: the view, then the panel from top to bottom.
    setFocusOrder(focusOrder_);
    buttons_.panel.front().first->setFocus();  // a mode, where a stray blank does no harm
    updateButtons();
}

void frmUVEditor::layOut() {
    auto* const central = new QWidget(this);
    auto* const layout = new QHBoxLayout(central);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(pbxUVView_, 1);
    auto* const beside = new QVBoxLayout;
    auto* const scroller = new PanelScroller(central, panel_);
    scroller->setObjectName("panelScroller");
    scroller->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    beside->addWidget(scroller);
    beside->addWidget(foot_);
    beside->addStretch();
    layout->addLayout(beside);
    setCentralWidget(central);

    // The view starts square, large enough for the panel beside it; later it follows the window.
    // Its side is a multiple of 8, so that halves, quarters and eighths lie on whole pixels.
    constexpr int kSideStep = 8;
    const auto inSteps = [](int side) { return (side + kSideStep - 1) / kSideStep * kSideStep; };
    const int side = inSteps(std::max(kFirstView, beside->sizeHint().height()));
    pbxUVView_->setFirstSize({side, side});
    pbxUVView_->setMinimumSize(kSmallestView, kSmallestView);
    const QSize wanted = sizeHint();
    const QSize missing = wanted - firstSize(*this);
    const int less = inSteps(std::max(missing.width(), missing.height()));
    resize(wanted - QSize(less, less));
}

void frmUVEditor::showWith(UVData newData) {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    takeHandOver(uv_, main_, std::move(newData));
}

bool frmUVEditor::addUnsavedTexture(Snapshot& mesh) {
    return corvane::addUnsavedTexture(uv_, main_.store, mesh);
}

void frmUVEditor::noteEdits() {
    corvane::noteEdits(uv_, main_);
    updateTitle();
}

void frmUVEditor::updateTitle() {
    // After another geoset was read the coordinates are still those of the one before.
    const GeosetStore& store = main_.store;
    if (uv_.takenFrom == store.revisions.mesh()) {
        const QString geoset = store.isGeosetRemoved() ? tr("Removed geoset")
                                                       : tr("Geoset %1").arg(store.geosetNumber);
        source_ = tr("%1 of %2").arg(geoset, fileNameOf(store.modelPath));
    }
    QStringList parts = {tr("Texture Coordinates[*]")};
    if (!source_.isEmpty()) parts << inTitle(source_);
    if (uv_.imageLoaded) parts << inTitle(fileNameOf(uv_.imagePath));
    setWindowTitle((parts << tr("Corvane")).join(" - "));
}

void frmUVEditor::closeEvent(QCloseEvent* event) {
    if (onClose) onClose();
    QMainWindow::closeEvent(event);
}

bool frmUVEditor::eventFilter(QObject* watched, QEvent* event) {
    if (isForShortcuts(*event)) {
        event->ignore();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmUVEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedPicture(*event->mimeData()).empty()) event->acceptProposedAction();
}

void frmUVEditor::dropEvent(QDropEvent* event) {
    const std::string path = droppedPicture(*event->mimeData());
    if (path.empty()) return;
    event->acceptProposedAction();
    // A message waits here, not in the program that the picture came from.
    QTimer::singleShot(0, this, [this, path] {
        activateWindow();
        loadImageFrom(uv_, path);
    });
}

void frmUVEditor::connectView() {
    pbxUVView_->onMove = [this](double x, double y) {
        const auto text = [&](double coordinate) {
            return QString::fromStdString(readoutText(coordinate, main_.userNumbers));
        };
        txtUVX_->setText(text(textureU(uv_, static_cast<int>(x))));
        txtUVY_->setText(text(textureV(uv_, static_cast<int>(y))));
    };
    pbxUVView_->onPress = [this](double x, double y) { uvMouseDown(uv_, x, y); };
    pbxUVView_->onRelease = [this](MouseButton button, double x, double y) {
        uvMouseUp(uv_, button, x, y);
    };
    pbxUVView_->onResize = [this] { redraw(uv_); };
}

void frmUVEditor::buildPanel() {
    auto* const layout = new QVBoxLayout(panel_);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const footLayout = new QVBoxLayout(foot_);
    footLayout->setContentsMargins(0, 0, 0, 0);
    for (const UVGroup& group : uvPanel()) {
        QGridLayout& grid = addGroup(group.atFoot ? *foot_ : *panel_, tr(group.caption));
        switch (group.top) {
            case UVGroup::Top::ViewButtons:
                for (ToolButton* const button : addViewButtons(
                         grid, uvViewButtons(), commands_, *pbxUVView_, buttons_, focusOrder_)) {
                    button->setMinimumWidth(button->fontMetrics().horizontalAdvance("MM"));
                }
                break;
            case UVGroup::Top::Planes:
                addPlanes(grid);
                break;
            case UVGroup::Top::Readouts:
                addReadouts(grid);
                break;
            case UVGroup::Top::Nothing:
                break;
        }
        addButtons(grid, group.buttons, commands_, buttons_, focusOrder_);
    }
    lblNotice_->setObjectName("lblNotice");
    lblNotice_->setWordWrap(true);
    lblNotice_->hide();
    layout->addStretch();
    footLayout->addWidget(lblNotice_);
}

void frmUVEditor::showNotice(const std::string& text) {
    lblNotice_->setText(QString::fromStdString(text));
    lblNotice_->setVisible(!text.empty());
}

void frmUVEditor::addPlanes(QGridLayout& grid) {
    cboView_->setObjectName("cboView");
    cboView_->setAccessibleName(tr("View to project from"));
    cboView_->view()->setAccessibleName(tr("Views to project from"));
    for (const UVPlane& entry : uvPlanes()) {
        cboView_->addItem(tr(entry.caption), QVariant::fromValue(entry.plane));
    }
    connect(cboView_, &QComboBox::currentIndexChanged, this,
            [this] { commands_.plane = cboView_->currentData().value<RemapPlane>(); });
    grid.addWidget(cboView_, 0, 0);
    focusOrder_.push_back(cboView_);
}

void frmUVEditor::addReadouts(QGridLayout& grid) {
    int row = 0;
    for (const auto& [text, letter] : {std::pair(txtUVX_, "X"), std::pair(txtUVY_, "Y")}) {
        text->setObjectName(QStringLiteral("txtUV") + letter);
        text->setAccessibleName(tr("%1 texture coordinate under the mouse").arg(letter));
        text->installEventFilter(this);
        addReadout(grid, row++, *text, letter, "-00.000000 ");
        focusOrder_.push_back(text);
    }
}

void frmUVEditor::updateButtons() {
    showState(buttons_, commands_);
    updateTitle();
    setWindowModified(uv_.unsaved);
    if (onChange) onChange();
}

std::string frmUVEditor::loadPicture(const std::string& path) {
    const PictureFile picture = readPicture(path);
    if (picture.error.empty()) pbxUVView_->setImage(picture.image);
    return picture.error;
}

}  // namespace corvane
