Attribute VB_Name = "Flag"
Option Explicit

Private Declare Sub ExitProcess Lib "kernel32" (ByVal uExitCode As Long)

Public Sub Quit()
    ExitProcess 0
End Sub
