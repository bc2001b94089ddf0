// A store keeper's and an accountant's day: goods in and out, with prices and without, and units
// one by one.

#include "Journeys.h"

namespace journeys {

namespace {

QString body(const QString& file, const QString& table, int id)
{
    return rows(file, s("select ProductID, Qty, Price, Amount from %1 where StockID = %2"
                        " order by rowid")
                          .arg(table)
                          .arg(id))
        .join(QLatin1Char(' '));
}

int lastId(const QString& file, const QString& table)
{
    return rows(file, s("select ifnull(max(StockID), 0) from %1").arg(table)).value(0).toInt();
}

/// From the date on, to the product.
void enterHeader(Clerk& clerk, const QString& branch, const QString& account)
{
    clerk.ExpectFocus(s("DtpDate"));
    clerk.Press(Qt::Key_Return);
    clerk.Enter(branch);
    clerk.Enter(account);
    clerk.Enter(QString());
    clerk.ExpectFocus(s("TxtProductID"));
}

void close(Clerk& clerk)
{
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.See(s("MainWindow"));
}

} // namespace

void StockDay(Clerk& clerk, const QString& file)
{
    const QStringList product =
        rows(file, s("select ProductID, PurchaseRate from Products order by ProductID limit 1"))
            .value(0)
            .split(QLatin1Char('|'));
    const QString branch =
        rows(file, s("select BranchCode from Branches order by BranchCode limit 1")).value(0);
    const QString account =
        rows(file, s("select AccountNo from Accounts where cast(AccountNo as integer) > 0"
                     " order by AccountNo limit 1"))
            .value(0);
    const QString receiver =
        rows(file, s("select StaffID from Staff order by StaffID limit 1")).value(0);
    clerk.Expect(product.size() == 2 && !branch.isEmpty() && !account.isEmpty(),
                 s("a product, a branch and an account"));
    const double rate = product[1].toDouble();

    // The store keeper: quantities only; the price goes along unseen.
    logIn(clerk, s("clerk"));
    openScreen(clerk, s("stock in"), s("FrmStockIn"));
    const int in = lastId(file, s("StockInHeader")) + 1;
    clerk.ExpectText(s("TxtID"), QString::number(in));
    enterHeader(clerk, branch, account);
    clerk.Enter(product[0]);
    clerk.ExpectFocus(s("TxtQty"));
    clerk.Picture(s("stock-in"));
    clerk.Enter(s("4"));
    clerk.ExpectFocus(s("TxtProductID"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.ExpectText(s("TxtID"), QString::number(in + 1));
    clerk.Expect(body(file, s("StockInBody"), in) ==
                     s("%1|4|%2|%3").arg(product[0]).arg(rate).arg(4 * rate),
                 s("the row with its unseen price, not ") + body(file, s("StockInBody"), in));
    close(clerk);

    // The accountant opens it with prices and corrects one.
    openScreen(clerk, s("stock in with"), s("FrmStockIn"));
    clerk.Press(Qt::Key_O, Qt::ControlModifier);
    clerk.See(s("SchStockIn"));
    clerk.Type(QString::number(in));
    clerk.Picture(s("stock-in-list"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmStockIn"));
    clerk.ExpectText(s("TxtAccountNo"), account);
    clerk.Press(Qt::Key_Escape);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Home, Qt::ControlModifier);
    clerk.Picture(s("stock-in-priced"));
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(s("TxtQty"));
    clerk.Enter(QString());
    clerk.ExpectFocus(s("TxtPrice"));
    clerk.Enter(s("100.5"));
    clerk.ExpectFocus(s("TxtProductID"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Expect(body(file, s("StockInBody"), in) == s("%1|4|100.5|402").arg(product[0]),
                 s("the corrected price, not ") + body(file, s("StockInBody"), in));
    close(clerk);

    // Goods out, with a price of their own; a number typed over one that is taken.
    openScreen(clerk, s("stock out with"), s("FrmStockOut"));
    const int out = lastId(file, s("StockOutHeader")) + 1;
    enterHeader(clerk, branch, QString());
    clerk.Enter(product[0]);
    clerk.Enter(s("2"));
    clerk.ExpectFocus(s("TxtPrice"));
    clerk.Enter(s("90"));
    clerk.Picture(s("stock-out-priced"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.ExpectText(s("TxtID"), QString::number(out + 1));
    clerk.Expect(body(file, s("StockOutBody"), out) == s("%1|2|90|180").arg(product[0]),
                 s("the row as entered, not ") + body(file, s("StockOutBody"), out));
    close(clerk);
    openScreen(clerk, s("stock out"), s("FrmStockOut"));
    clerk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    clerk.ExpectFocus(s("TxtID"));
    clerk.Enter(QString::number(out));
    enterHeader(clerk, branch, account);
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Answer(s("This Stock ID already exists. A new Stock ID. has been generated. "
                   "Please try again"),
                 s("Alert"), Qt::Key_Return);
    clerk.ExpectText(s("TxtID"), QString::number(out + 1));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.ExpectText(s("TxtID"), QString::number(out + 2));
    close(clerk);

    // Units: one of them comes twice.
    openScreen(clerk, s("stock in detail"), s("FrmStockInDetail"));
    const int units = lastId(file, s("StockInDetailHeader")) + 1;
    clerk.Enter(receiver);
    clerk.Enter(QString());
    const auto unit = [&clerk, &product](const char* engine, const char* chassis) {
        clerk.ExpectFocus(s("TxtProductID"));
        clerk.Enter(product[0]);
        clerk.Enter(s(engine));
        clerk.Enter(s(chassis));
    };
    unit("NEW-ENGINE-1", "NEW-CHASSIS-1");
    unit("NEW-ENGINE-2", "NEW-CHASSIS-2");
    clerk.Picture(s("units"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.ExpectText(s("TxtID"), QString::number(units + 1));
    clerk.Enter(receiver);
    clerk.Enter(QString());
    unit("NEW-ENGINE-1", "NEW-CHASSIS-1");
    clerk.Answer(s("Engine No or Chasis No Already Entered"), s("Alert"), Qt::Key_Return);
    clerk.ExpectFocus(s("TxtEngineNo"));
    clerk.Picture(s("unit-known"));
    clerk.Press(Qt::Key_W, Qt::ControlModifier);
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.See(s("MainWindow"));
    clerk.Expect(rows(file, s("select EngineNo from StockInDetailBody where StockID = %1"
                              " order by rowid")
                                .arg(units)) == QStringList({s("NEW-ENGINE-1"), s("NEW-ENGINE-2")}),
                 s("the two units"));
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
}

} // namespace journeys
