Option Explicit

Public Function Replace(ByVal text As String) As String
    Replace = text
End Function
