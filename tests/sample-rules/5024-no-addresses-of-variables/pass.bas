Option Explicit

Public Sub Peek()
    address = list.VarPtr(1)
    MsgBox "StrPtr(x)"
    varPtrCount = 1
End Sub
