Option Explicit

Public Sub Draw(a As Long, b As Long, c As Long, d As Long, e As Long, f As Long, g As Long)
End Sub

Private Sub m_Grid_Paint(a As Long, b As Long, c As Long, d As Long, e As Long, f As Long, g As Long, h As Long)
End Sub
