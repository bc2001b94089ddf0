#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace TradeForms {

/// What a control tells of. Any number of steps may be added; they run in the order in which they
/// were added, so that a form's step comes after that of the part which it made before. A step
/// that throws ends the event.
template <class... Arguments> class Event {
public:
    using Step = std::function<void(Arguments...)>;

    void operator+=(Step step) { steps_.push_back(std::make_shared<Step>(std::move(step))); }
    void Clear() { steps_.clear(); }
    bool IsEmpty() const { return steps_.empty(); }

    /// Runs the steps that were there when it began: a step may add another one.
    void operator()(Arguments... arguments) const
    {
        for (const auto& step : std::vector(steps_))
            (*step)(arguments...);
    }

private:
    std::vector<std::shared_ptr<Step>> steps_;
};

/// An event that may be refused: the steps after the first one that sets cancel do not run.
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
