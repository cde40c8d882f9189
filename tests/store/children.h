#pragma once

// Other programs on the same files: this test program started anew with a task of its own.

#include "support/killed.h"

/// A child with one of the tasks: "number ROOT COUNT" draws numbers and prints them; "write PATH" adds a counter and
/// prints "done" or the error's code; "die PATH" changes many rows, says "ready" in the middle of its commit and hangs.
/// Killed if it still runs when this goes.
class Child {
public:
    explicit Child(const QStringList& task) : m_process(support::start_child(task)) {}
    ~Child() { kill(); }

    QByteArray line() {
        while (!m_process->canReadLine() && m_process->waitForReadyRead(60'000)) {
        }
        return m_process->readLine().trimmed();
    }

    QByteArrayList all_lines() {
        m_process->waitForFinished(300'000);
        return m_process->readAllStandardOutput().trimmed().split('\n');
    }

    void kill() {
        m_process->kill();
        m_process->waitForFinished();
    }

private:
    std::unique_ptr<QProcess> m_process;
};
