Attribute VB_Name = "Flag2"
Option Explicit

Public Sub Wait(ByVal work As Object)
    Do While work.Busy
    Loop
End Sub
