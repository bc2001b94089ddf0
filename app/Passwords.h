#pragma once

#include <QString>

#include <functional>

namespace Host {

/// Returns whether a password matches an argon2id hash. The duration of a login is that of this
/// check.
using HashCheck = std::function<bool(const QString& hash, const QString& password)>;
bool FitsHash(const QString& hash, const QString& password);

/// Passwords are stored as argon2id hashes in the encoded form, which contains salt and cost.
class Passwords {
public:
    /// Initialises the cryptographic library. Raises TradeForms::Failure where it fails.
    Passwords(HashCheck check = FitsHash);

    /// Returns a new hash of the password, with a random salt. Raises TradeForms::Failure without
    /// memory.
    QString Hash(const QString& password) const;

    /// Returns whether the password matches the hash. An empty or malformed hash matches no
    /// password, and takes as long as a wrong password: one check of a hash.
    bool Verify(const QString& hash, const QString& password) const;

private:
    HashCheck check_;
    QString dummyHash_;
};

} // namespace Host
