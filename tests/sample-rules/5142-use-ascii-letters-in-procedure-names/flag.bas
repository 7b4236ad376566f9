Option Explicit

Public Sub Lösche()
End Sub
