#pragma once

// The key of a database file. Deriving it from the password takes some 30 ms by design of the cipher, and a file keeps
// the salt in its first bytes: so each salt costs that time once in the life of the program.

#include <QByteArray>

namespace store {

inline constexpr int salt_size = 16;

/// The key in the form that the engine takes without deriving anything: key and salt as digits. Safe to call from any
/// thread.
QByteArray key_for(const QByteArray& salt);

/// The key for a file that is yet to be made. It takes a salt that this program has already met, since one password
/// guards all files, and thus saves every later reader the derivation; the first file of all gets a random one.
QByteArray key_for_new_file();

} // namespace store
