Attribute VB_Name = "Pass2"
Option Explicit

Public Sub Shorten(ByVal items As Collection)
    Dim i As Long, k As Long
    For i = items.Count To 1 Step -1
        k = k + 1
        If i = 3 Then items.Remove i
    Next i
    i = 0
End Sub
