#pragma once

// A recorder's file as lines of cells: in which encoding it is written and what parts its cells is found from the
// bytes.

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace intake {

struct RecorderLine {
    int number = 0;    ///< in the file, from 1; blank lines count, though none is among the lines
    QStringList cells; ///< without blanks and quotation marks around them
};

struct RecorderFile {
    QList<RecorderLine> lines;
    QString encoding;  ///< "UTF-8", "UTF-16" or "CP932"
    QString separator; ///< "タブ", "コンマ", "セミコロン" or "空白"

    int columns() const; ///< of the line that has the most
};

/// Never fails: bytes that are no text stand as U+FFFD in the line where they are, and no bytes have no lines.
/// - A byte order mark says UTF-8 or UTF-16; without one it is UTF-8 if most lines beyond ASCII are, else CP932.
/// - The separator is the tab, the comma or the semicolon that most lines have, in this order where it is even; blanks
///   if most lines have none of them.
/// - A cell within quotation marks may hold the separator; a mark that isn't closed within its line is an ordinary
///   character, so that a damaged line spoils no other.
RecorderFile read_recorder_file(QByteArrayView bytes);

/// The file at the path; `trouble` says in words why it can't be read: it can't be opened, or it is larger than any
/// recorder's (64 MiB).
struct OpenedFile {
    RecorderFile file;
    QString trouble;
};
OpenedFile open_recorder_file(const QString& path);

} // namespace intake
