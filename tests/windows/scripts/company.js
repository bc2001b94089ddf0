// A script host without a server: a company's file, a user whose rights are plain values, and a
// failure's text.
var company = WScript.Arguments(0);
var forms = new ActiveXObject("TradeForms.Forms");
forms.InitializeClass(company);
forms.InitializeSecurity({
    HasRight: function (key, modify, remove) { return true; },
    UserFlagA: false,
    AllowPostedEdit: true,
    IsAdministrator: false,
    UserNumber: 7,
    UserBranchCode: "0"
});

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
expect(failureOf(function () { forms.InitializeSecurity({ UserNumber: 256 }); }), "6: Overflow");
WScript.Echo("done");
