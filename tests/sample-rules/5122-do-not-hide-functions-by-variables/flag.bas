Option Explicit
Private Format As String

Public Sub Work()
    Dim Left As Long
    Dim time As Date
End Sub
