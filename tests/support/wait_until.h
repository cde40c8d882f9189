#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <functional>

namespace support {

/// Lets events happen until it holds; what happens in files is no event. False after minutes, which only a hanging
/// program needs.
inline bool wait_until(const std::function<bool()>& holds) {
    QElapsedTimer time;
    for (time.start(); !holds() && !time.hasExpired(240'000);) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return holds();
}

} // namespace support
