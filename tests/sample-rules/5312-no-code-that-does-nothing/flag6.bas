Attribute VB_Name = "Flag6"
Option Explicit

Public Sub Check(ByVal ready As Boolean, ByVal work As Object)
    If ready Then
        ' Begin.
        work.Start
    Else
    End If
End Sub
