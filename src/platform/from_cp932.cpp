#include "platform/from_cp932.h"

#ifdef Q_OS_WIN
#include <algorithm>
#include <windows.h>
#else
#include <array>
#include <cerrno>
#include <iconv.h>
#include <stdexcept>
#endif

namespace platform {

#ifdef Q_OS_WIN

QString from_cp932(QByteArrayView bytes) {
    constexpr UINT code_page = 932;
    const int size = MultiByteToWideChar(code_page, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    QString text(size, Qt::Uninitialized);
    MultiByteToWideChar(code_page, 0, bytes.data(), int(bytes.size()), reinterpret_cast<wchar_t*>(text.data()), size);
    // Windows has letters of its own for bytes that are no character.
    const auto is_none = [](QChar letter) { return letter >= u'\uf8f0' && letter <= u'\uf8f3'; };
    std::ranges::replace_if(text, is_none, QChar(QChar::ReplacementCharacter));
    return text;
}

#else

namespace {

class Decoder {
public:
    Decoder() : m_state(iconv_open("UTF-16LE", "CP932")) {
        if (m_state == iconv_t(-1))
            throw std::runtime_error("this system can't read code page 932");
    }
    ~Decoder() { iconv_close(m_state); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    /// Decodes up to the first byte that is no character; what is left then begins with it.
    void decode(QByteArrayView& rest, QByteArray& utf16) {
        std::array<char, 4096> room;
        for (size_t result = size_t(-1); result == size_t(-1);) {
            char* in = const_cast<char*>(rest.data()); // iconv's old signature; it only reads
            size_t in_left = size_t(rest.size());
            char* out = room.data();
            size_t out_left = room.size();
            errno = 0;
            result = iconv(m_state, &in, &in_left, &out, &out_left);
            rest = rest.last(qsizetype(in_left));
            utf16.append(room.data(), qsizetype(room.size() - out_left));
            if (result == size_t(-1) && errno != E2BIG)
                return;
        }
    }

private:
    iconv_t m_state;
};

} // namespace

QString from_cp932(QByteArrayView bytes) {
    Decoder decoder;
    QByteArray utf16;
    while (!bytes.isEmpty()) {
        decoder.decode(bytes, utf16);
        if (bytes.isEmpty())
            break;
        utf16.append("\xfd\xff", 2);
        bytes = bytes.sliced(1);
    }
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(utf16.constData()), utf16.size() / 2);
}

#endif

} // namespace platform
