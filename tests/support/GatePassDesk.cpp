#include "support/GatePassDesk.h"

namespace tests {

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

QStringList GatePassDesk::BodyOf(int id)
{
    return Lines(QStringLiteral("select ProductID, OutNewProducts, ReturnOldProducts,"
                                " ReturnNewProducts from GatePassBody where GatePassID = %1"
                                " order by cast(ProductID as integer)")
                     .arg(id));
}

Message GatePassDesk::PrintQuestion()
{
    return {QStringLiteral("Do you want to print this GatePass"), MsgIcon::Question,
            QStringLiteral("Alert"), MsgButtons::YesNo};
}

} // namespace tests
