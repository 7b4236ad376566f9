Option Explicit

Public Sub Reset()
    n = 1
    LetThrough n
    form.Let 1
End Sub
