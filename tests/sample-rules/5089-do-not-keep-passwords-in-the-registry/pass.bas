Attribute VB_Name = "Pass"
Option Explicit

Public Sub Remember(ByVal userName As String, ByVal password As String)
    SaveSetting App.Title, "Login", "User", userName
    Debug.Assert Len(password) > 0
End Sub
