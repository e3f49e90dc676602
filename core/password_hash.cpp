#include "core/password_hash.h"

#include <QByteArray>
#include <atomic>
#include <sodium.h>

namespace co {
namespace {

bool sodiumReady() {
    // sodium_init is safe to repeat, but once is enough for the process.
    static const bool ready = sodium_init() >= 0;
    return ready;
}

std::atomic<unsigned long long> g_operations{crypto_pwhash_OPSLIMIT_INTERACTIVE};
std::atomic<std::size_t> g_memory{crypto_pwhash_MEMLIMIT_INTERACTIVE};

const QByteArray kPrefix = QByteArrayLiteral(crypto_pwhash_argon2id_STRPREFIX);

} // namespace

PasswordHashCost interactivePasswordHashCost() {
    return {crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE};
}

PasswordHashCost passwordHashCost() {
    return {g_operations.load(), g_memory.load()};
}

bool setPasswordHashCost(PasswordHashCost cost) {
    if (cost.operations < crypto_pwhash_argon2id_OPSLIMIT_MIN ||
        cost.memoryBytes < crypto_pwhash_argon2id_MEMLIMIT_MIN)
        return false;
    g_operations = cost.operations;
    g_memory = cost.memoryBytes;
    return true;
}

QString hashPassword(const QString &clear) {
    if (!sodiumReady())
        return {};
    const QByteArray bytes = clear.toUtf8();
    char out[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(out, bytes.constData(), static_cast<unsigned long long>(bytes.size()),
                              g_operations.load(), g_memory.load(),
                              crypto_pwhash_ALG_ARGON2ID13) != 0)
        return {};
    return QString::fromLatin1(out);
}

bool isPasswordHash(const QString &stored) {
    return stored.startsWith(QLatin1String(kPrefix));
}

bool verifyPassword(const QString &stored, const QString &typed) {
    const QByteArray bytes = typed.toUtf8();
    if (!isPasswordHash(stored)) {
        const QByteArray kept = stored.toUtf8();
        return kept.size() == bytes.size() &&
               (bytes.isEmpty() || sodium_memcmp(kept.constData(), bytes.constData(),
                                                 static_cast<std::size_t>(bytes.size())) == 0);
    }
    if (!sodiumReady())
        return false;
    const QByteArray hash = stored.toLatin1();
    if (hash.size() >= crypto_pwhash_STRBYTES)
        return false;
    return crypto_pwhash_str_verify(hash.constData(), bytes.constData(),
                                    static_cast<unsigned long long>(bytes.size())) == 0;
}

bool passwordNeedsUpgrade(const QString &stored) {
    if (!isPasswordHash(stored))
        return true;
    if (!sodiumReady())
        return false;
    const QByteArray hash = stored.toLatin1();
    // Not 0: made at another cost, or not a hash libsodium can read.
    return crypto_pwhash_str_needs_rehash(hash.constData(), g_operations.load(), g_memory.load()) !=
           0;
}

} // namespace co
