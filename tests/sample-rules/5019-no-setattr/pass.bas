Option Explicit

Public Sub Unlock(ByVal path As String)
    If GetAttr(path) And vbReadOnly Then MsgBox "Read only"
    node.SetAttr 1
End Sub
