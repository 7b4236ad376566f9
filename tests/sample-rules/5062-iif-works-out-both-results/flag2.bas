Attribute VB_Name = "Flag2"
Option Explicit

Public Function TitleOf(ByVal book As Object) As String
    TitleOf = IIf(book Is Nothing, "", book.Title)
End Function
