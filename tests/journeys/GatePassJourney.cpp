// A clerk's day with gate passes, from the login on to the printed page, by keyboard alone. Rows
// are read back from the database after each step, words from the printed files. The last part is
// played by two programs on one database file.

#include "Journeys.h"

#include "sample/Company.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTextStream>

namespace journeys {

namespace {

const QString Saved = s("Do you want to print this GatePass");
const QString Alert = s("Alert");

QString header(const QString& file, int id)
{
    return rows(file, s("select DriverCode, ReceivingCode, AreaCode, BranchCode, Supply, Sale,"
                        " [Order], UserNo, isPosted from GatePassHeader where GatePassID = %1")
                          .arg(id))
        .value(0);
}

QString body(const QString& file, int id)
{
    return rows(file, s("select ProductID, OutNewProducts, ReturnOldProducts, ReturnNewProducts"
                        " from GatePassBody where GatePassID = %1 order by rowid")
                          .arg(id))
        .join(QLatin1Char(' '));
}

/// Facts of the sample company that the clerk knows by heart.
struct Known {
    QString Driver;
    QString Receiver;
    QString Area;
    QString Branch;
    QStringList Products; ///< with at least 8 in the stock of the branch
    int Stock = 0;        ///< of the last of them

    explicit Known(const QString& file)
    {
        const QStringList area =
            rows(file, s("select AreaCode, BranchCode from Areas order by AreaCode limit 1"))
                .value(0)
                .split(QLatin1Char('|'));
        Area = area.value(0);
        Branch = area.value(1);
        Driver = rows(file, s("select StaffID from Staff where FieldWorker = 1"
                              " order by StaffID limit 1"))
                     .value(0);
        Receiver = rows(file, s("select StaffID from Staff where FieldWorker = 0"
                                " order by StaffID limit 1"))
                       .value(0);
        const QString stock =
            s("select ProductID, sum(Q) from ("
              "select BranchCode B, ProductID, Qty Q from StockInHeader join StockInBody using"
              " (StockID) union all select BranchCode, ProductID, -Qty from StockOutHeader join"
              " StockOutBody using (StockID) union all select BranchCode, ProductID,"
              " ifnull(ReturnNewProducts, 0) - ifnull(OutNewProducts, 0) from GatePassHeader join"
              " GatePassBody using (GatePassID)) where B = %1 group by 1 having sum(Q) >= 8"
              " order by 1 limit 3");
        for (const QString& row : rows(file, stock.arg(Branch))) {
            Products.append(row.section(QLatin1Char('|'), 0, 0));
            Stock = row.section(QLatin1Char('|'), 1, 1).toInt();
        }
    }
};

void openGatePass(Clerk& clerk)
{
    clerk.See(s("MainWindow"));
    clerk.Type(s("gate"));
    clerk.Picture(s("menu"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectFocus(s("TxtDriverCode"));
}

void enterHeader(Clerk& clerk, const Known& known)
{
    clerk.Enter(known.Driver);
    clerk.Enter(known.Receiver);
    clerk.Enter(known.Area.toLower());
    clerk.Enter(known.Branch);
    clerk.ExpectFocus(s("TxtProductID"));
}

void enterRow(Clerk& clerk, const QString& product, const QString& out, const QString& oldBack = {},
              const QString& newBack = {})
{
    clerk.Enter(product);
    clerk.ExpectFocus(s("TxtOutNewProducts"));
    clerk.Enter(out);
    clerk.Enter(oldBack);
    clerk.Enter(newBack);
}

int currentId(Clerk& clerk)
{
    return clerk.Text(s("TxtGatePassID")).toInt();
}

/// The printed files of a folder, in the order of their names.
QStringList printedFiles(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

/// The words of a printed file.
QString printedText(const QString& folder, const QString& name)
{
    QProcess reader;
    reader.start(s("pdftotext"), {s("-layout"), QDir(folder).filePath(name), s("-")});
    return reader.waitForFinished(Patience) ? QString::fromUtf8(reader.readAllStandardOutput())
                                                  .normalized(QString::NormalizationForm_KC)
                                            : QString();
}

// ---- Printing

/// Answers the question after a save with Yes and prints all copies of a pass into the folder;
/// then prints one copy of the stored pass, and none.
void printCopies(Clerk& clerk, const Known& known, const QString& folder, int id)
{
    clerk.Answer(Saved, Alert, Qt::Key_Y);
    clerk.See(s("SchPrint"));
    clerk.ExpectFocus(s("Option4"));
    clerk.Picture(s("copies"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id + 1));
    const QStringList all = printedFiles(folder);
    clerk.Expect(all.size() == 3, s("three copies in the folder, not %1").arg(all.size()));
    const QStringList marks = {s("Office copy"), s("Driver's copy"), s("Gate copy")};
    for (int copy = 0; copy < 3; ++copy) {
        clerk.Expect(all[copy].startsWith(s("Gate Pass %1 copy %2 ").arg(id).arg(copy + 1)),
                     s("a file named by its copy, not ") + all[copy]);
        const QString text = printedText(folder, all[copy]);
        clerk.Expect(text.contains(marks[copy]) && text.contains(known.Products[1]) &&
                         text.contains(known.Products[2]),
                     s("the marked copy with its products, not ") + text);
    }

    clerk.Press(Qt::Key_O, Qt::ControlModifier);
    clerk.See(s("SchGatePass"));
    clerk.Type(QString::number(id));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.Press(Qt::Key_P, Qt::ControlModifier);
    clerk.See(s("SchPrint"));
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Down);
    clerk.ExpectFocus(s("Option2"));
    clerk.Picture(s("copy-two"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.Expect(printedFiles(folder).size() == 4, s("one more copy in the folder"));
    clerk.Press(Qt::Key_P, Qt::ControlModifier);
    clerk.See(s("SchPrint"));
    clerk.Press(Qt::Key_Escape);
    clerk.See(s("FrmGatePass"));
    clerk.Expect(printedFiles(folder).size() == 4, s("nothing printed after Esc"));
    clerk.Press(Qt::Key_W, Qt::ControlModifier);
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id + 1));
}

} // namespace

// ---- One clerk's day

void GatePassDay(Clerk& clerk, const QString& file, const QString& printTo)
{
    const Known known(file);
    clerk.Expect(known.Products.size() == 3, s("three products with stock"));

    clerk.See(s("LoginWindow"));
    clerk.Picture(s("login"));
    clerk.Enter(s("clerk"));
    clerk.Enter(s("not the password"));
    clerk.Picture(s("wrong-password"));
    clerk.ExpectFocus(s("TxtPassword"));
    // The button is closed for a moment; the field is open.
    clerk.Replace(Sample::Password());
    clerk.WaitFor(s("BtnLogin"), true);
    clerk.Press(Qt::Key_Return);
    openGatePass(clerk);
    clerk.Picture(s("gate-pass-new"));
    const int id = currentId(clerk);

    // The driver by his code, the receiver by F1, the area by the button, the branch unknown.
    clerk.Enter(known.Driver);
    clerk.ExpectFocus(s("TxtReceivingCode"));
    clerk.Press(Qt::Key_F1);
    clerk.See(s("SchStaff"));
    clerk.Type(known.Receiver);
    clerk.Picture(s("staff-list"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtReceivingCode"), known.Receiver);
    clerk.ExpectFocus(s("TxtAreaCode"));
    clerk.Press(Qt::Key_F4);
    clerk.See(s("SchArea"));
    clerk.Type(known.Area);
    clerk.Picture(s("area-list"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtAreaCode"), known.Area);
    clerk.ExpectFocus(s("TxtBranchID"));
    clerk.Enter(s("99"));
    clerk.See(s("SchBranch"));
    clerk.Picture(s("branch-list"));
    clerk.Type(known.Branch);
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtBranchID"), known.Branch);
    clerk.ExpectFocus(s("TxtProductID"));

    // Three products; the last one first exceeds the stock, the first one comes twice.
    enterRow(clerk, known.Products[0], s("3"));
    enterRow(clerk, known.Products[1], s("5"), s("1"));
    clerk.Enter(known.Products[2]);
    clerk.Enter(QString::number(known.Stock + 1));
    clerk.ExpectFocus(s("TxtOutNewProducts"));
    clerk.Picture(s("stock-exceeded"));
    clerk.Replace(s("2"));
    clerk.Press(Qt::Key_Return);
    clerk.Enter(QString());
    clerk.Enter(s("1"));
    enterRow(clerk, known.Products[0], s("9"));
    clerk.Answer(s("The Record Already Exist"), Alert, Qt::Key_Return);
    clerk.ExpectFocus(s("TxtProductID"));
    clerk.Picture(s("three-products"));

    // Correct the second row in the grid, remove the first.
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Home, Qt::ControlModifier);
    clerk.Press(Qt::Key_Down);
    clerk.Picture(s("row-in-grid"));
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(s("TxtReturnOldProducts"));
    clerk.Replace(s("4"));
    clerk.Enter(QString());
    clerk.Enter(QString());
    clerk.ExpectFocus(s("TxtProductID"));
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Home, Qt::ControlModifier);
    clerk.Press(Qt::Key_Menu);
    clerk.See(s("MnuDelete"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.Press(Qt::Key_End, Qt::ControlModifier);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(s("TxtProductID"));
    clerk.Picture(s("before-save"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Answer(Saved, Alert, Qt::Key_N);
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id + 1));
    clerk.Picture(s("saved"));
    clerk.Expect(
        header(file, id) ==
            s("%1|%2|%3|%4|0|1|0|2|0").arg(known.Driver, known.Receiver, known.Area, known.Branch),
        s("the header as entered, not ") + header(file, id));
    clerk.Expect(body(file, id) ==
                     s("%1|5|4|null %2|2|null|1").arg(known.Products[1], known.Products[2]),
                 s("the rows as entered, not ") + body(file, id));

    // Open it again, change a quantity, save and print.
    clerk.Press(Qt::Key_O, Qt::ControlModifier);
    clerk.See(s("SchGatePass"));
    clerk.Type(QString::number(id));
    clerk.Picture(s("pass-list"));
    clerk.Press(Qt::Key_Return);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtAreaCode"), known.Area);
    clerk.Picture(s("opened"));
    clerk.Press(Qt::Key_Escape);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Home, Qt::ControlModifier);
    clerk.Press(Qt::Key_Return);
    clerk.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    clerk.ExpectFocus(s("TxtOutNewProducts"));
    clerk.Replace(s("6"));
    clerk.Enter(QString());
    clerk.Enter(QString());
    clerk.Enter(QString());
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    printCopies(clerk, known, printTo, id);
    clerk.Expect(body(file, id) ==
                     s("%1|6|4|null %2|2|null|1").arg(known.Products[1], known.Products[2]),
                 s("the changed quantity, not ") + body(file, id));

    // Close with unsaved work.
    clerk.Type(known.Driver);
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.Answer(s("Are you sure to close without save?"), Alert, Qt::Key_N);
    clerk.See(s("FrmGatePass"));
    clerk.ExpectText(s("TxtDriverCode"), known.Driver);
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.Answer(s("Are you sure to close without save?"), Alert, Qt::Key_Y);
    clerk.See(s("MainWindow"));

    // Delete it as a user without and with the right.
    const auto open = [&clerk, id] {
        clerk.Press(Qt::Key_O, Qt::ControlModifier);
        clerk.See(s("SchGatePass"));
        clerk.Type(QString::number(id));
        clerk.Press(Qt::Key_Return);
        clerk.See(s("FrmGatePass"));
    };
    const auto remove = [&clerk] {
        clerk.Press(Qt::Key_R, Qt::ControlModifier);
        clerk.Answer(s("Do you want to remove this record?"), s("Confirmation"), Qt::Key_Y);
    };
    const auto logOut = [&clerk] {
        clerk.Press(Qt::Key_Q, Qt::ControlModifier);
        clerk.See(s("MainWindow"));
        clerk.Press(Qt::Key_L, Qt::ControlModifier);
    };
    clerk.Press(Qt::Key_L, Qt::ControlModifier);
    logIn(clerk, s("newclerk"));
    openGatePass(clerk);
    open();
    remove();
    clerk.Answer(s("You are not authorized to Delete a record"), s("Error"), Qt::Key_Return);
    clerk.Expect(!body(file, id).isEmpty(), s("the pass is still there"));
    logOut();
    logIn(clerk, s("clerk"));
    openGatePass(clerk);
    open();
    remove();
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id));
    clerk.Expect(body(file, id).isEmpty() && header(file, id).isEmpty(), s("the pass is gone"));

    // Two programs on the same new number: the other one saves first.
    QProcess other;
    other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    other.start(QCoreApplication::applicationFilePath(), {s("--second-clerk"), file});
    clerk.Expect(other.waitForReadyRead(Patience) &&
                     other.readLine().trimmed() == QByteArray::number(id),
                 s("the second program shows the same number"));
    clerk.See(s("FrmGatePass"));
    enterHeader(clerk, known);
    enterRow(clerk, known.Products[0], s("1"));
    other.write("save\n");
    other.closeWriteChannel();
    clerk.Expect(other.waitForFinished(Patience) && other.exitCode() == 0,
                 s("the second program saves"));
    clerk.See(s("FrmGatePass"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Answer(s("This Gate Pass ID already exists. A new Gate Psss ID. has been generated. "
                   "Please try again"),
                 Alert, Qt::Key_Return);
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id + 1));
    clerk.Expect(header(file, id + 1).isEmpty(), s("nothing is written yet"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Answer(Saved, Alert, Qt::Key_N);
    clerk.ExpectText(s("TxtGatePassID"), QString::number(id + 2));
    clerk.Expect(body(file, id) == known.Products[1] + s("|2|null|null"),
                 s("the second program's pass"));
    clerk.Expect(body(file, id + 1) == known.Products[0] + s("|1|null|null"), s("this one's pass"));
    clerk.Picture(s("after-race"));

    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.See(s("MainWindow"));
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
}

/// The other program's clerk: enters a pass, tells its number, and saves when told to.
void SecondGatePassClerk(Clerk& clerk, const QString& file)
{
    const Known known(file);
    logIn(clerk, s("admin"));
    openGatePass(clerk);
    enterHeader(clerk, known);
    enterRow(clerk, known.Products[1], s("2"));
    QTextStream out(stdout);
    out << currentId(clerk) << Qt::endl;
    QTextStream(stdin).readLine();
    clerk.See(s("FrmGatePass"));
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Answer(Saved, Alert, Qt::Key_N);
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
    clerk.See(s("MainWindow"));
    clerk.Press(Qt::Key_Q, Qt::ControlModifier);
}

} // namespace journeys
