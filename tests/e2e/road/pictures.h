#pragma once

// The pictures that a road leaves, numbered in the order in which they were taken.

#include "base/literals.h"
#include "e2e/road/steps.h"

#include <QDir>
#include <QWidget>
#include <cstdio>

namespace e2e {

enum class Taken { No, Yes };

class Pictures {
public:
    /// Pictures go into the folder, which exists, behind those that lie there; the suffix ends every name.
    Pictures(Taken taken, const QDir& folder, QString suffix = {})
        : m_taken(taken), m_folder(folder), m_suffix(std::move(suffix)) {}

    /// The widget as NN-NAME.png, at the scale of the screen. Throws a RoadError if it can't be written.
    void take(QWidget& of, const QString& name) {
        using namespace base;
        if (m_taken == Taken::No)
            return;
        const QString path = m_folder.filePath(u"%1-%2%3.png"_s.arg(m_next++, 2, 10, QChar(u'0')).arg(name, m_suffix));
        demand(of.grab().save(path), u"can't write "_s + path);
        std::printf("%s\n", qPrintable(path));
        std::fflush(stdout);
    }

    const QDir& folder() const { return m_folder; }

private:
    Taken m_taken;
    QDir m_folder;
    QString m_suffix;
    qsizetype m_next = m_folder.entryList({QStringLiteral("*.png")}).size() + 1;
};

} // namespace e2e
