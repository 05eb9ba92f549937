' Adds a book, as samples\hosts\add_book.vbs does, but its listener lets go of the object in the
' middle of the run and then fails.
Option Explicit

Const TextToc = 4

Dim toc, docs, library, book
toc = WScript.Arguments(0)
docs = WScript.Arguments(1) & "\Docs\"
library = WScript.Arguments(2)

Set book = CreateObject("Quorbind.Quor_Book")
WScript.ConnectObject book, "book_"
If book.Book_Valuator(toc, docs & library & "\Quor_TOC.xml", TextToc, library, "Pump Station", _
                      "PST", "Operation", "", "", "", "", "", 0, False, docs) Then
  WScript.Echo "The run came to its end."
End If

Sub book_evtGetFolderName(folder)
  WScript.Echo "Folder of the book: " & folder
  Set book = Nothing
  Err.Raise 5, "unruly_listener.vbs", "The listener fails"
End Sub
