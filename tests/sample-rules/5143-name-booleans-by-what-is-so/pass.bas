Option Explicit
Private Found As Boolean
Private Notify As Boolean

Public Sub Work()
    Dim blnNotice As Boolean
    Dim Node As Boolean
    Dim NotFound As Long
End Sub
