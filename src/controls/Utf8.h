#pragma once

#include <QString>

namespace TradeForms {

/// Converts a UTF-8 string to QString, for literals that QStringLiteral cannot take because they
/// are passed as pointers.
inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace TradeForms
