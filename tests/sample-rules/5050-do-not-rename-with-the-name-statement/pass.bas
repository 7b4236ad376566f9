Option Explicit

Public Sub Work()
    Name = "x"
    field.Name = text
    NameFile oldPath, newPath
End Sub
