// Preloaded into a program, ends it without warning just before its nth change of a file; n is KILL_BEFORE_CHANGE.
// Kills by time meet the few moments between two commits hardly ever; this meets every one of them.

#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

long changes_left() {
    const char* text = std::getenv("KILL_BEFORE_CHANGE");
    return text ? std::atol(text) : 0;
}

void change() {
    static long left = changes_left();
    if (left > 0 && --left == 0)
        ::raise(SIGKILL);
}

template <typename Function>
Function original(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t pwrite64(int file, const void* data, size_t size, off64_t place) {
    static const auto next = original<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64");
    change();
    return next(file, data, size, place);
}

int ftruncate64(int file, off64_t size) noexcept {
    static const auto next = original<int (*)(int, off64_t)>("ftruncate64");
    change();
    return next(file, size);
}

ssize_t write(int file, const void* data, size_t size) {
    static const auto next = original<ssize_t (*)(int, const void*, size_t)>("write");
    change();
    return next(file, data, size);
}

int rename(const char* from, const char* to) noexcept {
    static const auto next = original<int (*)(const char*, const char*)>("rename");
    change();
    return next(from, to);
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept {
    static const auto next = original<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    change();
    return next(from_folder, from, to_folder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    static const auto next = original<int (*)(const char*, const char*)>("link");
    change();
    return next(from, to);
}

int unlink(const char* path) noexcept {
    static const auto next = original<int (*)(const char*)>("unlink");
    change();
    return next(path);
}
}
