Option Explicit

Public Function Total() As Currency
    Total = 1
End Function

Public Function Text$()
    Text = ""
End Function

Public Sub Work()
End Sub
