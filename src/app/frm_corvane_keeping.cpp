// The main window's part in keeping what is not saved, and in bringing it back.

#include <QGuiApplication>
#include <new>

#include "app/frm_corvane.h"
#include "editor/keep_unsaved.h"
#include "model/commands/open_model.h"
#include "model/commands/recover_model.h"

namespace corvane {

void frmCorvane::startKeeping() {
    if (keeper_ == nullptr) return;
    editor_.wayBack = keeper_;
    autoKeep_ = std::make_unique<AutoKeep>(this, editor_, *keeper_, [this]() -> const UVEditor* {
        return textureEditor_ ? &textureEditor_->uv() : nullptr;
    });
    keeper_->onState([this](const std::string& failure) {
        // On the keeper's thread.
        QMetaObject::invokeMethod(
            this, [this, text = QString::fromStdString(failure)] { showKeepingState(text); },
            Qt::QueuedConnection);
    });
    // The session may go on after all, so nothing ends here.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this, [this] { keepUnsaved(); },
        Qt::DirectConnection);
}

void frmCorvane::stopKeeping() {
    if (keeper_ != nullptr) keeper_->onState({});
    editor_.wayBack = nullptr;
}

bool frmCorvane::addUnsavedTexture(Snapshot& snapshot) {
    return textureEditor_ && textureEditor_->addUnsavedTexture(snapshot);
}

void frmCorvane::showKeepingState(const QString& failure) {
    auto* const item = findChild<QAction*>("mnuRecover");
    if (failure.isEmpty()) {
        item->setText(tr("&Recover..."));
        return;
    }
    // An "&" of the reason is no mnemonic.
    item->setText(tr("&Recover (not kept: %1)...").arg(QString(failure).replace('&', "&&")));
    autoKeep_->noteState();
    // Whether or not tips are switched on. A notice stays until it is settled.
    const QString text = tr("What is not saved cannot be kept for File, Recover: %1").arg(failure);
    txtTips_->setText(notice_.isEmpty() ? text : notice_ + "\n\n" + text);
    txtTips_->setCursorPosition(0);
}

void frmCorvane::keepUnsaved() {
    if (!autoKeep_) return;
    autoKeep_->keepNow(KeptBecause::Ended);
    autoKeep_->noteState();  // the edits may go on
    keeper_->finish();
}

bool frmCorvane::mayClose() {
    if (!autoKeep_) return true;
    std::string reason;
    try {
        autoKeep_->keepNow(KeptBecause::Closed);
        keeper_->retry();
        keeper_->finish();
        reason = keeper_->failure();
    } catch (const std::bad_alloc&) {
        reason = "There is not enough memory";
    }
    if (reason.empty()) return true;
    std::string what;
    if (autoKeep_->hasUnsaved()) {
        what = "There are edits that no save has written, and they";
    } else if (keeper_->hasToRetry()) {
        what = "Edits that were dropped, or texts that were replaced,";
    } else {
        return true;
    }
    return editor_.dialogs.yesNo(kWarningCaption, what + " could not be kept for File, Recover:\n" +
                                                      reason +
                                                      "\n\nClose all the same, and lose them?");
}

void frmCorvane::endInOrder() {
    if (autoKeep_) autoKeep_->end(KeptBecause::Ended);
    closeModel(editor_);
    if (keeper_ != nullptr) keeper_->finish();
}

void frmCorvane::showRecover() {
    if (!recoverWindow_) {
        recoverWindow_ = std::make_unique<frmRecover>(
            this, keeper_, editor_.dialogs,
            [this](const KeptEntry& entry) { return openKeptEntry(entry); },
            [this](const std::string& path) { return clashesWithWorkingCopy(editor_, path); });
    }
    recoverWindow_->showEntries();
}

bool frmCorvane::openKeptEntry(const KeptEntry& entry) {
    KeptModel kept{.text = {},
                   .modelPath = entry.modelPath,
                   .stamp = entry.stamp,
                   .geosetNumber = entry.geosetNumber};
    try {
        kept.text = keeper_->read(entry);
    } catch (const FileError& error) {
        editor_.dialogs.messageBox(kErrorCaption,
                                   std::string("What was kept cannot be read.\n") + error.what());
        return false;
    }
    // First: what opening drops would not survive an end of the program while it asks something.
    keeper_->spare(entry.name);
    corvane::keepUnsaved(editor_, KeptBecause::AnotherOpened);
    if (!openKept(editor_, kept)) return false;
    // The entry may go when the limits are reached once another one holds the same.
    autoKeep_->keepEdits();
    keeper_->finish();
    if (keeper_->isWorking()) {
        keeper_->noteOpened(entry);
        keeper_->spare("");
    }
    return true;
}

void frmCorvane::offerKilled() {
    if (keeper_ == nullptr) return;
    for (const KeptEntry& entry : keeper_->cutOff()) {
        const std::string geoset =
            entry.geosetNumber > 0 ? "geoset " + std::to_string(entry.geosetNumber) + " of " : "";
        const bool open = editor_.dialogs.yesNo(
            kConfirmationCaption,
            std::string(goesOn(entry.because) ? "The program ended unexpectedly while "
                                              : "The program was ended while ") +
                geoset + entry.modelPath + " had unsaved edits. They were kept at " +
                timeText(entry).toStdString() +
                ". Open them? (No keeps them; File, Recover brings them back later.)");
        keeper_->noteAsked(entry);
        if (open && openKeptEntry(entry)) return;
    }
}

}  // namespace corvane
