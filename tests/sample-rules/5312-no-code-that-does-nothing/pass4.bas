Attribute VB_Name = "Pass4"
Option Explicit

Public Sub Check(ByVal ready As Boolean, ByVal work As Object)
    If ready Then
        work.Start
    ' Otherwise it has begun already.
    Else
    End If
    Do: DoEvents: Loop Until work.Done
    Do While work.Busy
        DoEvents
    Loop
End Sub
