' Sorts names through the component. Says "passed" at its end, since a script that breaks off is not
' told from one that does not.
Option Explicit

Sub Require(condition, what)
  If Not condition Then Err.Raise 5, "sort.vbs", what
End Sub

Sub Main()
  Dim sorter, names, numbers
  Set sorter = CreateObject("Quorbind.cSort")
  names = Array("pear", "Apple", "fig")
  Dim sorted
  sorted = sorter.mQuickSort(names, 0, 2)
  Require IsArray(sorted), "The result is no array"
  Require names(0) = "Apple" And names(1) = "fig" And names(2) = "pear", "The names are not sorted"
End Sub

On Error Resume Next
Main
If Err.Number = 0 Then
  WScript.Echo "passed"
Else
  WScript.Echo "failed: " & Err.Number & " " & Err.Description
End If
