Attribute VB_Name = "modQuiet"
Option Explicit

Public Sub Finish()
    RaiseEvent Finished
    ui.MsgBox "x"
    MsgBoxShown = True
End Sub
