
// The same refusals as another language sees them.
var library = new ActiveXObject("Pellora.cPellora");

function refusal(act) {
  try {
    act();
  } catch (error) {
    return error.number & 0xffff;
  }
  return 0;
}

equal("reading RefEditInputs early is refused in another language as well", refusal(function () {
  var early = library.RefEditInputs;
}), 91);
equal("UnloadfrmMaster early does nothing in another language as well", refusal(function () {
  library.UnloadfrmMaster();
}), 0);
equal("a number as application is a type mismatch", refusal(function () {
  library.ExcelApplication = 5;
}), 13);
equal("an object of the language without the members is a type mismatch", refusal(function () {
  library.ExcelApplication = { Range: function () {} };
}), 13);

var application = new ActiveXObject("PelloraWorkbook.Application");
equal("an object is accepted by a plain assignment", refusal(function () {
  library.ExcelApplication = application;
}), 0);
equal("and answered again", library.ExcelApplication.Name, application.Name);
WScript.Echo("end");
