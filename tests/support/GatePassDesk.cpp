#include "support/GatePassDesk.h"

#include "host/HostContext.h"

#include <QtTest>

namespace tests {

GatePassDesk::GatePassDesk() : connection(company.Connect())
{
    HostContext::objCN = connection;
    HostContext::objSec = user;
    HostContext::UserNo = 1;
    HostContext::ServerMode = false;
}

GatePassDesk::~GatePassDesk()
{
    form.reset();
    HostContext::objCN.reset();
    HostContext::objSec.reset();
}

void GatePassDesk::Open()
{
    form = Another();
}

std::unique_ptr<FrmGatePass> GatePassDesk::Another()
{
    auto another = std::make_unique<FrmGatePass>();
    another->FormLoad();
    another->ShowModeless(false);
    another->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(another.get()));
    return another;
}

void GatePassDesk::Enter(const QString& text)
{
    Type(*form, text);
    Press(*form, Qt::Key_Return);
}

void GatePassDesk::EnterHeader()
{
    Enter(QStringLiteral("2014"));
    Enter(QStringLiteral("3107"));
    Enter(QStringLiteral("kot"));
    Enter(QStringLiteral("1"));
}

void GatePassDesk::EnterRow(const QString& product, const QString& out, const QString& oldBack,
                            const QString& newBack)
{
    Enter(product);
    Enter(out);
    Enter(oldBack);
    Enter(newBack);
}

void GatePassDesk::Ctrl(Qt::Key key)
{
    Press(*form, key, Qt::ControlModifier);
}

void GatePassDesk::Save()
{
    boxes.Expect(PrintQuestion(), MsgAnswer::No);
    Ctrl(Qt::Key_S);
}

int GatePassDesk::Stored(const QString& product, const QString& out)
{
    const int id = form->TxtGatePassID.Text().toInt();
    EnterHeader();
    EnterRow(product, out);
    Save();
    return id;
}

void GatePassDesk::OpenStored(int id)
{
    dialogs.Expect(Choose(QString::number(id)));
    Ctrl(Qt::Key_O);
}

std::function<void(Form&)> GatePassDesk::Choose(const QString& typed)
{
    return [typed](Form& dialog) {
        Type(dialog, typed);
        Press(dialog, Qt::Key_Return);
    };
}

std::function<void(Form&)> GatePassDesk::Cancel()
{
    return [](Form& dialog) { Press(dialog, Qt::Key_Escape); };
}

QString GatePassDesk::Cell(int row, const char* column)
{
    return form->Rows.Cell(row, QString::fromLatin1(column));
}

int GatePassDesk::FilledRows()
{
    int filled = 0;
    for (int row = 0; row < form->Rows.RowCount(); ++row) {
        filled += Cell(row, "ID").trimmed().isEmpty() ? 0 : 1;
    }
    return filled;
}

QStringList GatePassDesk::BodyOf(int id)
{
    QStringList rows;
    for (const QVariantList& row : company.Rows(
             QStringLiteral("select ProductID, OutNewProducts, ReturnOldProducts,"
                            " ReturnNewProducts from GatePassBody where GatePassID = %1"
                            " order by cast(ProductID as integer)")
                 .arg(id))) {
        QStringList texts;
        for (const QVariant& value : row) {
            texts.append(value.isNull() ? QStringLiteral("null") : value.toString());
        }
        rows.append(texts.join(QLatin1Char('|')));
    }
    return rows;
}

int GatePassDesk::Count(const QString& table)
{
    return company.Scalar(QStringLiteral("select count(*) from ") + table).toInt();
}

Message GatePassDesk::PrintQuestion()
{
    return {QStringLiteral("Do you want to print this GatePass"), MsgIcon::Question,
            QStringLiteral("Alert"), MsgButtons::YesNo};
}

Message GatePassDesk::Failed(const QString& text)
{
    return {text, MsgIcon::Stop, QStringLiteral("Error occured")};
}

Message GatePassDesk::Refused(const QString& text)
{
    return {text, MsgIcon::Stop, QStringLiteral("Error")};
}

} // namespace tests
