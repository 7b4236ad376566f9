Attribute VB_Name = "Flag"
Option Explicit

Public Function Numbers(ByVal items As Collection) As Long()
    Dim result() As Long, i As Long
    For i = 1 To items.Count
        ReDim Preserve result(0 To UBound(result) + 1)
        result(i) = items(i)
    Next i
    Numbers = result
End Function
