// A script host creates the class by its name.
var forms = new ActiveXObject("TradeForms.Forms");
forms.InitializeServer(false);
forms.InitializeLogo("", "\u0627\u0644\u0645\u062f\u06cc\u0646\u06c1");
WScript.Echo("done");
