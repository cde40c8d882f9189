#pragma once

// Code page 932, the text of Japanese Windows programs. A character that it lacks is written as the one that stands for
// it as a rule (the wave dash U+301C as the full-width tilde, the minus U+2212 as the full-width one, and so on), and
// as "?" where there is none.

#include <QByteArray>
#include <QString>

namespace platform {

/// Whether something of a text got lost.
enum class Fit { Whole, Replaced };

/// Text in code page 932 in the making. Long texts are made and handed on piece by piece.
class Cp932Text {
public:
    Cp932Text() = default;
    Cp932Text(const Cp932Text&) = delete;
    Cp932Text& operator=(const Cp932Text&) = delete;

    /// Adds the text without the ASCII character `left_out`. A plain text costs little more than its copy.
    Fit add(QStringView text, char left_out = '\0') {
        char* const first = room_for(text.size());
        char* out = first;
        for (const QChar unit : text) {
            if (unit.unicode() >= 0x80)
                return add_beyond_ascii(text, left_out);
            const char ascii = char(unit.unicode());
            *out = ascii;
            out += ascii != left_out;
        }
        m_size += out - first;
        return Fit::Whole;
    }
    void add(char ascii) {
        *room_for(1) = ascii;
        ++m_size;
    }

    QByteArrayView bytes() const { return {m_room, m_size}; }
    void clear() { m_size = 0; } ///< keeps the room

private:
    char* room_for(qsizetype more) {
        if (m_size + more > m_bytes.size())
            grow(more);
        return m_room + m_size;
    }
    void grow(qsizetype more);
    Fit add_beyond_ascii(QStringView text, char left_out);

    QByteArray m_bytes; ///< longer than what is written
    char* m_room = nullptr;
    qsizetype m_size = 0;
};

} // namespace platform
