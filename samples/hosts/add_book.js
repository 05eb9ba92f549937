// Adds the pump station's book to a library and tells which folder it has there:
//
//   cscript //nologo add_book.js TOC SERVER LIBRARY
//
// TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
// server; LIBRARY the name of a library there.

var TEXT_TOC = 4;

var toc = WScript.Arguments(0);
var docs = WScript.Arguments(1) + "\\Docs\\";
var library = WScript.Arguments(2);

var book = new ActiveXObject("Quorbind.Quor_Book");

// Events reach the functions that begin with "book_". Wine's script host has no events; the book is
// added all the same.
try {
  WScript.ConnectObject(book, "book_");
} catch (noEvents) {
}

if (book.Book_Valuator(toc, docs + library + "\\Quor_TOC.xml", TEXT_TOC, library, "Pump Station",
                       "PST", "Operation", "", "", "", "", "", 0, false, docs)) {
  WScript.Echo("The run came to its end.");
}

function book_evtGetFolderName(folder) {
  WScript.Echo("Folder of the book: " + folder);
}
