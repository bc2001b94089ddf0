#pragma once

#include "data/Cells.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace TradeForms {

/// A statement in the server's dialect, rewritten for SQLite.
struct AdaptedStatement {
    /// A call of a procedure, `exec P 'a', 1`.
    struct Call {
        QByteArray Name;
        QList<QByteArray> Arguments; ///< string literals without their quotes, numbers as written
    };

    QByteArray Text;
    std::optional<Call> Procedure; ///< where it is set, Text is empty
};

/// Rewrites one statement. Literals, quoted names and comments are unchanged. Raises
/// ProviderFailure where the text is not exactly one complete statement.
AdaptedStatement AdaptStatement(const QByteArray& text);

} // namespace TradeForms
