Attribute VB_Name = "Flag2"
Option Explicit

Public Sub Draw(ByVal hDC As Integer)
    Debug.Assert hDC <> 0
End Sub
