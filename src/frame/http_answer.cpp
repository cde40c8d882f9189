#include "frame/http_answer.h"

#include <QByteArrayList>
#include <algorithm>
#include <limits>

namespace frame {

namespace {

constexpr qsizetype most_head_bytes = 16 * 1024;
constexpr qsizetype most_line_bytes = 4 * 1024;
constexpr qint64 until_the_end = std::numeric_limits<qint64>::max();

constexpr int status_ok = 200;
constexpr int moved[]{301, 302, 303, 307, 308};

/// A number that a server announces; nothing if it is none, or negative.
std::optional<qint64> announced(const QByteArray& text, int base) {
    bool readable = false;
    const qint64 number = text.trimmed().toLongLong(&readable, base);
    return readable && number >= 0 ? std::optional(number) : std::nullopt;
}

} // namespace

void HttpAnswer::take(QByteArrayView bytes) {
    m_rest.append(bytes);
    while (m_state == State::Coming && step()) {
    }
}

void HttpAnswer::ends() {
    if (m_state == State::Coming)
        m_state = m_stage == Stage::Body && !m_length ? State::Whole : State::Broken;
}

/// False if more has to come first.
bool HttpAnswer::step() {
    if (m_stage == Stage::Body || m_stage == Stage::Chunk)
        return take_bytes();
    const auto line = take_line();
    if (line)
        read_line(*line);
    return line.has_value();
}

std::optional<QByteArray> HttpAnswer::take_line() {
    const qsizetype end = m_rest.indexOf('\n');
    const bool in_head = m_stage == Stage::Status || m_stage == Stage::Fields;
    const qsizetype length = end < 0 ? m_rest.size() : end + 1;
    if (length > most_line_bytes || (in_head && m_head_bytes + length > most_head_bytes))
        break_off();
    if (end < 0 || m_state == State::Broken)
        return std::nullopt;
    m_head_bytes += in_head ? length : 0;
    const QByteArray line = m_rest.first(end).trimmed();
    m_rest.remove(0, length);
    return line;
}

void HttpAnswer::read_line(const QByteArray& line) {
    switch (m_stage) {
    case Stage::Status:
        return read_status(line);
    case Stage::Fields:
        return line.isEmpty() ? end_fields() : read_field(line);
    case Stage::ChunkSize:
        return expect(Stage::Chunk, announced(line.split(';').first(), 16).value_or(until_the_end));
    default:
        m_stage = Stage::ChunkSize;
        if (!line.isEmpty())
            break_off();
    }
}

void HttpAnswer::read_status(const QByteArray& line) {
    const QByteArrayList words = line.split(' ');
    m_status = words.value(1).toInt();
    m_stage = Stage::Fields;
    const bool interim = m_status >= 100 && m_status < 200;
    const bool wanted = m_status == status_ok || std::ranges::find(moved, m_status) != std::end(moved);
    if (!words.first().startsWith("HTTP/1.") || !(interim || wanted))
        break_off();
}

void HttpAnswer::read_field(const QByteArray& line) {
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = line.first(std::max<qsizetype>(colon, 0)).toLower();
    const QByteArray value = line.sliced(colon + 1).trimmed();
    if (name == "location") {
        m_location = value;
    } else if (name == "transfer-encoding") {
        m_chunked = value.toLower() == "chunked";
    } else if (name == "content-length") {
        m_length = announced(value, 10).value_or(until_the_end);
    }
}

void HttpAnswer::end_fields() {
    if (m_status < status_ok)
        m_stage = Stage::Status;
    else if (m_status != status_ok)
        m_state = State::Moved;
    else if (m_chunked)
        m_stage = Stage::ChunkSize;
    else
        expect(Stage::Body, m_length.value_or(until_the_end));
}

void HttpAnswer::expect(Stage stage, qint64 bytes) {
    m_stage = stage;
    m_expected = bytes;
    if (bytes == 0)
        m_state = State::Whole;
}

/// A body or a chunk that is announced as too long is found out when as much has come.
bool HttpAnswer::take_bytes() {
    const qsizetype taken = qsizetype(std::min<qint64>(m_rest.size(), m_expected));
    m_file += m_rest.first(taken);
    m_rest.remove(0, taken);
    m_expected -= taken;
    if (m_file.size() > m_most)
        break_off();
    else if (m_expected == 0 && m_stage == Stage::Body)
        m_state = State::Whole;
    else if (m_expected == 0)
        m_stage = Stage::ChunkEnd;
    return m_expected == 0;
}

} // namespace frame
