Attribute VB_Name = "Flag"
Option Explicit

Public Sub Check(ByVal ready As Boolean, ByVal work As Object)
    If ready Then Else work.Start
End Sub
