#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QObject>
#include <atomic>
#include <utility>

#include "app/orderly_end.h"

namespace corvane {

namespace {

// The console's handler runs on a thread of the system's, which knows nothing else.
std::atomic<QObject*> target = nullptr;
std::function<void()> endCall;

// The system ends the process as soon as this returns, and after some seconds in any case. The call
// mostly does not return either: it ends the process from the event loop.
BOOL WINAPI noteConsole(DWORD /*what*/) {
    QObject* const object = target;
    if (object == nullptr) return FALSE;
    QMetaObject::invokeMethod(
        object, [] { endCall(); }, Qt::BlockingQueuedConnection);
    return TRUE;
}

}  // namespace

// Every window is told twice that the session ends. The first time is a question, to which another
// program may say no, and Qt says yes; the second is the end: once a window has dealt with that,
// the system may end the process.
class EndSignals::Watch : public QAbstractNativeEventFilter {
public:
    explicit Watch(std::function<void()> end) {
        endCall = std::move(end);
        QCoreApplication::instance()->installNativeEventFilter(this);
        target = &context_;
        ::SetConsoleCtrlHandler(noteConsole, TRUE);
    }

    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    ~Watch() override {
        ::SetConsoleCtrlHandler(noteConsole, FALSE);
        target = nullptr;
        endCall = {};
    }

    bool nativeEventFilter(const QByteArray& /*kind*/, void* message,
                           qintptr* /*result*/) override {
        const MSG& told = *static_cast<const MSG*>(message);
        if (told.message == WM_ENDSESSION && told.wParam != FALSE) endCall();
        return false;
    }

private:
    QObject context_;  // belongs to the thread of the windows
};

EndSignals::EndSignals(std::function<void()> end)
    : watch_(std::make_unique<Watch>(std::move(end))) {}

EndSignals::~EndSignals() = default;

}  // namespace corvane
