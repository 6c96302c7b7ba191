// What another process does to a file while a test looks: see helper_process.h.
//
//     corvane_file_helper nothing          ends
//     corvane_file_helper hold PATH        opens a file that nobody else may open meanwhile
//     corvane_file_helper watch PATH       opens a file that others may read and not replace
//     corvane_file_helper look PATH        opens a file that others may do everything with
//     corvane_file_helper lock PATH        locks a file as the program itself does
//     corvane_file_helper prepare PATH     writes a new text beside a file, and no more
//     corvane_file_helper save PATH        saves a file over and over, with two texts in turn
//
// All but the first and the last go on until their input ends; they say a byte when they have
// begun, the last one after every save.
#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "helper_texts.h"
#include "model/model_files.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane {
namespace {

void say() {
    std::fputc('.', stdout);
    std::fflush(stdout);
}

int sayAndWait() {
    say();
    while (std::fgetc(stdin) != EOF) {
    }
    return 0;
}

int hold(const std::string& path, DWORD share) {
    const HANDLE file =
        ::CreateFileA(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    return sayAndWait();
}

int lock(const std::string& path) {
    std::error_code error;
    files::File file = files::File::toLock(path, error);
    return !error && file.lock() ? sayAndWait() : 1;
}

int prepare(const std::string& path) {
    const std::string text = helperText(1);
    const PendingFile pending(path, std::array<std::string_view, 1>{text});
    return sayAndWait();
}

int saveForEver(const std::string& path) {
    for (int number = 1;; number = 1 - number) {
        const std::string text = helperText(number);
        replaceFile(path, std::array<std::string_view, 1>{text});
        say();
    }
}

int run(std::string_view word, const std::string& path) {
    if (word == "hold") return hold(path, 0);
    if (word == "watch") return hold(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
    if (word == "look") return hold(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    if (word == "lock") return lock(path);
    if (word == "prepare") return prepare(path);
    if (word == "save") return saveForEver(path);
    return word == "nothing" ? 0 : 1;
}

}  // namespace
}  // namespace corvane

int main(int argc, char* argv[]) {
    try {
        return corvane::run(argc > 1 ? argv[1] : "", argc > 2 ? argv[2] : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
