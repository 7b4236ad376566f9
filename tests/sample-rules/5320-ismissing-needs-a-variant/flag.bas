Attribute VB_Name = "Flag"
Option Explicit

Public Sub Paint(ByVal canvas As Object, Optional ByVal colour As Long)
    If IsMissing(colour) Then colour = vbBlack
    canvas.Fill colour
End Sub
