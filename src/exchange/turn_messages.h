#pragma once

// What a client says to the turn service, taken from a stream that marks no ends: plain text without line end or
// length, which may arrive in pieces or joined.
//
// The first message is "##" and the client's own address; the first command is "st". An address has no end of its own,
// so the greeting is answered as soon as "##" is there, and the address is all that follows up to an "st" at the end of
// a read:
// "##192.168.0.7" then "st", "##192.168.0.7st" at once, or a letter at a time. A name that happens to end in "st" is
// taken for an early question, which does no harm: asking twice gets one answer. From then on commands are two letters
// each.

#include <QByteArray>
#include <vector>

namespace exchange {

enum class Message {
    Greeting, ///< "##"
    St,       ///< asks for the turn
    So,       ///< takes it
    En,       ///< wants to give it back
    Eo,       ///< gives it back
    Status,   ///< "??" in place of the greeting: asks who has the turn
    Garbage,  ///< none of these, or more than is kept
};

class MessageReader {
public:
    /// `bytes_kept` bounds what is remembered of text that isn't a whole message yet.
    explicit MessageReader(qsizetype bytes_kept) : m_bytes_kept(bytes_kept) {}

    /// The messages that the new bytes complete. Nothing follows a Garbage.
    std::vector<Message> take(QByteArrayView bytes);

    /// How the client named itself, as far as it has arrived. Letters, digits and ".:-_%[]" only.
    const QByteArray& address() const { return m_address; }

private:
    enum class Stage { Greeting, Address, Commands };

    void read_greeting(std::vector<Message>& messages);
    void read_address(std::vector<Message>& messages);
    void read_commands(std::vector<Message>& messages);

    qsizetype m_bytes_kept;
    Stage m_stage = Stage::Greeting;
    QByteArray m_rest;
    QByteArray m_address;
};

} // namespace exchange
