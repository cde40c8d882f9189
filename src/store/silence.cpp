#include "store/silence.h"

#include <utility>

namespace store {

namespace {
thread_local SilenceTold told_here;
}

void tell_silence(SilenceTold told) {
    told_here = std::move(told);
}

bool Silence::is_told() {
    return told_here.begins && told_here.ends;
}

void Silence::is_long() {
    if (is_told() && !std::exchange(m_begun, true))
        told_here.begins();
}

Silence::~Silence() {
    if (m_begun && is_told())
        told_here.ends();
}

} // namespace store
