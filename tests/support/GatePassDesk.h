#pragma once

#include "stock/FrmGatePass.h"
#include "support/FormDesk.h"

namespace tests {

/// A clerk's desk with gate passes on it.
class GatePassDesk : public FormDesk<FrmGatePass> {
protected:
    void EnterHeader(); ///< driver 2014, receiver 3107, Kot, branch 1
    void EnterRow(const QString& product, const QString& out, const QString& oldBack = {},
                  const QString& newBack = {});
    /// Saves by Ctrl+S and answers the print question with No.
    void Save();
    /// Enters and saves a pass with one row; gives its number.
    int Stored(const QString& product = QStringLiteral("101"),
               const QString& out = QStringLiteral("3"));

    /// Rows of the body table, "product|out|old|new", in the order of their product.
    QStringList BodyOf(int id);

    static Message PrintQuestion();
};

} // namespace tests
