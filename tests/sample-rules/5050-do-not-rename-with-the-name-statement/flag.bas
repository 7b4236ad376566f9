Option Explicit

Public Sub Work()
    Name oldPath As newPath
End Sub
