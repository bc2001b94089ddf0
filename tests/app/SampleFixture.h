#pragma once

#include "SampleCompany.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Recordset.h>

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace tests {

inline const QDate lastDay{2026, 11, 20};

/// Longer than anything that is waited for takes, on any machine: what takes longer hangs.
inline constexpr int patience = 240'000;

/// Lets a failed comparison of texts be read.
inline std::string text(const QString& value)
{
    return value.toStdString();
}

/// A test on a sample company of its own: a copy of one that is made once.
class SampleFixture : public testing::Test {
protected:
    SampleFixture()
    {
        File = Folder.filePath(QStringLiteral("company.db"));
        if (!QFile::copy(original(), File))
            throw std::runtime_error("the sample company cannot be copied");
        Connection = TradeForms::Connection::Open(File);
    }

    /// First column of the first row.
    QVariant Ask(const char* statement) const
    {
        TradeForms::Recordset rows = Connection->Execute(statement);
        return rows.RecordCount() == 0 ? QVariant() : rows.Fields(0).Value();
    }
    int Count(const char* statement) const { return Ask(statement).toInt(); }

    QTemporaryDir Folder;
    QString File;
    std::shared_ptr<TradeForms::Connection> Connection;

private:
    static QString original()
    {
        static const QTemporaryDir folder;
        static const QString file = [] {
            const QString path = folder.filePath(QStringLiteral("original.db"));
            Host::MakeSampleCompany(path, Sample::DefaultAccounts, lastDay);
            return path;
        }();
        return file;
    }
};

} // namespace tests
