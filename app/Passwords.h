#pragma once

#include <QString>

namespace Host {

/// Passwords are kept as argon2id hashes in the usual text form, which carries salt and cost.
class Passwords {
public:
    /// Makes the library of ciphers ready. Raises TradeForms::Failure where it cannot be.
    Passwords();

    /// A new hash of the password, with a fresh salt.
    QString Hash(const QString& password) const;

    /// Whether the password is that of the hash. An empty or unreadable hash is of no password,
    /// and finding that out takes as long as a wrong password does.
    bool Verify(const QString& hash, const QString& password) const;

private:
    QString stand_in_;
};

} // namespace Host
