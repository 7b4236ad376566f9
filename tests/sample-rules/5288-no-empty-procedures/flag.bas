Option Explicit

Private Sub Form_Load()

End Sub

Public Sub Work()
End Sub
