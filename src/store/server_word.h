#pragma once

// A line that a program says to the others on its data server, for as long as it runs: the counterpart of
// platform/slots.h. It stands in the name of a connection of its own, which everybody on the server may read and which
// goes with the program, however that ends.

#include <QString>
#include <QStringList>
#include <memory>

namespace store {

class ServerWord {
public:
    ServerWord() = default;
    ServerWord(const ServerWord&) = delete;
    ServerWord& operator=(const ServerWord&) = delete;
    virtual ~ServerWord() = default;

    /// The line in place of the one before, empty for none; it is said with the next look. What goes beyond some forty
    /// bytes of UTF-8 is cut.
    virtual void say(const QString& line) = 0;

    /// The lines of other programs with the same database, in no order, as they were at the last answer: a server that
    /// takes its time isn't waited for, nor is one connected to that is away. Throws nothing.
    virtual QStringList said_by_others() = 0;
};

/// Nothing where the database at the path is a file, or missing.
std::unique_ptr<ServerWord> server_word(const QString& path);

} // namespace store
