' Lists the libraries of the documentation server with their books, and then edits the categories and
' the keywords of one book:
'
'   cscript //nologo edit_library.vbs LIBRARY BOOK
'
' LIBRARY is the name of a library there, BOOK the name of one of its books.
Option Explicit

Dim config, book, catalogue, name
Set config = CreateObject("Quorbind.Book_Config")
Set book = CreateObject("Quorbind.Quor_Book")

ListLibraries
catalogue = config.QuorLocation(WScript.Arguments(0))
name = WScript.Arguments(1)
EditCategories FileBeside(catalogue, "Quor_BookCategories.xml")
EditKeywords FileBeside(catalogue, "Quor_SearchKeywords.xml")

' Lists end with an empty name. One that can't be read is unset, after a message: UBound fails.
Sub ListLibraries()
  Dim library
  For Each library In config.QuorNames
    If library <> "" Then
      WScript.Echo library
      ListBooks config.QuorLocation(library)
    End If
  Next
End Sub

Sub ListBooks(path)
  Dim names, i
  names = config.BookInfo(path)
  For i = 0 To UBound(names) - 1
    WScript.Echo "  " & names(i) & " (" & config.GetBookAcro(path, names(i)) & "), " & _
                 Place(path, names(i))
  Next
End Sub

' Folder and link come back in the caller's variables.
Function Place(path, bookName)
  Dim folder, link
  config.strFolderLinkInfo path, bookName, folder, link
  Place = "folder " & folder
End Function

' The new category stands in front of the one for all other books.
Sub EditCategories(path)
  Dim category
  config.AddBookCateToXMLFile path, "Reference"
  config.EditBookCateToXMLFile path, "Daily Reading", "Reference"
  book.AddCategoryNode "Daily Reading", config.GetBookAcro(catalogue, name), path
  For Each category In config.CategorieInfo(catalogue, name)
    If category <> "" Then
      WScript.Echo category & ": " & InOneLine(config.GetBookAcroValue(category, catalogue))
    End If
  Next
End Sub

Sub EditKeywords(path)
  book.AddKeywordsToXmlFile path, name, "pump"
  book.AddKeywordsToXmlFile path, name, "filter"
  book.EditKeywordsToXmlFile path, name, "strainer", "filter"
End Sub

' Acronyms stand behind an empty first element.
Function InOneLine(acronyms)
  Dim i
  For i = 1 To UBound(acronyms)
    InOneLine = InOneLine & " " & acronyms(i)
  Next
End Function

Function FileBeside(path, fileName)
  FileBeside = Left(path, InStrRev(path, "\")) & fileName
End Function
