Attribute VB_Name = "Pass"
Option Explicit

Public Sub Busy(ByVal oldPointer As Long)
    Screen.MousePointer = vbHourglass
    oldPointer = 11
End Sub
