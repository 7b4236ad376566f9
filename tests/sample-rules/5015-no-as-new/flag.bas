Option Explicit
Private items As New Collection

Public Sub Work()
    Dim list As New Collection
    list.Add 1
End Sub
