Option Explicit

Public Function NextNumber() As Long
    Static last As Long
    last = last + 1
    NextNumber = last
End Function

Private Static Sub Count()
End Sub
