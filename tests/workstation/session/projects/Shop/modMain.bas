Attribute VB_Name = "modMain"
Option Explicit

Private m_lngCount As Long
Private m_varLast As Variant

Public Sub Main()
    On Error Resume Next
    m_lngCount = 1
    If m_lngCount = 2 Then GoTo Done
    m_lngCount = IIf(m_lngCount = 1, _
        2, _
        3)
Done:
    frmMain.Show
End Sub

Public Property Get Count() As Long
    Count = m_lngCount
End Property

Public Property Let Count(ByVal v As Long)
    If v = 0 Then GoTo Done
    m_lngCount = v
Done:
End Property

Public Sub Leave()
    End
End Sub
