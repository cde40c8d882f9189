#pragma once

// How a text reads in the message of a test that fails.

#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
