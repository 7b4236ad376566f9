Option Explicit
Private m_NotFound As Boolean

Public Sub Work()
    Dim blnNoErrors As Boolean
    Dim notReady As Boolean
End Sub
