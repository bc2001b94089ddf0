#pragma once

#include <QString>

namespace Sample {

/// A literal of these sources, which are UTF-8.
inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace Sample
