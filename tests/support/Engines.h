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
    Odbc ///< SQLite's ODBC driver, on the same company file
};

/// What the test's driver wants to know to open a company's file.
QString OdbcString(const TestCompany& company,
                   std::chrono::milliseconds lockWait = std::chrono::seconds(5));

/// A new connection to the company, and how long it waits for another's lock. Through ODBC the
/// statements pass the embedded engine's adapter first, as the driver's SQLite does not know the
/// server's dialect.
std::shared_ptr<TradeForms::Connection>
ConnectThrough(EngineKind engine, const TestCompany& company,
               std::chrono::milliseconds lockWait = std::chrono::seconds(5));

inline std::string EngineName(const testing::TestParamInfo<EngineKind>& info)
{
    return info.param == EngineKind::Embedded ? "Embedded" : "Odbc";
}

/// Base of the tests that run on each engine.
class OnEngine : public testing::TestWithParam<EngineKind> {
protected:
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
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Engines, Suite, testing::Values(tests::EngineKind::Embedded, tests::EngineKind::Odbc),     \
        tests::EngineName)
#define ON_THE_EMBEDDED_ENGINE(Suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Engine, Suite, testing::Values(tests::EngineKind::Embedded),          \
                             tests::EngineName)
