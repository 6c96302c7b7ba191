#include <array>
#include <stdexcept>
#include <utility>

#include "gone_process.h"
#include "helper_process.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane {

namespace {

HANDLE handleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

std::intptr_t numberOf(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle); }

// A pipe: the first end is read, the second one written. One of them is for the helper.
struct Pipe {
    HANDLE ends[2] = {nullptr, nullptr};

    explicit Pipe(int helpers) {
        SECURITY_ATTRIBUTES inherited{};
        inherited.nLength = sizeof inherited;
        inherited.bInheritHandle = TRUE;
        if (::CreatePipe(&ends[0], &ends[1], &inherited, 0) == 0) {
            throw std::runtime_error("no pipe");
        }
        ::SetHandleInformation(ends[1 - helpers], HANDLE_FLAG_INHERIT, 0);
    }
};

std::wstring helperProgram() {
    std::array<wchar_t, MAX_PATH> own{};
    const DWORD length = ::GetModuleFileNameW(nullptr, own.data(), MAX_PATH);
    const std::wstring_view path(own.data(), length);
    return std::wstring(path.substr(0, path.find_last_of(L"\\/") + 1)) + L"corvane_file_helper.exe";
}

}  // namespace

HelperProcess::HelperProcess(const std::string& arguments) {
    const Pipe input(0);
    const Pipe output(1);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.ends[0];
    start.hStdOutput = output.ends[1];
    start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    const std::wstring program = helperProgram();
    std::wstring line = L'"' + program + L"\" " + std::wstring(arguments.begin(), arguments.end());
    PROCESS_INFORMATION made{};
    const BOOL done = ::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0,
                                       nullptr, nullptr, &start, &made);
    ::CloseHandle(input.ends[0]);
    ::CloseHandle(output.ends[1]);
    input_ = numberOf(input.ends[1]);
    output_ = numberOf(output.ends[0]);
    if (done == 0) throw std::runtime_error("corvane_file_helper does not start");
    ::CloseHandle(made.hThread);
    process_ = numberOf(made.hProcess);
    id_ = static_cast<long>(made.dwProcessId);
}

HelperProcess::~HelperProcess() {
    kill();
    ::CloseHandle(handleOf(output_));
    ::CloseHandle(handleOf(process_));
}

bool HelperProcess::waitForBytes(std::size_t count) const {
    std::array<char, 64> bytes{};
    while (count > 0) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(count < bytes.size() ? count : bytes.size());
        if (::ReadFile(handleOf(output_), bytes.data(), wanted, &got, nullptr) == 0) return false;
        if (got == 0) return false;
        count -= got;
    }
    return true;
}

void HelperProcess::wait() { ::WaitForSingleObject(handleOf(process_), INFINITE); }

void HelperProcess::kill() {
    ::TerminateProcess(handleOf(process_), 9);
    finish();
}

void HelperProcess::finish() {
    if (input_ != 0) ::CloseHandle(handleOf(std::exchange(input_, 0)));
    wait();
}

long goneProcess() {
    HelperProcess process("nothing");
    process.finish();
    return process.id();
}

}  // namespace corvane
