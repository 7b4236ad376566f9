Option Explicit

Public Sub GoHome()
    ChDrive "C"
    ChDir App.Path
End Sub
