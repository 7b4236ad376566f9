Attribute VB_Name = "Flag2"
Option Explicit

Public Sub Shorten(ByVal items As Collection)
    Dim i As Long
    For i = 1 To items.Count
        If items(i).Empty Then
            items.Remove i
            i = i - 1
        End If
    Next i
End Sub
