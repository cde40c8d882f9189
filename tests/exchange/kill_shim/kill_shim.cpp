// Preloaded into a program, ends it without warning just before its nth change of a file, lets the disk fail from its
// nth change on, or be full and take no more bytes, stops it just before its nth step, for another to act in between,
// or loses the nth write into a file in the making (*.new) as if it had been done. n is KILL_BEFORE_CHANGE,
// FAIL_FROM_CHANGE, FULL_FROM_CHANGE, STOP_BEFORE_STEP or LOSE_WRITE_OF_COPY; a step is a change or the asking for a
// lock. Kills and races by time meet the few moments that
// matter hardly ever; this meets every one of them.

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

namespace {

long count_from(const char* variable) {
    const char* text = std::getenv(variable);
    return text ? std::atol(text) : 0;
}

void step() {
    static long left = count_from("STOP_BEFORE_STEP");
    if (left > 0 && --left == 0)
        ::raise(SIGSTOP);
}

/// Counts the changes down to the first that fails.
class Failing {
public:
    explicit Failing(const char* variable) : m_good(count_from(variable)), m_fails(m_good > 0) {}
    bool now() { return m_fails && --m_good <= 0; }

private:
    long m_good;
    const bool m_fails;
};

/// Whether the change is to be made.
bool change(bool brings_bytes = false) {
    static long left = count_from("KILL_BEFORE_CHANGE");
    if (left > 0 && --left == 0)
        ::raise(SIGKILL);
    static Failing failing("FAIL_FROM_CHANGE"), full("FULL_FROM_CHANGE");
    step();
    errno = EIO;
    if (failing.now())
        return false;
    errno = ENOSPC;
    return !full.now() || !brings_bytes;
}

/// Whether the write is told as done and isn't.
bool lost(int file) {
    static long left = count_from("LOSE_WRITE_OF_COPY");
    if (left <= 0)
        return false;
    char name[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = ::readlink(link.c_str(), name, sizeof name);
    return length > 0 && std::string_view(name, size_t(length)).ends_with(".new") && --left == 0;
}

} // namespace

#define BEFORE(result, name, parameters, arguments)                                                                    \
    result name parameters {                                                                                           \
        static const auto next = reinterpret_cast<result(*) parameters>(::dlsym(RTLD_NEXT, #name));                    \
        return change() ? next arguments : -1;                                                                         \
    }

#define BEFORE_WRITE(name, parameters, arguments)                                                                      \
    ssize_t name parameters {                                                                                          \
        static const auto next = reinterpret_cast<ssize_t(*) parameters>(::dlsym(RTLD_NEXT, #name));                   \
        if (!change(true))                                                                                             \
            return -1;                                                                                                 \
        return lost(file) ? ssize_t(size) : next arguments;                                                            \
    }

extern "C" {
BEFORE_WRITE(pwrite64, (int file, const void* data, size_t size, off64_t place), (file, data, size, place))
BEFORE(int, ftruncate64, (int file, off64_t size) noexcept, (file, size))
BEFORE_WRITE(write, (int file, const void* data, size_t size), (file, data, size))
BEFORE(int, rename, (const char* from, const char* to) noexcept, (from, to))
BEFORE(int, renameat2, (int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept,
    (from_folder, from, to_folder, to, flags))
BEFORE(int, link, (const char* from, const char* to) noexcept, (from, to))
BEFORE(int, unlink, (const char* path) noexcept, (path))

int fcntl64(int file, int command, ...) {
    static const auto next = reinterpret_cast<int (*)(int, int, ...)>(::dlsym(RTLD_NEXT, "fcntl64"));
    va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (command == F_SETLK)
        step();
    return next(file, command, argument);
}
}
