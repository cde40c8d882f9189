#pragma once

#include "support/fake_host.h"

#include <QProcess>

namespace e2e {

/// A scripted desktop on which the exchange manager is the real program, run to its end.
class Desk : public support::FakeHost {
public:
    bool start_program(const QString& file, const QStringList& arguments) override {
        started << file;
        return QProcess::execute(file, arguments) == 0;
    }
};

/// The one desktop of this test program: errors are told on it as well.
Desk& desk();

} // namespace e2e
