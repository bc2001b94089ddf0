#pragma once

namespace tests {

/// The network is gone as long as this lives: every call that would reach a server fails as it
/// does when the connection has broken off.
class CutLine {
public:
    CutLine();
    ~CutLine();
    CutLine(const CutLine&) = delete;
    CutLine& operator=(const CutLine&) = delete;

    /// What the driver then reports, its own names in front.
    static constexpr const char* Report =
        "[Maker][Driver 18 for Server]TCP Provider: Error code 0x68";
    /// The same as a user reads it.
    static constexpr const char* Reason = "TCP Provider: Error code 0x68";
};

} // namespace tests
