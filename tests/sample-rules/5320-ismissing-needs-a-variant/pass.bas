Attribute VB_Name = "Pass"
Option Explicit

Public Sub Paint(ByVal canvas As Object, Optional ByVal width As Long, Optional ByVal colour As Variant)
    If IsMissing(colour) Then colour = vbBlack
    canvas.Fill colour, width
End Sub
