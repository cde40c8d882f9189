#pragma once

// Databases on a server: opened and made here. A build without libpq has neither and tells so (no_server.cpp).

#include "store/engine.h"
#include "store/server_place.h"

namespace store {

/// Opens the database that the place names; throws what Database::open() tells.
std::unique_ptr<Engine> open_on_server(
    const ServerPlace& place, const QString& path, Kind kind, std::chrono::milliseconds patience);

/// Makes the schema with the kind's tables, for the role `rovena_clerk` to read and write their rows, and hands the
/// open database to `fill`; nothing of it stays if that throws. A schema of the name that is there stays as it is and
/// isn't filled; Code::OtherKind if it is another's.
void create_on_server(
    const ServerPlace& place, const QString& path, Kind kind, const std::function<void(std::unique_ptr<Engine>)>& fill);

/// std::runtime_error, in English, where libpq doesn't understand the words or they hold a password.
void check_connection_words(const QByteArray& words);

} // namespace store
