// The user guide: HTML pages that are installed with the program.
#pragma once

#include <QString>

#include "editor/dialogs.h"

namespace corvane {

/// A page of the guide for a program that lies in this folder, installed or in its build tree; its
/// absolute path, empty where it is not there.
QString guidePage(const QString& programFolder, const QString& name);

/// Has the desktop show the guide of a program that lies in this folder, or says why not.
void showGuideOf(const QString& programFolder, Dialogs& dialogs);

}  // namespace corvane
