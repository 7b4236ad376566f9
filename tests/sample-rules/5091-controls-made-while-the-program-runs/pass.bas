Attribute VB_Name = "Pass"
Option Explicit

Public Sub AddRow(ByVal rows As Form, ByVal row As Long)
    Load rows
    rows.Tag = CStr(row)
End Sub
