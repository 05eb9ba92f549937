Attribute VB_Name = "AddBook"
' To be called in the Immediate window:
'
'   AddPumpStation "C:\Samples\pump-station\toc-prepared.txt", "\\Server\Library", "Plant"
Option Explicit

Public Sub AddPumpStation(ByVal toc As String, ByVal server As String, ByVal library As String)
    Dim adder As New BookAdder
    adder.Add toc, server, library
End Sub
