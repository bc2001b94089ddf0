#pragma once

#include <QtGlobal>

// What a host's author may use is exported from the shared library; everything else stays inside.
#if defined(TRADEFORMS_STATIC)
#define TRADEFORMS_EXPORT
#elif defined(TRADEFORMS_BUILDING)
#define TRADEFORMS_EXPORT Q_DECL_EXPORT
#else
#define TRADEFORMS_EXPORT Q_DECL_IMPORT
#endif
