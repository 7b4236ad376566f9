Attribute VB_Name = "Pass"
Option Explicit

Public Sub Check(ByVal ready As Boolean, ByVal work As Object)
    If ready Then
        ' It has begun already.
    Else
        work.Start
    End If
    Do While work.Busy
        work.Step: DoEvents
    Loop
    Do While work.NextStep(): Loop
    If ready Then ' Nothing to stop.
    Else
        work.Finish
    End If
End Sub
