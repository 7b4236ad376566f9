Attribute VB_Name = "Flag"
Option Explicit

Public Sub Underline(ByVal canvas As PictureBox)
    canvas.Line (0, 10)-(100, 10)
End Sub
