#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>
// After windows.h, whose types it needs.
#include <shellapi.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/process.h"

namespace corvane {

namespace {

std::string utf8(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');  // bytes that a unit takes at most
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

bool leadsSomewhere(DWORD stream) {
    HANDLE handle = ::GetStdHandle(stream);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
           ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

// A drive without a disk, for which the system would ask.
void prepareProcess() { ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

// Those of main() are in the code page of the system, which lacks characters.
char** systemArguments(int& argc, char** argv) {
    int count = 0;
    const std::unique_ptr<wchar_t*[], decltype(&::LocalFree)> given(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    if (!given) return argv;
    static std::vector<std::string> texts;
    static std::vector<char*> arguments;
    for (int i = 0; i < count; ++i) texts.push_back(utf8(given[static_cast<std::size_t>(i)]));
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);
    argc = count;
    return arguments.data();
}

// Where the output goes into a file or to another program, that stays.
void printText(const std::string& text) {
    const bool needsConsole =
        !leadsSomewhere(STD_OUTPUT_HANDLE) && ::AttachConsole(ATTACH_PARENT_PROCESS) != 0;
    if (!needsConsole) {
        std::fputs(text.c_str(), stdout);
        return;
    }
    // The console belongs to whoever started the program, and others print there in their own way.
    const UINT former = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
    if (std::freopen("CONOUT$", "w", stdout) != nullptr) {
        std::fputs(text.c_str(), stdout);
        std::fflush(stdout);
    }
    ::SetConsoleOutputCP(former);
}

}  // namespace corvane
