#pragma once

// A database file that can't be read as one any more, held still: as long as a HeldBytes lives, no other program reads
// or writes the file, on this PC or another. It can be read as bytes and get new ones in place: whoever has it open
// goes on with what stands there then, while a new file under the old name would leave him with the old one.

#include "store/database.h"

namespace store {

class FileEngine;

class HeldBytes {
public:
    /// Waits at most `patience` for other programs, then Code::Busy. Code::NoAccess if the file isn't there or can't be
    /// opened, ReadOnly if this person may only read it.
    explicit HeldBytes(const QString& path, std::chrono::milliseconds patience = default_patience);
    HeldBytes(const HeldBytes&) = delete;
    HeldBytes& operator=(const HeldBytes&) = delete;
    ~HeldBytes();

    QByteArray bytes() const; ///< all of them; Code::Io if they can't be read

    /// Takes away the journal, which belongs to what stood there, and puts the bytes on the disk. A kill in between
    /// leaves a file that can't be read.
    void overwrite(const QByteArray& bytes);

private:
    void remove_journal();

    std::unique_ptr<FileEngine> m_connection;
};

} // namespace store
