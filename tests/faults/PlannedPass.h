#pragma once

#include <QList>
#include <QString>

/// A gate pass whose whole content follows from one number, which every row of it carries: so a
/// stored pass tells by itself whether it is whole.
struct PlannedPass {
    struct Row {
        QString Product;
        qlonglong Out = 0;
        qlonglong OldBack = 0; ///< how many rows the pass has
        qlonglong NewBack = 0; ///< the pass's token
        bool operator==(const Row&) const = default;
    };

    explicit PlannedPass(qlonglong token);

    qlonglong Token;
    QString Driver;
    QString Area;
    QList<Row> Rows; ///< in the order of their products
};
