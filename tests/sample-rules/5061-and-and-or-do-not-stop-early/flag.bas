Attribute VB_Name = "Flag"
Option Explicit

Public Function IsOpen(ByVal book As Object) As Boolean
    If Not book Is Nothing And book.Pages > 0 Then IsOpen = True
End Function
