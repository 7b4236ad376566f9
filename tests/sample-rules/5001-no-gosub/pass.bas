Option Explicit

Public Sub PrintAll()
    Dim gosubCount As Long
    PrintHeader gosubCount
    player.Return
    Returned = True
End Sub
