#include "store/key.h"

#include <QFile>
#include <QHash>
#include <QMutex>
#include <nettle/pbkdf2.h>
#include <openssl/rand.h>
#include <stdexcept>

namespace store {

namespace {

constexpr std::string_view password = "mzlart";
constexpr int rounds = 64'000;
constexpr int key_size = 32;

QByteArray derive(const QByteArray& salt) {
    const auto bytes = [](const auto& text) { return reinterpret_cast<const uint8_t*>(text.data()); };
    QByteArray key(key_size, '\0');
    pbkdf2_hmac_sha1(password.size(), bytes(password), rounds, size_t(salt.size()), bytes(salt), key_size,
        reinterpret_cast<uint8_t*>(key.data()));
    return "x'" + key.toHex() + salt.toHex() + "'";
}

QByteArray random_salt() {
    QByteArray salt(salt_size, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char*>(salt.data()), salt_size) != 1)
        throw std::runtime_error("no random numbers");
    return salt;
}

/// Memory of a pure function; nothing else in the program can tell whether a key was derived or remembered.
struct Memory {
    QMutex mutex;
    QHash<QByteArray, QByteArray> key_of_salt;
};

Memory& memory() {
    static Memory the_memory;
    return the_memory;
}

} // namespace

QByteArray key_for(const QByteArray& salt) {
    Memory& known = memory();
    const QMutexLocker lock(&known.mutex);
    const auto found = known.key_of_salt.constFind(salt);
    return found != known.key_of_salt.constEnd() ? *found : *known.key_of_salt.insert(salt, derive(salt));
}

QByteArray key_for_new_file() {
    {
        Memory& known = memory();
        const QMutexLocker lock(&known.mutex);
        if (!known.key_of_salt.isEmpty())
            return *known.key_of_salt.constBegin();
    }
    return key_for(random_salt());
}

std::jthread derive_ahead(const QString& path) {
    QFile file(path);
    const QByteArray salt = file.open(QIODevice::ReadOnly) ? file.read(salt_size) : QByteArray();
    if (salt.size() < salt_size)
        return {};
    return std::jthread([salt] {
        try {
            key_for(salt);
        } catch (const std::exception&) {
            // The one that opens the file meets the same and tells it.
        }
    });
}

} // namespace store
