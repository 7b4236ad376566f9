Attribute VB_Name = "modSave"
Option Explicit

Public Sub Finish()
    MsgBox "Done"
    If MsgBox("Sure?", vbYesNo) = vbYes Then Beep
End Sub
