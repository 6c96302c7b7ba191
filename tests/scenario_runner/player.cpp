#include "player.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>
#include <QWindow>
#include <cstdlib>
#include <functional>
#include <map>
#include <utility>

#include "dump.h"
#include "output.h"
#include "uveditor/uv_view.h"
#include "views/ortho_view.h"
#include "widgets.h"

namespace corvane::scenario {

namespace {

void runEventLoop(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

// Until the display shows the window; on a display that never says so, for a while.
void waitUntilShown(const QWidget& window) {
    constexpr int kLongest = 5000;  // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (!window.windowHandle()->isExposed() && timer.elapsed() < kLongest) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

QPoint pointOf(const QStringList& words, qsizetype at) {
    return {toInt(words[at]), toInt(words[at + 1])};
}

std::string keptFolder(const QTemporaryDir& otherwise) {
    const QString named = qEnvironmentVariable("CORVANE_KEPT");
    return (named.isEmpty() ? otherwise.filePath("kept") : named).toStdString();
}

}  // namespace

void printError(int line, const QString& text) {
    print({{"event", "error"}, {"line", line}, {"text", text}});
}

Player::Player(UserNumberFormat userNumbers)
    : userNumbers_(std::move(userNumbers)),
      dialogs_([this](const QString& why) { stop(why); }),
      keeper_({.folder = keptFolder(keptHere_)}) {}

// A dialog cannot be answered while the program stands inside an event: leave at once.
void Player::stop(const QString& why) {
    printError(line_, why);
    keeper_.finish();
    keptHere_.remove();
    std::_Exit(EXIT_FAILURE);
}

// The window opens with the first command that needs it, so that answers to what it asks on
// opening can be queued before.
void Player::openWindow() {
    window_ = std::make_unique<frmCorvane>(dialogs_, userNumbers_, &keeper_);
    atExit_ = std::make_unique<AtExit>([this] { window_->endInOrder(); });
    window_->show();
    waitUntilShown(*window_);
    window_->start();
}

QWidget& Player::currentWindow() {
    if (!window_) openWindow();
    if (meant_ == "uv") return *window_->textureEditor();
    if (meant_ == "recover") return *window_->recoverWindow();
    return *window_;
}

void Player::chooseWindow(const QString& name) {
    if (!window_) openWindow();
    if (name != "main" && name != "uv" && name != "recover")
        throw ScenarioError("there is no such window");
    if (name == "uv" && window_->textureEditor() == nullptr) {
        throw ScenarioError("the texture editor was never opened");
    }
    if (name == "recover" && window_->recoverWindow() == nullptr) {
        throw ScenarioError("Recover was never chosen");
    }
    meant_ = name;
}

PictureBox& Player::pictureNamed(const QString& name) {
    auto* const picture = qobject_cast<PictureBox*>(&widgetNamed(currentWindow(), name));
    if (picture == nullptr) throw ScenarioError(name.toStdString() + " is no picture");
    return *picture;
}

void Player::mark(const QStringList& words, QPoint from, QPoint to) {
    marks_.push_back({&pictureNamed(words[1]), buttonNamed(words[2]), from, to});
}

// The pixel of a picture where a position of the model is drawn, or one of the texture: across, up
// (down in the texture).
QPoint Player::modelPoint(const QStringList& words, qsizetype at) {
    PictureBox& picture = pictureNamed(words[1]);
    const double across = toDouble(words[at]);
    const double other = toDouble(words[at + 1]);
    ScreenPoint place;
    if (picture.objectName() == "pbxUVView") {
        const UVState& uv = window_->textureEditor()->uv();
        place = {viewX(uv, across), viewY(uv, other)};
    } else {
        const QStringList views = {"pbxFront", "pbxTop", "pbxLeft"};
        const qsizetype view = views.indexOf(picture.objectName());
        if (view < 0) throw ScenarioError(words[1].toStdString() + " shows no positions");
        const ViewState& state = window_->editor().views[kViews[static_cast<std::size_t>(view)]];
        place =
            project(across, other, picture.surface().width(), picture.surface().height(), state);
    }
    return {qRound(place.x * picture.width() / picture.surface().width()),
            qRound(place.y * picture.height() / picture.surface().height())};
}

// Of a control, the current window, or the next dialog. Shows the drags that were marked, which
// later ones do not show any more.
void Player::saveScreenshot(const QString& name, const QString& path) {
    if (name == "dialog") return dialogs_.pictureNext(path);
    QWidget& widget = name == "window" ? currentWindow() : widgetNamed(currentWindow(), name);
    QPixmap screenshot = widget.grab();
    drawMarks(screenshot, widget, std::exchange(marks_, {}));
    if (!screenshot.save(path)) {
        throw ScenarioError("cannot write the picture " + path.toStdString());
    }
}

void Player::perform(const Command& command) {
    struct Entry {
        qsizetype arguments;
        std::function<void(const QStringList&)> run;
    };
    const std::map<QString, Entry> commands = {
        {"answer",
         {2, [&](const QStringList& w) { dialogs_.queue(w[1], w[2], command.quoted[2]); }}},
        {"window", {1, [&](const QStringList& w) { chooseWindow(w[1]); }}},
        {"menu", {1, [&](const QStringList& w) { triggerMenu(currentWindow(), w[1]); }}},
        {"press", {1, [&](const QStringList& w) { pressButton(currentWindow(), w[1]); }}},
        {"choose", {2, [&](const QStringList& w) { chooseEntry(currentWindow(), w[1], w[2]); }}},
        {"drag",
         {6,
          [&](const QStringList& w) {
              drag(pictureNamed(w[1]), buttonNamed(w[2]), pointOf(w, 3), pointOf(w, 5));
          }}},
        {"mark", {6, [&](const QStringList& w) { mark(w, pointOf(w, 3), pointOf(w, 5)); }}},
        {"drag-model",
         {6,
          [&](const QStringList& w) {
              drag(pictureNamed(w[1]), buttonNamed(w[2]), modelPoint(w, 3), modelPoint(w, 5));
          }}},
        {"mark-model",
         {6, [&](const QStringList& w) { mark(w, modelPoint(w, 3), modelPoint(w, 5)); }}},
        {"hover",
         {3,
          [&](const QStringList& w) { hover(widgetNamed(currentWindow(), w[1]), pointOf(w, 2)); }}},
        {"wait",
         {1,
          [&](const QStringList& w) {
              currentWindow();
              if (toInt(w[1]) < 0) throw ScenarioError("cannot wait for less than no time");
              // Only here, where the event loop runs.
              const EndSignals signals([this] {
                  window_->endInOrder();
                  keptHere_.remove();
                  std::_Exit(EXIT_SUCCESS);
              });
              runEventLoop(toInt(w[1]));
          }}},
        {"resize",
         {2, [&](const QStringList& w) { currentWindow().resize(toInt(w[1]), toInt(w[2])); }}},
        {"close", {0, [&](const QStringList&) { currentWindow().close(); }}},
        {"dump",
         {0,
          [&](const QStringList&) {
              currentWindow();
              print(dumpState(*window_));
          }}},
        {"drawn", {1, [&](const QStringList& w) { print(drawnItems(pictureNamed(w[1]))); }}},
        {"screenshot", {2, [&](const QStringList& w) { saveScreenshot(w[1], w[2]); }}},
    };
    const auto found = commands.find(command.words[0]);
    if (found == commands.end()) {
        throw ScenarioError("there is no command \"" + command.words[0].toStdString() + "\"");
    }
    if (command.words.size() - 1 != found->second.arguments) {
        throw ScenarioError(command.words[0].toStdString() + " takes " +
                            std::to_string(found->second.arguments) + " words after it");
    }
    found->second.run(command.words);
    QApplication::processEvents();
}

bool Player::play(const std::function<std::optional<QString>()>& nextLine) {
    try {
        while (const std::optional<QString> text = nextLine()) {
            ++line_;
            const QString trimmed = text->trimmed();
            if (trimmed.isEmpty() || trimmed.startsWith('#')) continue;
            perform(splitWords(trimmed));
        }
        if (dialogs_.left() > 0) {
            throw ScenarioError(std::to_string(dialogs_.left()) + " answers were not used");
        }
    } catch (const ScenarioError& error) {
        printError(line_, error.what());
        return false;
    }
    return true;
}

}  // namespace corvane::scenario
