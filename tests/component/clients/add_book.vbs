' Adds the book of a text table of contents:
'   cscript //nologo add_book.vbs TOC CATALOGUE PRODUCT NAME ACRONYM CATEGORY SERVER
Option Explicit

Const TextToc = 4

Sub Main()
  Dim given, book, finished
  Set given = WScript.Arguments
  Set book = CreateObject("Quorbind.Quor_Book")
  finished = book.Book_Valuator(given(0), given(1), TextToc, given(2), given(3), given(4), given(5), _
                                "", "", "", "", "", 0, False, given(6))
  If Not finished Then Err.Raise 5, "add_book.vbs", "The run did not come to its end"
End Sub

On Error Resume Next
Main
If Err.Number = 0 Then
  WScript.Echo "passed"
Else
  WScript.Echo "failed: " & Err.Number & " " & Err.Description
End If
