Attribute VB_Name = "Flag"
Option Explicit

Public Sub Clear(ByVal items As Collection)
    Dim i As Long
    For i = items.Count To 1
        items.Remove i
    Next i
End Sub
