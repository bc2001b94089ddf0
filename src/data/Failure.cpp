#include "data/Failure.h"

namespace TradeForms {

Failure::Failure(const QString& description)
    : description_(description), utf8_(description.toUtf8())
{
}

Failure::~Failure() = default;

ProviderFailure::ProviderFailure(const QString& description, int number)
    : Failure(description), number_(number)
{
}

ProviderFailure::~ProviderFailure() = default;

OverflowFailure::OverflowFailure() : Failure(QStringLiteral("Overflow")) {}

OverflowFailure::~OverflowFailure() = default;

CancelledFailure::CancelledFailure() : Failure(QStringLiteral("Cancelled")) {}

CancelledFailure::~CancelledFailure() = default;

TypeMismatchFailure::TypeMismatchFailure() : Failure(QStringLiteral("Type mismatch")) {}

TypeMismatchFailure::~TypeMismatchFailure() = default;

} // namespace TradeForms
