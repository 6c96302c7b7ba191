#include "app/frm_recover.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>
#include <array>

#include "model/commands/replaced_text.h"
#include "model/geoset_reader.h"
#include "views/navigation.h"
#include "views/ortho_view.h"

namespace corvane {

namespace {

constexpr QSize kFirstSize(860, 420);    // pixels
constexpr QSize kPictureSize(209, 201);  // as the main window's, at least

QString qt(const std::string& text) { return QString::fromStdString(text); }

// A name for a copy that does not stand there yet.
std::string copyPath(const std::string& modelPath) {
    return freePath(folderOf(modelPath), stemOf(modelPath) + "-recovered", ".mdl");
}

}  // namespace

QString timeText(const KeptEntry& entry) {
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(entry.time), QLocale::ShortFormat);
}

frmRecover::frmRecover(QWidget* parent, Keeper* keeper, Dialogs& dialogs,
                       std::function<bool(const KeptEntry&)> open,
                       std::function<bool(const std::string&)> refuses)
    : QDialog(parent),
      keeper_(keeper),
      dialogs_(dialogs),
      open_(std::move(open)),
      refuses_(std::move(refuses)),
      lstRecover_(new QTreeWidget(this)),
      pbxRecover_(new PictureBox(this)) {
    setObjectName("frmRecover");
    setWindowTitle(tr("Recover - Corvane"));
    setWindowModality(Qt::ApplicationModal);

    lstRecover_->setObjectName("lstRecover");
    lstRecover_->setAccessibleName(tr("What was kept, newest first"));
    lstRecover_->setHeaderLabels(
        {tr("When"), tr("Model"), tr("Geoset"), tr("What happened"), tr("Size")});
    lstRecover_->setRootIsDecorated(false);
    lstRecover_->setUniformRowHeights(true);
    lstRecover_->header()->setStretchLastSection(false);
    lstRecover_->header()->setSectionResizeMode(3, QHeaderView::Stretch);
    connect(lstRecover_, &QTreeWidget::currentItemChanged, this, &frmRecover::showSelected);
    connect(lstRecover_, &QTreeWidget::itemActivated, this, &frmRecover::openSelected);

    pbxRecover_->setObjectName("pbxRecover");
    pbxRecover_->setAccessibleName(tr("Front view of the selected entry"));
    pbxRecover_->setCaption(tr("Front"));
    pbxRecover_->setMinimumSize(kPictureSize);
    pbxRecover_->setFocusPolicy(Qt::NoFocus);
    pbxRecover_->onResize = [this] { drawPicture(); };

    auto* const lists = new QHBoxLayout;
    lists->addWidget(lstRecover_, 3);
    lists->addWidget(pbxRecover_, 1);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(tr("Work that was not saved, and what saves have replaced:"), this));
    layout->addLayout(lists, 1);
    layout->addLayout(row);
    const auto add = [&](const char* name, const QString& caption) {
        auto* const button = new QPushButton(caption, this);
        button->setObjectName(name);
        row->addWidget(button);
        return button;
    };
    buttons_ = {add("cmdRecoverOpen", tr("&Open")), add("cmdRecoverCopy", tr("&Save a Copy...")),
                add("cmdRecoverDelete", tr("&Delete..."))};
    connect(buttons_[0], &QPushButton::clicked, this, &frmRecover::openSelected);
    connect(buttons_[1], &QPushButton::clicked, this, &frmRecover::copySelected);
    connect(buttons_[2], &QPushButton::clicked, this, &frmRecover::deleteSelected);
    connect(add("cmdRecoverClose", tr("&Close")), &QPushButton::clicked, this, &QDialog::reject);
    buttons_[0]->setDefault(true);
    resize(kFirstSize);
}

void frmRecover::showEntries() {
    fillList();
    show();
    raise();
    activateWindow();
    lstRecover_->setFocus();
}

void frmRecover::fillList() {
    entries_ = keeper_ != nullptr ? keeper_->offered() : std::vector<KeptEntry>{};
    lstRecover_->clear();
    QList<QTreeWidgetItem*> rows;
    for (const KeptEntry& entry : entries_) {
        auto* const row = new QTreeWidgetItem(
            {timeText(entry), QFileInfo(qt(entry.modelPath)).fileName(),
             entry.geosetNumber > 0 ? QString::number(entry.geosetNumber) : QString(),
             entry.damaged ? tr("damaged: only the model is left") : tr(reasonText(entry.because)),
             QLocale().formattedDataSize(entry.size)});
        row->setToolTip(1, qt(entry.modelPath));
        row->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
        rows << row;
    }
    lstRecover_->addTopLevelItems(rows);
    for (int column = 0; column < lstRecover_->columnCount(); ++column) {
        lstRecover_->resizeColumnToContents(column);
    }
    if (!rows.isEmpty()) lstRecover_->setCurrentItem(rows.first());
    showSelected();
}

const KeptEntry* frmRecover::selected() const {
    const int row = lstRecover_->indexOfTopLevelItem(lstRecover_->currentItem());
    if (row < 0 || static_cast<std::size_t>(row) >= entries_.size()) return nullptr;
    return &entries_[static_cast<std::size_t>(row)];
}

void frmRecover::showSelected() {
    const KeptEntry* const entry = selected();
    for (QPushButton* const button : buttons_) button->setEnabled(entry != nullptr);
    if (entry != nullptr && entry->damaged) buttons_[0]->setEnabled(false);  // its place is unknown
    geoset_.reset();
    QString hint = entry == nullptr ? tr("Nothing is kept.") : tr("There is no picture of it.");
    if (entry != nullptr) {
        try {
            const ModelText text = keeper_->read(*entry);
            geoset_ = parseGeoset(text, scanGeosets(text.view()), std::max(entry->geosetNumber, 1));
        } catch (const std::exception& error) {
            hint = qt(error.what());
        }
    }
    pbxRecover_->setHint(hint);
    drawPicture();
}

void frmRecover::drawPicture() {
    DrawingSurface& surface = pbxRecover_->surface();
    if (!geoset_) {
        surface.clear();
        return;
    }
    const ViewAxes axes = axesOf(View::Front);
    drawView({*geoset_, MarkerTable{}, false}, surface, axes,
             fitted(*geoset_, axes, surface.width(), surface.height()));
}

void frmRecover::openSelected() {
    const KeptEntry* const entry = selected();
    if (entry == nullptr || entry->damaged) return;
    if (open_(KeptEntry(*entry))) accept();
}

void frmRecover::copySelected() {
    const KeptEntry* const entry = selected();
    if (entry == nullptr) return;
    try {
        const ModelText text = keeper_->read(*entry);
        const std::optional<std::string> path =
            dialogs_.saveFile({"Save a Copy", kModelFilter, copyPath(entry->modelPath)});
        if (!path || refuses_(*path)) return;
        ReplacedFile replaced(keeper_, *path);
        replaceFile(*path, std::array{text.view()});
        replaced.keep();
    } catch (const std::exception& error) {
        dialogs_.messageBox(kErrorCaption, std::string("The copy was not written.\n") +
                                               error.what() + "\n\nChoose another name or folder.");
    }
}

void frmRecover::deleteSelected() {
    const KeptEntry* const entry = selected();
    if (entry == nullptr ||
        !dialogs_.yesNo(kConfirmationCaption, "Delete what was kept of " + entry->modelPath +
                                                  "? It cannot be brought back then.")) {
        return;
    }
    keeper_->remove(*entry);
    fillList();
}

}  // namespace corvane
