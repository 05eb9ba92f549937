' Adds the pump station's book to a library and tells which folder it has there:
'
'   cscript //nologo add_book.vbs TOC SERVER LIBRARY
'
' TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
' server; LIBRARY the name of a library there.
Option Explicit

Const TextToc = 4

Dim toc, docs, library, book
toc = WScript.Arguments(0)
docs = WScript.Arguments(1) & "\Docs\"
library = WScript.Arguments(2)

Set book = CreateObject("Quorbind.Quor_Book")

' Events reach the procedures that begin with "book_". Wine's script host has no events; the book is
' added all the same.
On Error Resume Next
WScript.ConnectObject book, "book_"
On Error GoTo 0

If book.Book_Valuator(toc, docs & library & "\Quor_TOC.xml", TextToc, library, "Pump Station", _
                      "PST", "Operation", "", "", "", "", "", 0, False, docs) Then
  WScript.Echo "The run came to its end."
End If

Sub book_evtGetFolderName(folder)
  WScript.Echo "Folder of the book: " & folder
End Sub
