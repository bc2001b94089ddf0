#pragma once

#include <QString>

namespace tests {

/// A literal in UTF-8.
inline QString s(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace tests
