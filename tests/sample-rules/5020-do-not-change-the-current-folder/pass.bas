Option Explicit

Public Sub GoHome()
    path = App.Path & "\data"
    text = CurDir$
    ChDirectory path
End Sub
