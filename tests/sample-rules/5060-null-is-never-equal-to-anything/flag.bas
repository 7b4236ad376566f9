Attribute VB_Name = "Flag"
Option Explicit

Public Function IsSold(ByVal price As Variant) As Boolean
    If price <> Null Then IsSold = True
End Function
