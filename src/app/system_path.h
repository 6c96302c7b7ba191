// Paths between the program, for which they are bytes, and Qt, for which they are characters. Qt
// replaces bytes that are no UTF-8, after which the file is not found. Here nothing is lost. On
// Windows paths are characters to the system, too: in UTF-8 here, with "/" between folders.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <string>

namespace corvane {

/// A path as Qt's characters. A byte that is no UTF-8 becomes a character that no UTF-8 makes (a
/// low surrogate alone); systemPath() makes it a byte again. Qt's own functions find no such file.
QString textOfPath(const QByteArray& path);

/// The bytes of a path that textOfPath() made, or that Qt gave.
std::string systemPath(const QString& text);

/// The bytes of the path that a file's URL names; empty where it names no file of this system.
/// Bytes that are no UTF-8 arrive in it.
std::string systemPath(const QUrl& url);

/// The absolute path, whatever folder the program may be in later, of what the user named; `text`
/// as textOfPath() makes it.
std::string absolutePath(const QString& text);

/// A path from a file dialog that started at `current`, which Qt shows with replacement characters
/// for bytes that are no UTF-8: where the user left those, they stand for the bytes of `current`.
std::string chosenPath(const QUrl& chosen, const std::string& current);

}  // namespace corvane
