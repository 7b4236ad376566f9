Attribute VB_Name = "Flag"
Option Explicit

Public Function Amount(ByVal box As TextBox) As Double
    Amount = Val(box.Text)
End Function
