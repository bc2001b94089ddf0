#pragma once

namespace tests {

/// Simulates a lost network for its lifetime: every call that would reach a server fails as it does
/// on a broken connection.
class CutLine {
public:
    CutLine();
    ~CutLine();
    CutLine(const CutLine&) = delete;
    CutLine& operator=(const CutLine&) = delete;

    /// The driver's message, including the driver's own prefixes.
    static constexpr const char* Report =
        "[Maker][Driver 18 for Server]TCP Provider: Error code 0x68";
    /// The same message as shown to the user.
    static constexpr const char* Reason = "TCP Provider: Error code 0x68";
};

} // namespace tests
