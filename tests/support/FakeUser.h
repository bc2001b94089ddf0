#pragma once

#include "host/UserSecurity.h"

#include <QList>
#include <QString>

namespace tests {

/// A user whose rights are set by a test, and who records which were queried.
class FakeUser : public TradeForms::UserSecurity {
public:
    bool Modify = true;
    bool Delete = true;
    bool Administrator = false;
    bool PostedEdit = true;
    std::int16_t Number = 1;
    QString Branch = QStringLiteral("0");
    /// Makes HasRight throw, as a broken security service would.
    bool Broken = false;

    /// "MniGatePass modify" or "MniGatePass delete", in the order of the queries.
    QList<QString> Asked;
    mutable int FlagReads = 0;

    bool HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker,
                  std::optional<std::int16_t> deleteMarker) override;
    bool UserFlagA() const override
    {
        ++FlagReads;
        return false;
    }
    bool AllowPostedEdit() const override { return PostedEdit; }
    bool IsAdministrator() const override { return Administrator; }
    std::int16_t UserNumber() const override { return Number; }
    QString UserBranchCode() const override { return Branch; }
};

} // namespace tests
