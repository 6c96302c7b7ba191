#include "app/orderly_end.h"

#include <QApplication>
#include <QEvent>
#include <cstdlib>
#include <utility>

namespace corvane {

namespace {

std::function<void()>& exitCall() {
    static std::function<void()> call;
    return call;
}

void callAtExit() {
    const std::function<void()> call = std::exchange(exitCall(), {});
    if (call) call();
}

}  // namespace

QuitInDialog::QuitInDialog(std::function<void()> end) : end_(std::move(end)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitInDialog::eventFilter(QObject* watched, QEvent* event) {
    const bool isQuit = event->type() == QEvent::Quit && watched == QCoreApplication::instance();
    if (!isQuit || QApplication::activeModalWidget() == nullptr) return false;
    end_();
    return true;
}

AtExit::AtExit(std::function<void()> call) {
    // Made before the registration, so that it outlives the call.
    exitCall() = std::move(call);
    static const int registered = std::atexit(callAtExit);
    static_cast<void>(registered);
}

AtExit::~AtExit() { exitCall() = {}; }

}  // namespace corvane
