// A script host without a server: a company's file, a user, and a failure's number and text.
var company = WScript.Arguments(0);
var forms = new ActiveXObject("TradeForms.Forms");
forms.InitializeClass(company);

function user(number) {
    return {
        HasRight: function (key, modify, remove) { return true; },
        UserFlagA: function () { return false; },
        AllowPostedEdit: function () { return true; },
        IsAdministrator: function () { return false; },
        UserNumber: function () { return number; },
        UserBranchCode: function () { return "0"; }
    };
}

forms.InitializeSecurity(user(255));

function failureOf(work) {
    try {
        work();
    } catch (failure) {
        return (failure.number & 0xffff) + ": " + failure.description;
    }
    return "none";
}

function expect(found, expected) {
    if (found !== expected) {
        WScript.Echo("expected " + expected + ", found " + found);
        WScript.Quit(1);
    }
}

expect(failureOf(function () { forms.SalaryForm(); }), "16389: SalaryForm: not built yet");
expect(failureOf(function () { forms.InitializeSecurity(user(256)); }), "6: Overflow");
WScript.Echo("done");
