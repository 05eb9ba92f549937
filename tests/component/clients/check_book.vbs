' Looks for a book in a catalogue that is not there, by a name that must stay as it is.
Option Explicit

Sub Require(condition, what)
  If Not condition Then Err.Raise 5, "check_book.vbs", what
End Sub

Sub Main()
  Dim book, name, answer
  Set book = CreateObject("Quorbind.Quor_Book")
  name = "A&B"
  answer = book.mbCheckQuorTOCForBook("C:\nowhere\Quor_TOC.xml", name, "A")
  Require VarType(answer) = vbBoolean, "The result is no Boolean"
  Require answer = 0, "The result is not False"
  Require name = "A&B", "The name was changed"
End Sub

On Error Resume Next
Main
If Err.Number = 0 Then
  WScript.Echo "passed"
Else
  WScript.Echo "failed: " & Err.Number & " " & Err.Description
End If
