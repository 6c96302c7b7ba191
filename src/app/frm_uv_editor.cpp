#include "app/frm_uv_editor.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QVBoxLayout>

#include "app/picture_file.h"
#include "uveditor/exchange.h"
#include "uveditor/uv_tools.h"
#include "uveditor/uv_view.h"

namespace corvane {

namespace {

constexpr int kSmallestView = 400;  // pixels, a square
constexpr int kFirstView = 512;
constexpr int kMargin = 8;

}  // namespace

frmUVEditor::frmUVEditor(Editor& main)
    : main_(main),
      pbxUVView_(new PictureBox(this, 1)),
      panel_(new QWidget(this)),
      cboView_(new QComboBox(panel_)),
      txtUVX_(new QLineEdit(panel_)),
      txtUVY_(new QLineEdit(panel_)),
      uv_{.picture = pbxUVView_->surface(),
          .window = *this,
          .dialogs = main.dialogs,
          .data = {},
          .savedU = {},
          .savedV = {},
          .imagePath = {}} {
    setObjectName("frmUVEditor");
    setWindowTitle(tr("Texture Coordinates[*] - Corvane"));

    pbxUVView_->setObjectName("pbxUVView");
    pbxUVView_->setAccessibleName(tr("Texture view"));
    connectView();
    buildPanel();
    buildMenus();

    auto* const central = new QWidget(this);
    auto* const layout = new QHBoxLayout(central);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(pbxUVView_, 1);
    layout->addWidget(panel_);
    setCentralWidget(central);
    setFocusOrder();
    updateButtons();

    // The view starts square, large enough for the panel beside it; later it follows the window.
    // Its side is a multiple of 8, so that halves, quarters and eighths lie on whole pixels.
    const int side = (std::max(kFirstView, panel_->sizeHint().height()) + 7) / 8 * 8;
    pbxUVView_->setMinimumSize(side, side);
    resize(sizeHint());
    pbxUVView_->setMinimumSize(kSmallestView, kSmallestView);
}

void frmUVEditor::showWith(UVData newData) {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    takeHandOver(uv_, main_, std::move(newData));
}

void frmUVEditor::noteEdits() { corvane::noteEdits(uv_, main_); }

// A text box that has the focus must not keep the window's shortcuts to itself, such as the one
// that selects all. Nothing can be typed into these.
bool frmUVEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->ignore();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
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
    // While it has the focus its keys press the buttons of the group View.
    const QHash<int, const char*> keys = {
        {Qt::Key_Plus, "cmdUVZoomIn"}, {Qt::Key_Minus, "cmdUVZoomOut"},
        {Qt::Key_Up, "cmdUVUp"},       {Qt::Key_Down, "cmdUVDown"},
        {Qt::Key_Left, "cmdUVLeft"},   {Qt::Key_Right, "cmdUVRight"},
    };
    pbxUVView_->onKey = [this, keys](int key) {
        const char* const name = keys.value(key);
        if (name != nullptr) panel_->findChild<ToolButton*>(name)->click();
        return name != nullptr;
    };
}

// The tab order follows the eye: the view, then the panel from top to bottom.
void frmUVEditor::setFocusOrder() {
    const std::array<const char*, 19> names = {
        "pbxUVView",    "cmdSelect", "cmdAdd",    "cmdDeselect", "cmdMove",
        "cmdRotate",    "cmdScale",  "cmdUVX",    "cmdUVY",      "cmdUVZoomIn",
        "cmdUVZoomOut", "cmdUVUp",   "cmdUVLeft", "cmdUVRight",  "cmdUVDown",
        "cmdLoadImg",   "cboView",   "cmdRemap",  "txtUVX"};
    auto* previous = findChild<QWidget*>(names.front());
    for (const char* const name : names) {
        auto* const next = findChild<QWidget*>(name);
        if (next != previous) setTabOrder(previous, next);
        previous = next;
    }
    setTabOrder(txtUVX_, txtUVY_);
    setTabOrder(txtUVY_, findChild<QWidget*>("cmdSaveUVChanges"));
    findChild<QWidget*>("cmdSelect")->setFocus();  // where a stray blank does no harm
}

void frmUVEditor::addTool(QGridLayout& grid, const char* name, const char* caption, int row,
                          int column, std::function<void()> run) {
    auto* const button = new ToolButton(grid.parentWidget());
    button->setObjectName(name);
    button->setText(tr(caption));
    button->setAccessibleName(button->text().remove('&'));
    connect(button, &QPushButton::clicked, this, std::move(run));
    grid.addWidget(button, row, column);
}

void frmUVEditor::buildPanel() {
    auto* const layout = new QVBoxLayout(panel_);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto group = [&](const QString& caption) {
        auto* const box = new QGroupBox(caption, panel_);
        auto* const grid = new QGridLayout(box);
        grid->setContentsMargins(4, 4, 4, 4);
        grid->setSpacing(2);
        layout->addWidget(box);
        return grid;
    };

    QGridLayout& select = *group(tr("Left drag selects"));
    const auto selectMode = [this](SelectMode mode) {
        return [this, mode] { uvSetSelectMode(uv_, mode); };
    };
    addTool(select, "cmdSelect", "&Select", 0, 0, selectMode(SelectMode::Select));
    addTool(select, "cmdAdd", "&Add", 0, 1, selectMode(SelectMode::Add));
    addTool(select, "cmdDeselect", "&Deselect", 0, 2, selectMode(SelectMode::Deselect));

    QGridLayout& transform = *group(tr("Right drag transforms"));
    const auto transformMode = [this](TransformMode mode) {
        return [this, mode] { uvSetTransformMode(uv_, mode); };
    };
    addTool(transform, "cmdMove", "&Move", 0, 0, transformMode(TransformMode::Move));
    addTool(transform, "cmdRotate", "&Rotate", 0, 1, transformMode(TransformMode::Rotate));
    addTool(transform, "cmdScale", "S&cale", 0, 2, transformMode(TransformMode::Scale));

    QGridLayout& axes = *group(tr("On the axes"));
    addTool(axes, "cmdUVX", "X", 0, 0, [this] { uvToggleX(uv_); });
    addTool(axes, "cmdUVY", "Y", 0, 1, [this] { uvToggleY(uv_); });
    panel_->findChild<ToolButton*>("cmdUVX")->setAccessibleName(tr("X axis active"));
    panel_->findChild<ToolButton*>("cmdUVY")->setAccessibleName(tr("Y axis active"));

    QGridLayout& view = *group(tr("View"));
    struct ViewTool {
        const char* name;
        const char* caption;
        const char* accessibleName;
        Qt::ArrowType arrow;
        int row;
        int column;
        void (*run)(UVEditor&);
    };
    constexpr std::array<ViewTool, 6> kViewTools = {{
        {"cmdUVZoomIn", "+", "Zoom in", Qt::NoArrow, 0, 0, uvZoomIn},
        {"cmdUVZoomOut", "-", "Zoom out", Qt::NoArrow, 0, 2, uvZoomOut},
        {"cmdUVUp", "", "Look up", Qt::UpArrow, 1, 1,
         [](UVEditor& uv) { uvPan(uv, 0, kUVPanStep); }},
        {"cmdUVLeft", "", "Look left", Qt::LeftArrow, 2, 0,
         [](UVEditor& uv) { uvPan(uv, kUVPanStep, 0); }},
        {"cmdUVRight", "", "Look right", Qt::RightArrow, 2, 2,
         [](UVEditor& uv) { uvPan(uv, -kUVPanStep, 0); }},
        {"cmdUVDown", "", "Look down", Qt::DownArrow, 3, 1,
         [](UVEditor& uv) { uvPan(uv, 0, -kUVPanStep); }},
    }};
    for (const ViewTool& tool : kViewTools) {
        addTool(view, tool.name, tool.caption, tool.row, tool.column,
                [this, run = tool.run] { run(uv_); });
        auto* const button = panel_->findChild<ToolButton*>(tool.name);
        button->setArrow(tool.arrow);
        button->setAccessibleName(tr(tool.accessibleName));
        button->setToolTip(tr(tool.accessibleName));
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance("MM"));
    }

    QGridLayout& picture = *group(tr("Picture"));
    addTool(picture, "cmdLoadImg", "&Load Image...", 0, 0, [this] { loadImage(uv_); });

    QGridLayout& projection = *group(tr("Projection"));
    cboView_->setObjectName("cboView");
    cboView_->setAccessibleName(tr("View to project from"));
    for (const auto& [name, plane] : {std::pair("Top", RemapPlane::Top),
                                      {"Front", RemapPlane::Front},
                                      {"Left", RemapPlane::Left}}) {
        cboView_->addItem(name, QVariant::fromValue(plane));
    }
    projection.addWidget(cboView_, 0, 0);
    addTool(projection, "cmdRemap", "Rema&p", 1, 0,
            [this] { remapSelection(uv_, main_, cboView_->currentData().value<RemapPlane>()); });

    QGridLayout& readout = *group(tr("Under the mouse"));
    int row = 0;
    for (const auto& [text, letter] : {std::pair(txtUVX_, "X"), std::pair(txtUVY_, "Y")}) {
        text->setObjectName(QStringLiteral("txtUV") + letter);
        text->setAccessibleName(tr("%1 texture coordinate under the mouse").arg(letter));
        text->setReadOnly(true);
        text->installEventFilter(this);
        text->setMinimumWidth(text->fontMetrics().horizontalAdvance("-00.000000 "));
        readout.addWidget(new QLabel(letter, panel_), row, 0);
        readout.addWidget(text, row, 1);
        ++row;
    }

    QGridLayout& save = *group(tr("Model"));
    addTool(save, "cmdSaveUVChanges", "Save C&hanges", 0, 0, [this] { saveChanges(uv_, main_); });
    layout->addStretch();
}

void frmUVEditor::buildMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    const auto add = [this](QMenu& menu, const char* name, const QString& caption,
                            const char* shortcut, std::function<void()> run) {
        QAction* const action = menu.addAction(caption);
        action->setObjectName(name);
        action->setShortcut(QKeySequence(QString(shortcut)));
        connect(action, &QAction::triggered, this, std::move(run));
    };
    const auto press = [this](const char* name) {
        return [button = panel_->findChild<ToolButton*>(name)] { button->click(); };
    };
    add(*file, "mnuLoadImg", tr("&Load Image..."), "Ctrl+O", press("cmdLoadImg"));
    add(*file, "mnuSaveUVChanges", tr("&Save Changes"), "Ctrl+S", press("cmdSaveUVChanges"));
    file->addSeparator();
    add(*file, "mnuClose", tr("&Close"), "Ctrl+W", [this] { close(); });
    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    add(*edit, "mnuSelectAll", tr("Select &All"), "Ctrl+A", [this] { uvSelectAll(uv_); });
    add(*edit, "mnuInvertSelection", tr("&Invert Selection"), "Ctrl+I",
        [this] { uvInvertSelection(uv_); });
}

void frmUVEditor::updateButtons() {
    const auto colour = [this](const char* name, ButtonLook look) {
        panel_->findChild<ToolButton*>(name)->setLook(look);
    };
    const auto mode = [](bool on) { return on ? ButtonLook{Look::On, kWhite} : ButtonLook{}; };
    const auto axis = [](bool active) {
        return ButtonLook{active ? Look::Plain : Look::Off, axisColour(active)};
    };
    colour("cmdSelect", mode(uv_.selectMode == SelectMode::Select));
    colour("cmdAdd", mode(uv_.selectMode == SelectMode::Add));
    colour("cmdDeselect", mode(uv_.selectMode == SelectMode::Deselect));
    colour("cmdMove", mode(uv_.transformMode == TransformMode::Move));
    colour("cmdRotate", mode(uv_.transformMode == TransformMode::Rotate));
    colour("cmdScale", mode(uv_.transformMode == TransformMode::Scale));
    colour("cmdUVX", axis(uv_.xEnabled));
    colour("cmdUVY", axis(uv_.yEnabled));
    setWindowModified(uv_.unsaved);
}

std::string frmUVEditor::loadPicture(const std::string& path) {
    const PictureFile picture = readPicture(path);
    if (picture.error.empty()) pbxUVView_->setImage(picture.image);
    return picture.error;
}

}  // namespace corvane
