Option Explicit

Public Function ReplaceTabs(ByVal text As String) As String
    ReplaceTabs = Replace(text, vbTab, " ")
End Function
