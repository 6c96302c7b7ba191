#include "app/frm_corvane.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "app/guide.h"
#include "editor/run_edit.h"
#include "model/commands/open_model.h"
#include "views/commands/marker_commands.h"
#include "views/commands/mouse.h"
#include "views/commands/view_commands.h"
#include "views/help_texts.h"

namespace corvane {

namespace {

constexpr int kSelectDelay = 100;  // milliseconds from opening a model until a box selects

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
      statusLine_(new StatusLine(this)),
      editor_{.pictures = {pbxFront_->surface(), pbxTop_->surface(), pbxLeft_->surface(),
                           pbxPersp_->surface()},
              .window = *this,
              .dialogs = dialogs,
              .userNumbers = userNumbers},
      keeper_(keeper) {
    setObjectName("frmCorvane");
    setAcceptDrops(true);
    setCentralWidget(central_);
    central_->setObjectName("central");
    setStatusBar(statusLine_);
    abandonByEscape(*this, [this] { abandon(); });
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
    // In lines: a tool tip breaks none itself.
    pbxPersp_->setToolTip(
        tr("Shows how high the vertices are seen at the current turn and distance.\n"
           "What lies beside what is not shown: all of them stand on one line.\n"
           "Drawn when a model is opened and by the buttons beside it; edits do not show."));
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
    txtTips_->setAcceptDrops(false);
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
    statusLine_->show(editor_);
}

// What Escape ends: a drag, and the wait for the place of a marker.
void frmCorvane::abandon() {
    for (PictureBox* const picture : {pbxFront_, pbxTop_, pbxLeft_}) picture->abandonDrag();
    if (editor_.modes.placingMarker) addMarkerGraphically(editor_);
}

void frmCorvane::updateTitle() {
    const GeosetStore& store = editor_.store;
    if (!store.modelLoaded) {
        setWindowTitle(tr("Corvane"));
        return;
    }
    QString geoset = tr("Geoset %1").arg(store.geosetNumber);
    if (store.isGeosetRemoved()) geoset = tr("Removed geoset");
    setWindowTitle(tr("%1[*] - %2 - Corvane").arg(inTitle(fileNameOf(store.modelPath)), geoset));
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
