// What came of reading a file, as one text.
#pragma once

#include <string>

#include "model/model_files.h"

namespace corvane {

/// The message with which reading a file fails; its text when it does not.
inline std::string readingResult(const std::string& path) {
    try {
        return std::string(readModelFile(path).view());
    } catch (const FileError& error) {
        return error.what();
    }
}

}  // namespace corvane
