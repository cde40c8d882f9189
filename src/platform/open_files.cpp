#include "platform/open_files.h"

#include <QtGlobal>
#include <algorithm>

#ifndef Q_OS_WIN
#include <sys/resource.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

int room_for_files(int wanted) {
    return wanted;
}

#else

int room_for_files(int wanted) {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return wanted;
    if (limit.rlim_cur < rlim_t(wanted)) {
        limit.rlim_cur = std::min(rlim_t(wanted), limit.rlim_max);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    return int(std::min(rlim_t(wanted), limit.rlim_cur));
}

#endif

} // namespace platform
