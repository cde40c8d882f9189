#include "platform/crash.h"

#include "platform/paths.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <QFileInfo>
#include <array>
#include <exception>
#include <windows.h>

#include <dbghelp.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

namespace {

using WriteDump = decltype(&MiniDumpWriteDump);

// A program that crashes may neither ask for memory nor load a library: all of it stands ready.
struct Ready {
    WriteDump write = nullptr;
    std::array<wchar_t, 1024> begin{}; ///< of the file's path
    std::array<wchar_t, 1100> path{};
};
Ready ready;

LONG WINAPI leave_dump(EXCEPTION_POINTERS* exception) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wsprintfW(ready.path.data(), L"%ls-%04d%02d%02d-%02d%02d%02d.dmp", ready.begin.data(), now.wYear, now.wMonth,
        now.wDay, now.wHour, now.wMinute, now.wSecond);
    const HANDLE file =
        CreateFileW(ready.path.data(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        MINIDUMP_EXCEPTION_INFORMATION about{GetCurrentThreadId(), exception, FALSE};
        ready.write(GetCurrentProcess(), GetCurrentProcessId(), file, MiniDumpNormal, &about, nullptr, nullptr);
        CloseHandle(file);
    }
    return EXCEPTION_EXECUTE_HANDLER;
}

/// An exception that nobody takes ends in abort(), which the system knows nothing of. It isn't raised as one of the
/// system's: in the middle of unwinding that finds no filter.
[[noreturn]] void crash() {
    constexpr DWORD uncaught = 0xE0524F56;
    CONTEXT context;
    RtlCaptureContext(&context);
    EXCEPTION_RECORD record{};
    record.ExceptionCode = uncaught;
    EXCEPTION_POINTERS here{&record, &context};
    leave_dump(&here);
    TerminateProcess(GetCurrentProcess(), uncaught);
    std::abort();
}

} // namespace

void leave_dump_in(const QString& folder) {
    const HMODULE library = LoadLibraryW(L"dbghelp.dll");
    const QString begin = native(folder + u'/' + QFileInfo(program_path()).completeBaseName());
    if (library == nullptr || begin.size() >= qsizetype(ready.begin.size()))
        return;
    ready.write = reinterpret_cast<WriteDump>(reinterpret_cast<void*>(GetProcAddress(library, "MiniDumpWriteDump")));
    ready.begin.fill(0);
    begin.toWCharArray(ready.begin.data());
    if (ready.write == nullptr)
        return;
    SetUnhandledExceptionFilter(leave_dump);
    std::set_terminate(crash);
}

#else

void leave_dump_in(const QString&) {}

#endif

} // namespace platform
