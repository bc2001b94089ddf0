#include "Passwords.h"

#include <TradeForms/Failure.h>

#include <sodium.h>

#include <utility>

namespace Host {

namespace {

/// The password's bytes, wiped when they are no longer needed.
class SecretBytes {
public:
    explicit SecretBytes(const QString& text) : bytes_(text.toUtf8()) {}
    ~SecretBytes() { sodium_memzero(bytes_.data(), std::size_t(bytes_.size())); }
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;

    const char* Data() const { return bytes_.constData(); }
    unsigned long long Size() const { return static_cast<unsigned long long>(bytes_.size()); }

private:
    QByteArray bytes_;
};

} // namespace

bool FitsHash(const QString& hash, const QString& password)
{
    const SecretBytes secret(password);
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), secret.Data(), secret.Size()) == 0;
}

Passwords::Passwords(HashCheck check) : check_(std::move(check))
{
    if (sodium_init() < 0)
        throw TradeForms::Failure(QStringLiteral("The library of ciphers cannot be started."));
    // The hash that is checked for unknown users; Verify never accepts it.
    dummyHash_ = Hash(QStringLiteral("stand-in"));
}

QString Passwords::Hash(const QString& password) const
{
    const SecretBytes secret(password);
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hash, secret.Data(), secret.Size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw TradeForms::Failure(QStringLiteral("There is not enough memory for a password."));
    return QString::fromLatin1(hash);
}

bool Passwords::Verify(const QString& hash, const QString& password) const
{
    if (!hash.startsWith(QLatin1String(crypto_pwhash_STRPREFIX))) {
        check_(dummyHash_, password);
        return false;
    }
    return check_(hash, password);
}

} // namespace Host
