#pragma once

#include "stock/FrmGatePass.h"
#include "support/FormDesk.h"

namespace tests {

/// Test fixture for gate passes.
class GatePassDesk : public FormDesk<FrmGatePass> {
protected:
    void EnterHeader(); ///< driver 2014, receiver 3107, area Kot, branch 1
    void EnterRow(const QString& product, const QString& out, const QString& oldBack = {},
                  const QString& newBack = {});
    /// Saves by Ctrl+S and answers the print question with No.
    void Save();
    /// Enters and saves a pass with one row; returns its number.
    int Stored(const QString& product = QStringLiteral("101"),
               const QString& out = QStringLiteral("3"));

    /// Returns the body rows as "product|out|old|new", in the order of their products.
    QStringList BodyOf(int id);

    static Message PrintQuestion();
};

} // namespace tests
