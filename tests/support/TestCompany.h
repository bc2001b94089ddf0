#pragma once

#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

#include <memory>

struct sqlite3;

namespace TradeForms {
class Connection;
}

/// A company for a single test, in a temporary folder that is deleted with it.
///
/// Branches 1 قصور, 2 لاہور, 3 پتوکی; areas Kot and Raja (branch 1), Lahore (2); staff 2014 and
/// 2015 (field workers), 3107, 3108 (mechanic), 4001 (franchise holder), 5001 and 5002 (area
/// manager and secretary); products 101, 104, 210, 233 in stock and 299 that never was in stock;
/// users 1 to 3, the last with the year 2026 as its window; accounts, parties, sectors, parts,
/// rates. Voucher tables are empty except for the documents through which the stock was received.
class TestCompany {
public:
    TestCompany();
    ~TestCompany();
    TestCompany(const TestCompany&) = delete;
    TestCompany& operator=(const TestCompany&) = delete;

    /// Opens a new connection, as another window or workstation would.
    std::shared_ptr<TradeForms::Connection> Connect() const;
    QString File() const;
    QString Folder() const { return folder_.path(); }

    /// Runs a query directly on the file, bypassing the library. Numbers are returned as qlonglong
    /// or double, everything else as text, null as an invalid QVariant. An error fails the test.
    QList<QVariantList> Rows(const QString& sql) const;
    QList<QVariantList> Rows(const char* sql) const { return Rows(QString::fromUtf8(sql)); }
    /// Returns the first column of the first row; invalid if there is no row.
    QVariant Scalar(const QString& sql) const;
    QVariant Scalar(const char* sql) const { return Scalar(QString::fromUtf8(sql)); }
    /// Runs one or more statements.
    void Run(const QString& sql) const;
    void Run(const char* sql) const { Run(QString::fromUtf8(sql)); }

private:
    sqlite3* raw() const;

    QTemporaryDir folder_;
    mutable sqlite3* raw_ = nullptr;
};
