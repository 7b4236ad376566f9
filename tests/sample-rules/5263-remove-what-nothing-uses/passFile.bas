Option Explicit
#If False Then
Private StateOpen, StateClosed
#End If
Private count As Long
Private m_Rows() As Long

Public Sub Work()
    Helper count
    ReDim m_Rows(3)
    SetTimer 0, 0, 100, AddressOf OnTime
End Sub

Private Sub Helper(ByVal n As Long)
    Debug.Print n
End Sub

Private Sub OnTime()
End Sub

Private Sub Form_Load()
End Sub
