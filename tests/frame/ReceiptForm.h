#pragma once

#include "data/Connection.h"
#include "data/Numbers.h"
#include "frame/Lookups.h"
#include "frame/VoucherForm.h"
#include "search/Catalogue.h"
#include "support/FormDesk.h"
#include "support/Text.h"

namespace tests {

class ReceiptForm;

/// Changes that a test makes to ReceiptForm before the window opens.
struct ReceiptChanges {
    std::function<void(VoucherDeclaration&)> Voucher;
    std::function<void(ReceiptForm&, DetailDeclaration&)> Rows;
    std::function<void(ReceiptForm&, LookupDeclaration&)> Staff;
    std::function<void(ReceiptForm&)> Made; ///< called at the end of the constructor
    std::function<void(ReceiptForm&)> Save; ///< called instead of the form's own SaveVoucher
    bool CountsReceiptsOn = false;          ///< ClearEntryRow takes the next number
};

/// A form for testing features of the frame that the stock forms do not use: receipts of instalment
/// accounts, identified by account and receipt number, with a running total.
class ReceiptForm : public VoucherForm {
public:
    static inline ReceiptChanges Changed;

    ReceiptForm()
        : VoucherForm(voucher()), TxtVoucher(NumberField(this, "TxtVoucher", "Voucher number")),
          DtpDate(DateField(this, "DtpDate", "Date")),
          TxtAreaCode(TextField(this, "TxtAreaCode", "Area code")),
          Staff(MakeCodeField(this, {"TxtStaffID", "Staff code"}, {"BtnStaff", "List of staff"},
                              {"TxtStaffName", "Staff name"})),
          TxtFName(UrduField(this, "TxtFName", "Father's name")),
          TxtRate(NumberField(this, "TxtRate", "Rate")),
          TxtCID(TextField(this, "TxtCID", "Card number")),
          TxtInsCustomerID(TextField(this, "TxtInsCustomerID", "Account")),
          TxtReceiptNo(NumberField(this, "TxtReceiptNo", "Receipt number")),
          TxtAmount(NumberField(this, "TxtAmount", "Amount")),
          TxtTotalAmount(NumberField(this, "TxtTotalAmount", "Total")),
          BtnDetail(MoreButton("BtnOpenDetail", {"تفصیل", "Detail"}, Qt::Key_D)),
          Rows(VoucherGrid(this)), Detail(*this, Rows, rows()), LookupStaff(*this, staff())
    {
        setObjectName(QStringLiteral("ReceiptForm"));
        UseId(TxtVoucher);
        UseDate(DtpDate);
        UseDetail(Detail);
        UseIdentity({&TxtVoucher, &TxtAreaCode});
        UseFocus(&TxtAreaCode, &Staff.Code);
        namespace H = HeaderFields;
        UseHeader({H::Number("VoucherID", TxtVoucher, H::Write::NewOnly), H::EntryDate(),
                   H::IsPosted(), H::Date("VoucherDate", DtpDate),
                   H::TrimmedText("AreaCode", TxtAreaCode), H::Text("StaffID", Staff.Code),
                   H::UserNo()});
        BtnDetail.OnClick += [this] { ++DetailClicks; };
        Compose(
            {HeaderStrip({Labelled({"نمبر", "Number"}, &TxtVoucher),
                          Labelled({"علاقہ", "Area"}, &TxtAreaCode),
                          Labelled({"تاریخ", "Date"}, &DtpDate), CodeSet({"ملازم", "Staff"}, Staff),
                          Labelled({"ولدیت", "Father's name"}, &TxtFName),
                          Labelled({"قیمت", "Rate"}, &TxtRate)}),
             Detail.EntryRow(Stacked({"کارڈ نمبر", "Card no"}, &TxtCID)), GridArea(Rows),
             Labelled({"کل رقم", "Total"}, &TxtTotalAmount)});
        if (Changed.Made)
            Changed.Made(*this);
    }

    Txt& TxtVoucher;
    DTPicker& DtpDate;
    Txt& TxtAreaCode;
    CodeField Staff;
    UTxt& TxtFName;
    Txt& TxtRate;
    Txt& TxtCID;
    Txt& TxtInsCustomerID;
    Txt& TxtReceiptNo;
    Txt& TxtAmount;
    Txt& TxtTotalAmount;
    JeweledButton& BtnDetail;
    Grid& Rows;
    DetailGrid Detail;
    LookupCode LookupStaff;
    int DetailClicks = 0;
    QStringList Steps; ///< names of the form's row steps in the order in which the grid called them

    // Made public for tests, which call them as a form's own steps would.
    using VoucherForm::AsksToDelete;
    using VoucherForm::EraseVoucher;
    using VoucherForm::PassesDeleteRule;
    using VoucherForm::Refuse;
    using VoucherForm::UseIdentity;

    void SaveVoucher() override
    {
        if (Changed.Save) {
            Changed.Save(*this);
            return;
        }
        if (!PassesRaceRule() || !HasRows())
            return;
        Store();
    }
    void Store()
    {
        BeginTrans();
        SaveHeader();
        SaveBody();
        CommitTrans();
        SetFormState(State::New);
    }
    void DeleteVoucher() override
    {
        if (PassesDeleteRule() && AsksToDelete()) // checks the right before asking
            EraseVoucher();
    }
    void RunUnguarded(const std::function<void()>& step) { Unguarded(step); }

protected:
    bool AddDetailRow() override
    {
        Steps << s("add");
        return VoucherForm::AddDetailRow();
    }
    void ClearEntryRow() override
    {
        Steps << s("clear");
        const double receipt = Val(TxtReceiptNo.Text());
        VoucherForm::ClearEntryRow();
        if (Changed.CountsReceiptsOn)
            TxtReceiptNo.SetText(GeneralFormat(receipt + 1));
    }
    void ShowGridRow() override
    {
        Steps << s("show");
        VoucherForm::ShowGridRow();
    }
    void RemoveRow() override
    {
        Steps << s("remove");
        VoucherForm::RemoveRow();
    }

private:
    static VoucherDeclaration voucher()
    {
        VoucherDeclaration declaration{
            .Title = {"وصولی", "Receipts"},
            .ScreenKey = "MniReceipts",
            .NextId = "Select isnull(max(VoucherID),0) from RecoveryHeader",
            .Load = "Select * from RecoveryHeader where VoucherID={id}",
            .Race = "Select * from RecoveryHeader where VoucherID = {id}",
            .Header = "select * from RecoveryHeader where VoucherID={id}",
            .Delete = {"Delete from RecoveryBody where VoucherID = {id}",
                       "Delete from RecoveryHeader where VoucherID = {id}"},
            .Vouchers = &SchRecoveryVoucher(),
            .ChosenVoucher = "ParaOutVoucherID",
            .IdTaken = QStringLiteral("The number is taken"),
            .NoRows = {QStringLiteral("No receipt"), MsgIcon::Information, QStringLiteral("Alert")},
        };
        if (Changed.Voucher)
            Changed.Voucher(declaration);
        return declaration;
    }

    DetailDeclaration rows()
    {
        using Storage = DetailColumn::Storage;
        const auto alert = [](const char* text) {
            return Message{s(text), MsgIcon::Exclamation, QStringLiteral("Alert")};
        };
        DetailDeclaration declaration{
            .Columns = {{NumberColumn("Amount", {"رقم", "Amount"}, 100), &TxtAmount, "Amount",
                         Storage::Number},
                        {NumberColumn("ReceiptNo", {"رسید", "Receipt"}, 100), &TxtReceiptNo,
                         "ReceiptNo", Storage::Number, true},
                        {CodeColumn("InsCustomerID", {"کھاتہ", "Account"}, 120), &TxtInsCustomerID,
                         "InsCustomerID", Storage::TrimmedKey},
                        {CodeColumn("ID", {"کارڈ نمبر", "Card no"}, 120), &TxtCID, "CardNo",
                         Storage::Key}},
            .IdColumn = "VoucherID",
            .Body = "Select * from RecoveryBody where VoucherID={id}",
            .Display = "select * from RecoveryBody where VoucherID={id}{narrow} order by ReceiptNo",
            .Narrow = [] { return Statement(); },
            .RowFilter = "InsCustomerID='{InsCustomerID}' and ReceiptNo={ReceiptNo}",
            .Required = {{&TxtCID, alert("Enter Customer ID.")},
                         {&TxtReceiptNo, alert("Enter Receipt No.")},
                         {&TxtAmount}},
            .Total = &TxtTotalAmount,
            .Closes = {&TxtReceiptNo},
            .EditFirst = &TxtAmount,
            .Ends = {{&TxtAmount, {&TxtCID, &TxtReceiptNo}}},
            .OnStamp =
                [this](Recordset& row) { row.Fields("VoucherDate").SetValue(DtpDate.Value()); },
        };
        if (Changed.Rows)
            Changed.Rows(*this, declaration);
        return declaration;
    }

    LookupDeclaration staff()
    {
        LookupDeclaration declaration =
            Lookups::Staff(Staff, "", "Select * from Staff where StaffID='{code}'").To(TxtCID);
        declaration.Names.append({&TxtFName, "FName"});
        if (Changed.Staff)
            Changed.Staff(*this, declaration);
        return declaration;
    }
};

class ReceiptDesk : public FormDesk<ReceiptForm> {
protected:
    ReceiptDesk() { ReceiptForm::Changed = {}; }
    ~ReceiptDesk() override { ReceiptForm::Changed = {}; }

    static ReceiptChanges& Changed() { return ReceiptForm::Changed; }

    /// Enters a row through the fields; the last one is left for BtnDetail, which adds the row.
    void EnterReceipt(const QString& card, const QString& account, const QString& receipt,
                      const QString& amount)
    {
        It().ResetFocus(It().TxtCID);
        It().TxtCID.SetText(card);
        It().TxtInsCustomerID.SetText(account);
        It().TxtReceiptNo.SetText(receipt);
        It().ResetFocus(It().TxtAmount);
        It().TxtAmount.SetText(amount);
        It().SetFocus(It().BtnDetail);
    }
    QStringList Stored(int voucher)
    {
        return Lines(s("select CardNo, InsCustomerID, ReceiptNo, Amount from RecoveryBody"
                       " where VoucherID = %1 order by rowid")
                         .arg(voucher));
    }
    void Save()
    {
        Click(*form, form->BtnSave);
        EXPECT_EQ(It().FormState(), VoucherForm::State::New);
    }
    /// Stores a voucher with two receipts of one account and one of another.
    void StoreThree()
    {
        company.Run(
            s("insert into RecoveryHeader (VoucherID, VoucherDate, AreaCode, StaffID)"
              " values (1, '2026-03-05', 'Kot', '2014');"
              "insert into RecoveryBody values (1, '2026-03-05', 'Kot 7', '7', 1, 100),"
              " (1, '2026-03-05', 'Kot 7', '7', 2, 250), (1, '2026-03-05', 'Kot 8', '8', 3, "
              "40)"));
    }
    /// Opens the stored voucher; `meanwhile` runs after it has been chosen.
    void OpenIt(const std::function<void()>& meanwhile = {})
    {
        dialogs.Expect([&](Form& dialog) {
            auto& list = dynamic_cast<SearchWindow&>(dialog);
            list.DtpFrom()->SetValue(QDate(2026, 1, 1));
            list.DtpTo()->SetValue(QDate(2026, 12, 31));
            if (meanwhile)
                meanwhile();
            Press(dialog, Qt::Key_Return);
        });
        Ctrl(Qt::Key_O);
        ASSERT_EQ(It().FormState(), VoucherForm::State::Opened);
    }
    /// Makes a row current by a mouse click.
    void ChooseRow(int row) { ClickRow(*form, form->Rows, row); }
    void RemoveChosen()
    {
        auto* menu = It().findChild<QMenu*>(s("MnuDelete"));
        ASSERT_TRUE(menu);
        menu->actions().first()->trigger();
        menu->close();
        QCoreApplication::processEvents();
    }
};

} // namespace tests
