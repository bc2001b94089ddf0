#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace TradeForms {

/// An event with any number of handlers (steps). They run in the order in which they were added. An
/// exception thrown by a handler skips the remaining ones.
template <class... Arguments> class Event {
public:
    using Step = std::function<void(Arguments...)>;

    void operator+=(Step step) { steps_.push_back(std::make_shared<Step>(std::move(step))); }
    void Clear() { steps_.clear(); }
    bool IsEmpty() const { return steps_.empty(); }

    /// Runs the handlers registered at the time of the call; one added by a handler runs from the
    /// next call on.
    void operator()(Arguments... arguments) const
    {
        for (const auto& step : std::vector(steps_))
            (*step)(arguments...);
    }

private:
    std::vector<std::shared_ptr<Step>> steps_;
};

/// An event that can be cancelled: once a handler sets cancel, the remaining ones do not run.
class VetoEvent {
public:
    using Step = std::function<void(bool& cancel)>;

    void operator+=(Step step) { steps_.push_back(std::make_shared<Step>(std::move(step))); }
    void Clear() { steps_.clear(); }
    bool IsEmpty() const { return steps_.empty(); }

    void operator()(bool& cancel) const
    {
        for (const auto& step : std::vector(steps_)) {
            (*step)(cancel);
            if (cancel)
                return;
        }
    }

private:
    std::vector<std::shared_ptr<Step>> steps_;
};

} // namespace TradeForms
