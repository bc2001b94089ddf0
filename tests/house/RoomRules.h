#pragma once

#include <QString>
#include <QStringList>

namespace tests {

/// What a file includes that its room may not: one line each, empty where all is well.
/// path is relative to the project's root.
QStringList roomViolations(const QString& path, const QString& content);

} // namespace tests
