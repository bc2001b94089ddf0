#pragma once

#include <QString>

#include <functional>

namespace Host {

/// Whether a password is that of an argon2id hash. What a login takes is the time of this.
using HashCheck = std::function<bool(const QString& hash, const QString& password)>;
bool FitsHash(const QString& hash, const QString& password);

/// Passwords are kept as argon2id hashes in the usual text form, which carries salt and cost.
class Passwords {
public:
    /// Makes the library of ciphers ready. Raises TradeForms::Failure where it cannot be.
    Passwords(HashCheck check = FitsHash);

    /// A new hash of the password, with a fresh salt.
    QString Hash(const QString& password) const;

    /// Whether the password is that of the hash. An empty or unreadable hash is of no password,
    /// and finding that out takes as long as a wrong password does: one check of a hash.
    bool Verify(const QString& hash, const QString& password) const;

private:
    HashCheck check_;
    QString stand_in_;
};

} // namespace Host
