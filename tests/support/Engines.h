#pragma once

#include "data/Connection.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

namespace tests {

/// The engine through which a test accesses its company. The test body is shared and registered
/// once for each engine.
enum class EngineKind {
    Embedded,
    Odbc, ///< SQLite's ODBC driver on the same company file; not on Windows
    Host  ///< a host's connection object on the same company file; on Windows
};

/// The engine tested besides the embedded one on this system.
#ifdef _WIN32
inline constexpr EngineKind serverEngine = EngineKind::Host;
#else
inline constexpr EngineKind serverEngine = EngineKind::Odbc;
#endif

/// Returns the connection string with which the ODBC driver opens the company's file.
QString OdbcString(const TestCompany& company,
                   std::chrono::milliseconds lockWait = std::chrono::seconds(5));

/// Opens a new connection to the company. lockWait: how long it waits for another's lock. With
/// Odbc, statements first pass through the embedded engine's adapter, since the driver's SQLite
/// does not know the server's dialect. With Host, an embedded engine behind the connection object
/// runs them.
std::shared_ptr<TradeForms::Connection>
ConnectThrough(EngineKind engine, const TestCompany& company,
               std::chrono::milliseconds lockWait = std::chrono::seconds(5));

inline std::string EngineName(const testing::TestParamInfo<EngineKind>& info)
{
    switch (info.param) {
    case EngineKind::Embedded:
        return "Embedded";
    case EngineKind::Odbc:
        return "Odbc";
    case EngineKind::Host:
        return "Host";
    }
    return {};
}

/// Base of the tests that run on each engine.
class OnEngine : public testing::TestWithParam<EngineKind> {
protected:
    static bool isEmbedded() { return GetParam() == EngineKind::Embedded; }
    static bool isOdbc() { return GetParam() == EngineKind::Odbc; }
    std::shared_ptr<TradeForms::Connection>
    connect(std::chrono::milliseconds lockWait = std::chrono::seconds(5)) const
    {
        return ConnectThrough(GetParam(), company_, lockWait);
    }

    TestCompany company_;
    std::shared_ptr<TradeForms::Connection> connection_ = connect();
};

} // namespace tests

/// Registers a test suite for each engine, or for the embedded one only.
#define ON_EACH_ENGINE(Suite)                                                                      \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite,                                                       \
                             testing::Values(tests::EngineKind::Embedded, tests::serverEngine),    \
                             tests::EngineName)
#define ON_THE_EMBEDDED_ENGINE(Suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Engine, Suite, testing::Values(tests::EngineKind::Embedded),          \
                             tests::EngineName)
