Attribute VB_Name = "Pass"
Option Explicit

Public Function Numbers(ByVal items As Collection) As Long()
    Dim result() As Long, i As Long, all As String
    ReDim Preserve result(0 To items.Count + 1)
    For i = 1 To items.Count
        result(i) = items(i)
        all = all & items(i)
    Next i
    Numbers = result
End Function
