Attribute VB_Name = "Pass"
Option Explicit

Public Function Megabyte() As Long
    Megabyte = 1024& * 1024
    Debug.Print 100 * 300
End Function
