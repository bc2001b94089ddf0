#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class TestCompany;

namespace tests {

/// What a schema script makes, as far as two engines must agree on it. Names are in small letters.
struct SchemaObjects {
    struct Table {
        QStringList Columns; ///< "name TYPE", in their order; types in the embedded engine's words
        QStringList Key;
    };
    QMap<QString, Table> Tables;
    QMap<QString, QString> Indexes; ///< "table(columns)", by name
    QStringList Views;
    QStringList Functions;
    QStringList Procedures;
};

/// Reads the server's script. Fails the test where a table's column is of an unknown type.
SchemaObjects ReadServerScript(const QString& script);

/// What stands in a company's file. Its functions and procedures are not in the file.
SchemaObjects ReadCompanyFile(const TestCompany& company);

/// What one has and the other has not, or has otherwise; a line each.
QStringList Differences(const SchemaObjects& first, const SchemaObjects& second);

} // namespace tests
