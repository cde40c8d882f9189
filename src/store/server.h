#pragma once

// Databases on a server: opened and made here. A build without libpq has neither and tells so (no_server.cpp).

#include "store/engine.h"
#include "store/server_place.h"

namespace store {

/// Opens the database that the place names; throws what Database::open() tells.
std::unique_ptr<Engine> open_on_server(
    const ServerPlace& place, const QString& path, Kind kind, std::chrono::milliseconds patience);

/// How long a set-up waits for another PC's, which is filling the same schema.
inline constexpr std::chrono::minutes patience_with_maker(2);

/// Makes the schema with the kind's tables, for the role `rovena_clerk` to read and write their rows, and fills it, in
/// one transaction: it is there with all that, or not at all. A schema of the name that is there stays as it is and
/// isn't filled; Code::OtherKind if it is another's. Of two who set it up at one moment the second waits for the first,
/// and Code::Busy if that takes longer than the patience.
void create_on_server(const ServerPlace& place, const QString& path, Kind kind,
    const std::function<void(Database&)>& fill, std::chrono::milliseconds patience = patience_with_maker);

/// Ends this program's connections that only wait to be used again: the server counts them among those of others.
void end_waiting_connections();

/// std::runtime_error, in Japanese, where libpq doesn't understand the words or they hold a password.
void check_connection_words(const QByteArray& words);

} // namespace store
