Attribute VB_Name = "Pass"
Option Explicit

Public Function IsSold(ByVal price As Variant) As Boolean
    Dim answer As Variant
    If Not IsNull(price) Then answer = Null
    IsSold = IsNull(answer)
End Function
