Attribute VB_Name = "Pass"
Option Explicit

Public Sub Clear(ByVal items As Collection)
    Dim i As Long
    For i = items.Count To 1 Step -1
        items.Remove i
    Next i
End Sub
