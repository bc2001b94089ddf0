#include "frame/Lookups.h"

#include "frame/Authorisation.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"
#include "search/Catalogue.h"

namespace TradeForms::Lookups {

namespace {

LookupDeclaration declarationOf(const CodeField& field, const char* nameColumn,
                                const SearchDeclaration& dialog, const char* paraOut,
                                const char* find)
{
    return {
        .Code = field.Code,
        .Names = {{&field.Name, nameColumn}},
        .Button = &field.Button,
        .Dialog = dialog,
        .ParaOut = paraOut,
        .Find = [&code = field.Code, find] { return Statement(find).Bind("code", code.Text()); },
    };
}

/// Limits the list to the user's branch, and also the statement if it has the place {BranchFilter}.
LookupDeclaration ofBranch(LookupDeclaration declaration, const char* find)
{
    declaration.ParaIn = "ParaInBranchCode";
    declaration.ParaInValue = [] { return HostContext::Security().UserBranchCode(); };
    if (QByteArrayView(find).contains("{BranchFilter}")) {
        declaration.Find = [byCode = std::move(declaration.Find)] {
            return byCode().Splice("BranchFilter", Authorisation::BranchFilter());
        };
    }
    declaration.EmptyBringsList = true;
    return declaration;
}

} // namespace

LookupDeclaration Staff(const CodeField& field, const char* filter, const char* find)
{
    LookupDeclaration staff = declarationOf(field, "Name", SchStaff(), "ParaOutStaffID", find);
    staff.ParaIn = "ParaInStr";
    staff.ParaInValue = [filter] { return QString::fromUtf8(filter); };
    return staff;
}

CodeField ReceivingField(QWidget* form, bool mandatory)
{
    return MakeCodeField(form, {"TxtReceivingCode", "Receiver code"},
                         {"BtnReceiving", "List of receivers"},
                         {"TxtReceivingName", "Receiver name"}, mandatory);
}

LookupDeclaration Receiving(const CodeField& field)
{
    return Staff(field, "", "Select Name From Staff where StaffID='{code}'");
}

LookupDeclaration Area(const CodeField& field, const char* find)
{
    LookupDeclaration area =
        ofBranch(declarationOf(field, "AreaName", SchArea(), "ParaOutAID", find), find);
    area.OnLeaving = LookupDeclaration::Casing::Proper;
    return area;
}

LookupDeclaration Branch(const CodeField& field, const char* find)
{
    LookupDeclaration branch =
        ofBranch(declarationOf(field, "BranchName", SchBranch(), "ParaOutBranchCode", find), find);
    branch.MissEmptiesCode = true;
    branch.ChangeMarksEdited = false;
    return branch;
}

LookupDeclaration Product(const CodeField& field, const char* find)
{
    LookupDeclaration product =
        declarationOf(field, "ProductName", SchProduct(), "ParaOutPID", find);
    product.MissEmptiesCode = true;
    product.ChangeMarksEdited = false;
    return product;
}

LookupDeclaration Account(const CodeField& field)
{
    LookupDeclaration account =
        declarationOf(field, "AccountName", SchAccounts(), "ParaOutAccountNo",
                      "select * from vuAccounts where AccountNo = '{code}'");
    account.TrustsName = true;
    return account;
}

} // namespace TradeForms::Lookups
