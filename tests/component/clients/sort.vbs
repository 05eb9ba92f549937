' Sorts names through the component and reads what it gives. Says "passed" at its end, since a
' script that breaks off is not told from one that does not.
Option Explicit

Sub Require(condition, what)
  If Not condition Then Err.Raise 5, "sort.vbs", what
End Sub

Function InOneLine(names)
  Dim name
  For Each name In names
    InOneLine = InOneLine & "[" & name & "]"
  Next
End Function

Sub Main()
  Dim sorter, names, sorted
  Set sorter = CreateObject("Quorbind.cSort")
  names = Array("pear", "Apple", "fig")
  sorted = sorter.mQuickSort(names, 0, 2)
  Require InOneLine(names) = "[Apple][fig][pear]", "The names are not sorted"
  Require InOneLine(sorted) = "[Apple][fig][pear]", "The result is not sorted"
  Require LBound(sorted) = 0 And UBound(sorted) = 2, "The result has other bounds"
  Require sorted(1) = "fig", "The result is not read by an index"
  sorted(1) = "plum"
  Require InOneLine(names) = "[Apple][fig][pear]", "The result is no copy"

  Dim fixed(2), first, last
  fixed(0) = "c"
  fixed(1) = "b"
  fixed(2) = "a"
  first = 1
  last = 2
  sorter.mQuickSort fixed, first, last
  Require InOneLine(fixed) = "[c][a][b]", "An array of fixed size is not sorted"

  Dim dynamic()
  Require UBound(sorter.mQuickSort(dynamic, 0, -1)) = -1, "No names do not give no names"
End Sub

On Error Resume Next
Main
If Err.Number = 0 Then
  WScript.Echo "passed"
Else
  WScript.Echo "failed: " & Err.Number & " " & Err.Description
End If
