Option Explicit
Private count As Long
Private total As Currency

Public Sub Work()
    total = 1
    Debug.Print total
End Sub

Private Sub Forgotten()
End Sub
