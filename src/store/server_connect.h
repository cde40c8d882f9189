#pragma once

// Connecting to a server, and why it can't be done in words that a person understands.

#include <QByteArray>
#include <QString>
#include <libpq-fe.h>
#include <memory>

namespace store {

struct FreeOptions {
    void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};
using Options = std::unique_ptr<PQconninfoOption, FreeOptions>;
/// Empty where the options haven't got it.
QByteArray value_of(const Options& options, const char* name);

/// What is told where a server takes no writes: the copy of another, or one that was set so.
inline constexpr QStringView read_only_words =
    u"サーバーは読み取り専用です（待機系か、復旧中）。書き込めるサーバーが動いているか確かめてください。";
bool reads_only(const PGconn* connection);

/// A connection in libpq's own words, to the one of several hosts that takes writes unless the words ask for another.
/// Code::Away where no server answers or it is starting or ending, or where it takes no writes, Refused where it
/// answers and says no or its certificate isn't good; `path` is that of the database that is opened.
PGconn* connect_to(const QByteArray& words, const QString& path);

} // namespace store
