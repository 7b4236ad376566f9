Attribute VB_Name = "Flag2"
Option Explicit

Public Sub Find(names() As String, ByVal name As String)
    Dim i As Long
    Do While i <= UBound(names) And names(i) <> name
        i = i + 1
    Loop
End Sub
