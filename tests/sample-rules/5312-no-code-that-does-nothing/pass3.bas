Attribute VB_Name = "Pass3"
Option Explicit

Public Function Total(ByVal items As Collection) As Currency
    On Error GoTo Failed
    If items.Count = 0 Then Exit Function
    If items.Count = 1 Then Total = 1: Exit Function
    Total = items.Count
    Exit Function
Failed:  ' not reached from above
    MsgBox Err.Description
    Resume Done
Done:
    items.Remove 1
End Function
