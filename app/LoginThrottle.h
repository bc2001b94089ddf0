#pragma once

#include <algorithm>
#include <chrono>

namespace Host {

/// How long to wait after each failed login: 1 second, then twice as long each time, up to 30.
class LoginThrottle {
public:
    std::chrono::seconds Failed()
    {
        const std::chrono::seconds delay = next_;
        next_ = std::min(2 * next_, longest);
        return delay;
    }

private:
    static constexpr std::chrono::seconds longest{30};
    std::chrono::seconds next_{1};
};

} // namespace Host
