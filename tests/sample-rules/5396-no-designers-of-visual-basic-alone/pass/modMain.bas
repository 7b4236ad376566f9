Attribute VB_Name = "modMain"
Option Explicit

Public Sub Main()
    Debug.Print "Designer=Orders.dsr"
End Sub
