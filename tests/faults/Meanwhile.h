#pragma once

#include "data/Connection.h"

#include <QByteArray>

#include <functional>
#include <memory>

struct sqlite3;

/// Another workstation that does something at a chosen moment: just before this connection runs
/// a statement that begins with the given words, for the first time in the scope.
class Meanwhile {
public:
    Meanwhile(std::shared_ptr<TradeForms::Connection> connection, const char* statement,
              std::function<void()> deed);
    ~Meanwhile();
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    bool HasHappened() const { return hasHappened_; }

private:
    static int trace(unsigned event, void* self, void* statement, void* text);

    std::shared_ptr<TradeForms::Connection> connection_;
    sqlite3* handle_;
    QByteArray statement_;
    std::function<void()> deed_;
    bool hasHappened_ = false;
};
