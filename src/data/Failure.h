#pragma once

#include <TradeForms/Export.h>

#include <QByteArray>
#include <QString>

#include <exception>

namespace TradeForms {

/// Base of all run-time failures, whose descriptions are shown to the user.
class TRADEFORMS_EXPORT Failure : public std::exception {
public:
    explicit Failure(const QString& description);
    ~Failure() override;

    /// The text for the user.
    const QString& Description() const { return description_; }
    /// The same text in UTF-8.
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString description_;
    QByteArray utf8_;
};

/// A failure that the database reported. It is in Connection::Errors() as well.
class TRADEFORMS_EXPORT ProviderFailure : public Failure {
public:
    explicit ProviderFailure(const QString& description, int number = 0);
    ~ProviderFailure() override;

    /// The database's or driver's error number; 0 where there is none.
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

/// The user has cancelled a long operation.
class TRADEFORMS_EXPORT CancelledFailure : public Failure {
public:
    CancelledFailure();
    ~CancelledFailure() override;
};

/// A value that cannot be converted to a type. Its description is "Type mismatch".
class TRADEFORMS_EXPORT TypeMismatchFailure : public Failure {
public:
    TypeMismatchFailure();
    ~TypeMismatchFailure() override;
};

} // namespace TradeForms
