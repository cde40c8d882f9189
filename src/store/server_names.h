#pragma once

// What a connection is called on the server, which everybody there may read: its program, its PC, and what it is at.

#include <QByteArray>
#include <QString>

namespace store {

/// Every connection of the system's begins so.
inline constexpr QByteArrayView program_word = "rovena";

/// A text in at most `room` bytes of ASCII without a blank: a server makes "?" of anything else. What doesn't fit is
/// cut.
QByteArray in_ascii(QString text, qsizetype room);
QString from_ascii(const QByteArray& ascii);

/// "rovena", and this PC.
QByteArray connection_name();

/// The PC, from the name of one of its connections; empty where it doesn't say.
QString pc_of(const QByteArray& connection_name);

} // namespace store
