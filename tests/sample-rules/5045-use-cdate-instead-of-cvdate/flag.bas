Option Explicit

Public Sub Work()
    due = CVDate(text)
End Sub
