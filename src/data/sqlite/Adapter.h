#pragma once

#include "data/Cells.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace TradeForms {

/// A statement of the server's dialect made ready for SQLite.
struct AdaptedStatement {
    /// A call of a procedure, `exec P 'a', 1`.
    struct Call {
        QByteArray Name;
        QList<QByteArray> Arguments; ///< texts without their quotes, numbers as written
    };

    QByteArray Text;
    std::optional<Call> Procedure; ///< with one, there is no text
};

/// Rewrites one statement. Literals, quoted names and comments stand as they are. Raises
/// ProviderFailure where the text is no whole statement, or more than one.
AdaptedStatement AdaptStatement(const QByteArray& text);

} // namespace TradeForms
