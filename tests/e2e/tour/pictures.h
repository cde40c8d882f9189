#pragma once

// The pictures that a tour leaves: numbered in the order in which they were taken.

#include <QDir>

class QWidget;

namespace tour {

class Pictures {
public:
    /// Pictures go into the folder, which exists, from this number on; the suffix ends every name.
    Pictures(const QDir& folder, int first, QString suffix) : m_folder(folder), m_next(first), m_suffix(suffix) {}

    /// The widget as NN-NAME.png, at the scale of the screen. Throws e2e::RoadError if it can't be written.
    void take(QWidget& of, const QString& name);

    const QDir& folder() const { return m_folder; }
    int next() const { return m_next; } ///< the number of the next picture

private:
    QDir m_folder;
    int m_next;
    QString m_suffix;
};

} // namespace tour
