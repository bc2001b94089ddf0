#pragma once

#include <TradeForms/Export.h>

#include <QByteArray>
#include <QString>

#include <exception>

namespace TradeForms {

/// A run-time failure: everything that a step's guard catches and shows to the user.
class TRADEFORMS_EXPORT Failure : public std::exception {
public:
    explicit Failure(const QString& description);
    ~Failure() override;

    /// The words for the user.
    const QString& Description() const { return description_; }
    /// The same words in UTF-8.
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString description_;
    QByteArray utf8_;
};

/// A failure that the database reported; it stands in Connection::Errors() as well.
class TRADEFORMS_EXPORT ProviderFailure : public Failure {
public:
    explicit ProviderFailure(const QString& description, int number = 0);
    ~ProviderFailure() override;

    /// The provider's own error number.
    int Number() const { return number_; }

private:
    int number_;
};

/// A number that does not fit the type it is narrowed to. Its description is "Overflow".
class TRADEFORMS_EXPORT OverflowFailure : public Failure {
public:
    OverflowFailure();
    ~OverflowFailure() override;
};

/// Work that was stopped at the user's wish.
class TRADEFORMS_EXPORT CancelledFailure : public Failure {
public:
    CancelledFailure();
    ~CancelledFailure() override;
};

/// A value that cannot be read as the type that is asked for. Its description is "Type mismatch".
class TRADEFORMS_EXPORT TypeMismatchFailure : public Failure {
public:
    TypeMismatchFailure();
    ~TypeMismatchFailure() override;
};

} // namespace TradeForms
