#pragma once

// The key of a database file. Deriving it from the password takes some 30 ms by design of the cipher, and a file keeps
// the salt in its first bytes: so each salt costs that time once in the life of the program.

#include <QByteArray>
#include <QString>
#include <thread>

namespace store {

inline constexpr int salt_size = 16;

/// The key in the form that the engine takes without deriving anything: key and salt, of `salt_size` bytes, as digits.
/// Safe to call from any
/// thread.
QByteArray key_for(const QByteArray& salt);

/// The key for a file that is yet to be made. It takes a salt that this program has already met, since one password
/// guards all files, and thus saves every later reader the derivation; the first file of all gets a random one. Throws
/// std::runtime_error where the system has no random numbers.
QByteArray key_for_new_file();

/// Begins to derive the key of the file on a thread of its own, for the first that opens the file to find it known.
/// Whoever holds the thread waits for its end when letting it go. To
/// be called before this program has opened anything: the salt is read here, with a handle of its own. Nothing happens
/// for a file that can't be read; whoever opens it will say so.
[[nodiscard]] std::jthread derive_ahead(const QString& path);

} // namespace store
