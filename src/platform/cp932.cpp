#include "platform/cp932.h"

#include <array>
#include <memory>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <iconv.h>
#endif

namespace platform {

namespace {

using Codes = std::array<quint16, 0x10000>; ///< by UTF-16 unit; 0 where the code page has nothing

#ifdef Q_OS_WIN

class Converter {
public:
    quint16 operator()(char16_t unit) const {
        const wchar_t wide = unit;
        char bytes[2];
        BOOL lost = FALSE;
        const int size = WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, 2, nullptr, &lost);
        if (lost || size == 0)
            return 0;
        return size == 1 ? quint8(bytes[0]) : quint16(quint8(bytes[0]) << 8 | quint8(bytes[1]));
    }
};

#else

class Converter {
public:
    Converter() : m_conversion(iconv_open("CP932", "UTF-16LE")) {}
    ~Converter() {
        if (m_conversion != iconv_t(-1))
            iconv_close(m_conversion);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    quint16 operator()(char16_t unit) const {
        char in[]{char(unit & 0xff), char(unit >> 8)};
        char out[2];
        char* from = in;
        char* to = out;
        size_t left = sizeof in;
        size_t room = sizeof out;
        iconv(m_conversion, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_conversion, &from, &left, &to, &room) == size_t(-1))
            return 0;
        return room == 1 ? quint8(out[0]) : quint16(quint8(out[0]) << 8 | quint8(out[1]));
    }

private:
    iconv_t m_conversion;
};

#endif

struct Equivalent {
    char16_t missing;
    char16_t usual;
};

/// What programs of other systems write for characters of the code page. They stand here and not with the platforms'
/// converters, which don't agree on them.
constexpr Equivalent equivalents[]{
    {u'\u301c', u'\uff5e'},                         // wave dash
    {u'\u223c', u'\uff5e'},                         // tilde operator
    {u'\u2212', u'\uff0d'},                         // minus
    {u'\u2013', u'-'},                              // en dash
    {u'\u2011', u'\u2010'},                         // hyphen without a break
    {u'\u2014', u'\u2015'},                         // em dash
    {u'\u2016', u'\u2225'},                         // double vertical line
    {u'\u203e', u'\uffe3'},                         // overline
    {u'\u00af', u'\uffe3'},                         // macron
    {u'\u00a5', u'\\'},                             // yen: Japanese Windows shows it for this code
    {u'\u00a2', u'\uffe0'},                         // cent
    {u'\u00a3', u'\uffe1'},                         // pound
    {u'\u00ac', u'\uffe2'},                         // not
    {u'\u00a6', u'\uffe4'},                         // broken bar
    {u'\u00b5', u'\u03bc'},                         // micro
    {u'\u00ab', u'\u226a'},                         // double angles
    {u'\u00bb', u'\u226b'}, {u'\u00b7', u'\u30fb'}, // middle dot
    {u'\u2022', u'\u30fb'},                         // bullet
    {u'\u22ef', u'\u2026'},                         // ellipsis
    {u'\u00a0', u' '},                              // space without a break
};

std::unique_ptr<const Codes> make_codes() {
    auto codes = std::make_unique<Codes>();
    const Converter code_of;
    for (int unit = 1; unit < int(codes->size()); ++unit)
        (*codes)[unit] = QChar::isSurrogate(unit) ? 0 : code_of(char16_t(unit));
    for (const auto [missing, usual] : equivalents)
        (*codes)[missing] = (*codes)[usual];
    return codes;
}

const Codes& codes() {
    static const std::unique_ptr<const Codes> made = make_codes();
    return *made;
}

bool is_sound_mark(QChar unit) {
    return unit == u'\u3099' || unit == u'\u309a';
}

} // namespace

void Cp932Text::grow(qsizetype more) {
    m_bytes.resize(2 * (m_size + more));
    m_room = m_bytes.data();
}

Fit Cp932Text::add_beyond_ascii(QStringView text, char left_out) {
    const Codes& table = codes();
    char* const first = room_for(2 * text.size());
    char* out = first;
    Fit fit = Fit::Whole;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const quint16 code = table[text[i].unicode()];
        if (code > 0xff)
            *out++ = char(code >> 8);
        *out = char(code == 0 ? '?' : code & 0xff);
        out += *out != left_out || code > 0xff;
        if (code != 0)
            continue;
        if (is_sound_mark(text[i]))
            if (const QString joined = text.toString().normalized(QString::NormalizationForm_C);
                joined.size() < text.size())
                return add_beyond_ascii(joined, left_out);
        fit = Fit::Replaced;
        i += text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 1 : 0;
    }
    m_size += out - first;
    return fit;
}

} // namespace platform
