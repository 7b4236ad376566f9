Option Explicit
Private total As Currency

Public Sub Work()
    Dim text As String
    text = Left$("abc", 1)
End Sub
