// Runs the tests of the windows: on any display platform, without one best on "offscreen".

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "editor_fixture.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The build lists the tests where there may be no display.
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();

    // File dialogs keep their state in the user's settings, which are not the tests' to change.
    const corvane::TempFolder settings;
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, QString::fromStdString(settings.path("")));
    }
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
