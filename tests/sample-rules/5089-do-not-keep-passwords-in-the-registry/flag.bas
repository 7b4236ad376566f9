Attribute VB_Name = "Flag"
Option Explicit

Public Sub Remember(ByVal userName As String, ByVal password As String)
    SaveSetting App.Title, "Login", userName, password
End Sub
