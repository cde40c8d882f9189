#pragma once

// The one exception of the store: what broke, in which file, in which statement; never bound values and never the key.
// It is turned into the text that the person sees at one place, in main().

#include <QString>
#include <stdexcept>
#include <system_error>

namespace store {

enum class Code {
    Missing,      ///< no file at the path
    Empty,        ///< a file of no bytes
    NotADatabase, ///< a plain file: not keyed, or too short to be a database
    WrongKey,     ///< the password doesn't open it, or its first page is damaged
    Damaged,      ///< a page behind the first doesn't decrypt or doesn't fit
    OtherKind,    ///< a keyed database, but not of the kind expected at this place
    Newer,        ///< written by a later version of the program
    Older,        ///< tables on a server of an earlier version, which a clerk can't change
    Away,         ///< the data server isn't reached
    Refused,      ///< the data server refuses the connection: the person, the password, the database or the certificate
    Forbidden,    ///< the data server's user has no right to that
    ReadOnly,     ///< the file or its folder can't be written
    Full,         ///< the disk is full
    Io,           ///< the disk or the network failed while something was read or written
    Busy,         ///< another PC or program is writing and didn't end in time
    Exists,       ///< there is a file already where a new one should be made
    Replaced,     ///< the file was replaced by another while it stood open
    NoAccess,     ///< this person may not read the file
    Misuse, ///< a fault of the program: a statement that doesn't fit the tables, a run of settings that isn't open
    Other,
};

class Error : public std::runtime_error {
public:
    Error(Code code, QString file, QString statement, QString detail);

    Code code() const { return m_code; }
    const QString& file() const { return m_file; }
    const QString& statement() const { return m_statement; }
    const QString& detail() const { return m_detail; } ///< what the engine or the system said

    /// What the person sees, in Japanese: what happened, the file, and what the engine said.
    QString text() const;

private:
    Code m_code;
    QString m_file;
    QString m_statement;
    QString m_detail;
};

/// Throws what a failure of the system at this file means, Code::Exists, Full, ReadOnly, Io or Other; nothing if there
/// is none.
void check_system(const std::error_code& failure, const QString& file);

} // namespace store
