#pragma once

namespace Host {

struct Options;

/// Exit codes of the program.
inline constexpr int ExitDone = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitWrongOptions = 2;

/// Makes the sample company and returns the exit code. Needs no display.
int CreateSampleCompany(const Options& options);

/// Adds a company's first administrator and returns the exit code. Needs no display.
int AddFirstAdministrator(const Options& options);

/// Runs the host until the user leaves; returns the exit code. Needs a QApplication.
int RunHost(const Options& options);

} // namespace Host
