Option Explicit

Public Sub Save(ByVal book As Object)
    If book Is Nothing Then GoTo CleanUp
    If Not book.Changed Then GoTo ExitHere
    book.Save
    GoTo QH
CleanUp:
ExitHere:
QH:
    Set book = Nothing
End Sub
