#pragma once

// The pictures that a road leaves, numbered in the order in which they were taken.

#include <QDir>

class QWidget;

namespace e2e {

enum class Taken { No, Yes };

class Pictures {
public:
    /// Pictures go into the folder, which exists, behind those that lie there; the suffix ends every name.
    Pictures(Taken taken, const QDir& folder, QString suffix = {});

    /// The widget as NN-NAME.png, at the scale of the screen. Throws a RoadError if it can't be written.
    void take(QWidget& of, const QString& name);

    const QDir& folder() const { return m_folder; }

private:
    Taken m_taken;
    QDir m_folder;
    QString m_suffix;
    int m_next;
};

} // namespace e2e
