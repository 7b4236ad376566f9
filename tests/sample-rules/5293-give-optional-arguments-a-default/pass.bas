Option Explicit

Public Sub Draw(Optional ByVal width As Long = 3, Optional font As Variant, Optional pic As StdPicture)
End Sub
