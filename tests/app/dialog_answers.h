// Answers real dialogs while the program waits in them.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>
#include <cstdlib>
#include <deque>
#include <functional>
#include <iostream>

#include "qt_printers.h"

namespace corvane {

/// While it lives, each dialog that opens is answered by the next function of a list, as soon as
/// the program waits for the dialog. Dialogs that open inside an answer take the next ones.
class DialogAnswers : public QObject {
public:
    DialogAnswers() { qApp->installEventFilter(this); }
    ~DialogAnswers() override { EXPECT_TRUE(answers_.empty()) << "a dialog did not come"; }
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;

    /// Adds an answer to a dialog of the type D. It has to close the dialog.
    template <class D>
    void add(std::function<void(D&)> answer) {
        answers_.push_back([answer](QDialog& dialog) {
            auto* const wanted = qobject_cast<D*>(&dialog);
            if (wanted != nullptr) {
                answer(*wanted);
            } else {
                ADD_FAILURE() << "a " << dialog.metaObject()->className() << " came";
            }
        });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const dialog = qobject_cast<QDialog*>(watched);
        if (dialog != nullptr && event->type() == QEvent::Show) {
            QTimer::singleShot(0, dialog, [this, dialog] { answer(*dialog); });
        }
        return false;
    }

private:
    void answer(QDialog& dialog) {
        if (answers_.empty()) {
            // Nobody would ever close it.
            std::cerr << "an unexpected dialog: " << dialog.windowTitle().toStdString() << '\n';
            const auto* const box = qobject_cast<QMessageBox*>(&dialog);
            if (box != nullptr) std::cerr << box->text().toStdString() << '\n';
            std::abort();
        }
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const auto next = answers_.front();
        answers_.pop_front();
        next(dialog);
        if (dialog.isVisible()) {
            ADD_FAILURE() << dialog.windowTitle().toStdString() << " stays open";
            dialog.reject();
        }
    }

    std::deque<std::function<void(QDialog&)>> answers_;
};

}  // namespace corvane
