#include "store/silence.h"

#include <atomic>
#include <thread>
#include <utility>

namespace store {

namespace {

// Not a variable of each thread: on Windows what such a one has to destroy is gone by the time its thread ends.
std::atomic<std::thread::id> teller;
SilenceTold told_there;

} // namespace

void tell_silence(SilenceTold told) {
    teller = std::this_thread::get_id();
    told_there = std::move(told);
}

bool Silence::is_told() {
    return std::this_thread::get_id() == teller && told_there.begins && told_there.ends;
}

void Silence::is_long() {
    if (is_told() && !std::exchange(m_begun, true))
        told_there.begins();
}

Silence::~Silence() {
    if (m_begun && is_told())
        told_there.ends();
}

} // namespace store
