Option Explicit

Public Sub Add(ByVal amount As Currency, ByVal note As String)
    Debug.Print amount, "note"
End Sub
