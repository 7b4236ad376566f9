Option Explicit
Private items As Collection

Public Sub Work()
    Set items = New Collection
End Sub
