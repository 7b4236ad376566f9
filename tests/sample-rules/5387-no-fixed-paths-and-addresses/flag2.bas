Attribute VB_Name = "Flag2"
Option Explicit

Private Const SERVER As String = "192.168.10.7"

Public Sub Connect(ByVal socket As Object)
    socket.Connect SERVER
End Sub
