Option Explicit
Private m_Total As Currency

Public Sub SetTotal(ByVal total As Currency)
    m_Total = total
End Sub
