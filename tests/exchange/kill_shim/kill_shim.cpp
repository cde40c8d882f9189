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

} // namespace

#define BEFORE(result, name, parameters, arguments)                                                                    \
    result name parameters {                                                                                           \
        static const auto next = reinterpret_cast<result(*) parameters>(::dlsym(RTLD_NEXT, #name));                    \
        change();                                                                                                      \
        return next arguments;                                                                                         \
    }

extern "C" {
BEFORE(ssize_t, pwrite64, (int file, const void* data, size_t size, off64_t place), (file, data, size, place))
BEFORE(int, ftruncate64, (int file, off64_t size) noexcept, (file, size))
BEFORE(ssize_t, write, (int file, const void* data, size_t size), (file, data, size))
BEFORE(int, rename, (const char* from, const char* to) noexcept, (from, to))
BEFORE(int, renameat2, (int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept,
    (from_folder, from, to_folder, to, flags))
BEFORE(int, link, (const char* from, const char* to) noexcept, (from, to))
BEFORE(int, unlink, (const char* path) noexcept, (path))
}
