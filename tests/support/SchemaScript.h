#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class TestCompany;

namespace tests {

/// The objects that a schema script creates, as far as two engines must agree on them. Names are in
/// lower case.
struct SchemaObjects {
    struct Table {
        QStringList Columns; ///< "name TYPE" in their order, with the embedded engine's types
        QStringList Key;
    };
    QMap<QString, Table> Tables;
    QMap<QString, QString> Indexes; ///< "table(columns)", by name
    QStringList Views;
    QStringList Functions;
    QStringList Procedures;
};

/// Parses the server's schema script. A column of an unknown type fails the test.
SchemaObjects ReadServerScript(const QString& script);

/// Reads the schema of a company's file. Functions and procedures are not stored in the file.
SchemaObjects ReadCompanyFile(const TestCompany& company);

/// Returns the differences between two schemas, one line each; empty if they agree.
QStringList Differences(const SchemaObjects& first, const SchemaObjects& second);

} // namespace tests
