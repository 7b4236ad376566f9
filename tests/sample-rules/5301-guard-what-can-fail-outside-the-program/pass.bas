Attribute VB_Name = "Pass"
Option Explicit

Public Sub Store(ByVal file As String, ByVal text As String)
    On Error GoTo Failed
    Dim number As Integer
    number = FreeFile
    Open file For Output As #number
    Print #number, text
Failed:
    Close #number
End Sub

Public Sub Tell(ByVal OpenFile As String)
    Debug.Print "Open " & OpenFile & " For Output"
End Sub
