#pragma once

// Connecting to a server, and why it can't be done in words that a person understands.

#include <QByteArray>
#include <QString>
#include <libpq-fe.h>

namespace store {

/// A connection in libpq's own words. Code::Away where no server answers or it is starting or ending, Refused where it
/// answers and says no or its certificate isn't good; `path` is that of the database that is opened.
PGconn* connect_to(const QByteArray& words, const QString& path);

} // namespace store
