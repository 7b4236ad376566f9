Attribute VB_Name = "Flag2"
Option Explicit

Private Const CONNECTION As String = "DSN=shop;UID=admin;PWD=Winter99"

Public Sub Connect(ByVal link As Object)
    link.Open CONNECTION
End Sub
