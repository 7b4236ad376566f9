Attribute VB_Name = "Flag"
Option Explicit

Public Sub AddRow(ByVal rows As Object, ByVal row As Long)
    Load rows.txtName(row)
    rows.txtName(row).Visible = True
End Sub
