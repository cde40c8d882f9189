#pragma once

// What a person sees while a data server lets a thread stand still: every wait for one is told once it has lasted a
// second. Waits that come back by themselves, as that for a turn, have words of their own.

#include <chrono>
#include <functional>

namespace store {

inline constexpr std::chrono::milliseconds unremarked_silence(1000);

/// Both are called from within whatever opens a database or asks it, in the thread that waits: they use no database,
/// run no events and throw nothing. `ends` is called after each `begins`, however the wait ended.
struct SilenceTold {
    std::function<void()> begins, ends;
};

/// From now on, in the thread that called this last; others tell nobody. Empty ones tell nobody either.
void tell_silence(SilenceTold told);

/// A wait, as long as it lives; whether it tells anybody, and that it has become a long one. Told once.
class Silence {
public:
    Silence() = default;
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence();

    static bool is_told();
    void is_long();

private:
    bool m_begun = false;
};

} // namespace store
