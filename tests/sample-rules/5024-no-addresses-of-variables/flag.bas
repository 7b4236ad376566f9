Option Explicit

Public Sub Peek()
    address = VarPtr(n)
    address = StrPtr(text)
End Sub
