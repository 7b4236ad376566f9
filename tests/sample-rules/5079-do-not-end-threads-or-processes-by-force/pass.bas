Attribute VB_Name = "Pass"
Option Explicit

Private Declare Sub ExitProcess Lib "kernel32" (ByVal uExitCode As Long)

Public Sub Quit(ByVal main As Object)
    main.ExitProcess
    Unload main
End Sub
