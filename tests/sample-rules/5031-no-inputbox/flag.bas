Option Explicit

Public Sub Ask()
    n = InputBox("How many?")
    text = InputBox$("Name?")
End Sub
