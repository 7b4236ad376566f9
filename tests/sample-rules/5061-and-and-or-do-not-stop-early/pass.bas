Attribute VB_Name = "Pass"
Option Explicit

Public Function IsOpen(ByVal book As Object, ByVal ready As Boolean) As Boolean
    If Not book Is Nothing And ready Then IsOpen = (book.Pages > 0)
End Function
