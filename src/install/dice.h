#pragma once

// Throws that come out the same everywhere: the libraries' random numbers differ from one to the next.

#include <QtGlobal>

namespace install {

class Dice {
public:
    explicit Dice(quint64 seed) : m_state(seed) {}

    /// 0 up to n - 1; n is above 0.
    int below(int n) { return int(next() % quint64(n)); }
    /// Both ends may come.
    int between(int lowest, int highest) { return lowest + below(highest - lowest + 1); }
    bool chance(int percent) { return below(100) < percent; }

private:
    quint64 next() {
        m_state += 0x9e3779b97f4a7c15;
        quint64 mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
        return mixed ^ (mixed >> 31);
    }

    quint64 m_state;
};

} // namespace install
