Attribute VB_Name = "Pass"
Option Explicit

Public Sub Check(ByVal ready As Boolean, ByVal work As Object)
    If ready Then work.Finish Else work.Start
End Sub
