#pragma once

#include <QString>

namespace tests {

/// Converts a UTF-8 literal to QString.
inline QString s(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace tests
