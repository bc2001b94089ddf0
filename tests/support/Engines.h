#pragma once

#include "data/Connection.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

namespace tests {

/// Through which engine a test reaches its company. One body, one registration an engine.
enum class EngineKind {
    Embedded,
    Odbc, ///< SQLite's ODBC driver, on the same company file; there is none on Windows
    Host  ///< a host's connection object, on the same company file; on Windows
};

/// The one beside the embedded engine on this system.
#ifdef _WIN32
inline constexpr EngineKind serverEngine = EngineKind::Host;
#else
inline constexpr EngineKind serverEngine = EngineKind::Odbc;
#endif

/// What the test's driver wants to know to open a company's file.
QString OdbcString(const TestCompany& company,
                   std::chrono::milliseconds lockWait = std::chrono::seconds(5));

/// A new connection to the company, and how long it waits for another's lock. Through ODBC the
/// statements pass the embedded engine's adapter first, as the driver's SQLite does not know the
/// server's dialect; behind a host's connection they are run by an embedded engine.
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

/// Registers a suite of such tests for each engine, or for the embedded one alone.
#define ON_EACH_ENGINE(Suite)                                                                      \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite,                                                       \
                             testing::Values(tests::EngineKind::Embedded, tests::serverEngine),    \
                             tests::EngineName)
#define ON_THE_EMBEDDED_ENGINE(Suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Engine, Suite, testing::Values(tests::EngineKind::Embedded),          \
                             tests::EngineName)
