Attribute VB_Name = "Pass"
Option Explicit

Public Function Amount(ByVal line As String, ByVal box As TextBox) As Double
    If IsNumeric(box.Text) Then Amount = CDbl(box.Text) Else Amount = Val(Mid$(line, 4))
End Function
