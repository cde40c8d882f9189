#pragma once

// The answer of a web server, read as it comes in. What is kept of it is bounded by what has come, whatever the server
// announces: an answer that grows too long, or isn't the file, is broken off there and then.

#include <QByteArray>
#include <optional>

namespace frame {

class HttpAnswer {
public:
    enum class State {
        Coming,
        Whole,  ///< file() has come
        Moved,  ///< it lies at location()
        Broken, ///< no file comes any more
    };

    /// `most` bytes is the largest file that is taken.
    explicit HttpAnswer(qsizetype most) : m_most(most) {}

    /// The next bytes. What comes after the end is left out.
    void take(QByteArrayView bytes);
    /// The server has hung up.
    void ends();

    State state() const { return m_state; }
    const QByteArray& file() const { return m_file; }
    /// An address, complete or from the one that was asked for; as the server says it.
    const QByteArray& location() const { return m_location; }

private:
    enum class Stage { Status, Fields, Body, ChunkSize, Chunk, ChunkEnd };

    bool step();
    std::optional<QByteArray> take_line();
    void read_line(const QByteArray& line);
    void read_status(const QByteArray& line);
    void read_field(const QByteArray& line);
    void end_fields();
    void expect(Stage stage, qint64 bytes);
    bool take_bytes();
    void break_off() { m_state = State::Broken; }

    qsizetype m_most;
    State m_state = State::Coming;
    Stage m_stage = Stage::Status;
    QByteArray m_rest; ///< not yet read
    qsizetype m_head_bytes = 0;
    int m_status = 0;
    bool m_chunked = false;
    std::optional<qint64> m_length; ///< of the body, if it is announced
    qint64 m_expected = 0;          ///< bytes of the body or chunk that haven't come
    QByteArray m_location;
    QByteArray m_file;
};

} // namespace frame
