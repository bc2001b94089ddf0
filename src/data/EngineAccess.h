#pragma once

#include "data/Connection.h"
#include "data/Engine.h"

#include <memory>
#include <utility>

namespace TradeForms {

/// The way from a connection to its engine, for the data room and its tests and measurements. A
/// host does not get this header.
class EngineAccess {
public:
    /// A connection on an engine, which it then owns.
    static std::shared_ptr<Connection> Connect(std::unique_ptr<Engine> engine)
    {
        return std::shared_ptr<Connection>(new Connection(std::move(engine)));
    }

    /// The engine of a connection; it lives as long as the connection.
    static Engine& Of(Connection& connection) { return *connection.engine_; }

    /// Runs an operation on a connection's engine and keeps its Errors(): they are emptied before,
    /// and hold the ProviderFailure that the operation raises, which is passed on. Returns what
    /// the operation returns.
    template <class Operation>
    static auto Run(Connection& connection, Operation operation) -> decltype(operation())
    {
        connection.errors_.errors_.clear();
        try {
            return operation();
        } catch (const ProviderFailure& failure) {
            connection.report(failure);
            throw;
        }
    }
};

} // namespace TradeForms
