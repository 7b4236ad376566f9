Option Explicit

Public Sub CopyIt()
    LSet target = source
    MoveMemoryBlock target
End Sub
