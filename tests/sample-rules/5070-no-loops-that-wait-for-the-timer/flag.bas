Attribute VB_Name = "Flag"
Option Explicit

Public Sub Pause(ByVal seconds As Single)
    Dim start As Single
    start = Timer
    Do While Timer < start + seconds
        DoEvents
    Loop
End Sub
