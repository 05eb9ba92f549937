// Looks for a book in a catalogue that is not there, and asks the tool set for what it does not
// know. Says "passed" at its end, since a script that breaks off is not told from one that does not.
function require(condition, what) {
  if (!condition) {
    throw new Error(what);
  }
}

try {
  var book = new ActiveXObject("Quorbind.Quor_Book");
  var answer = book.mbCheckQuorTOCForBook("C:\\nowhere\\Quor_TOC.xml", "A&B", "A");
  require(answer === false, "The result is not false");

  var message = "";
  try {
    new ActiveXObject("Quor_LibraryServices.clsLibraryServices").GetQuorServer();
  } catch (error) {
    message = error.number + " " + error.message;
  }
  require(message === "-2147220991 The documentation server folder is not configured", message);
  WScript.Echo("passed");
} catch (error) {
  WScript.Echo("failed: " + error.message);
}
