#pragma once

#include <QString>

namespace TradeForms {

/// A literal of the sources, which are UTF-8, where only its address is known at compile time.
inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace TradeForms
