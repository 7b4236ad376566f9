Attribute VB_Name = "Flag"
Option Explicit

Public Function Megabyte() As Long
    Megabyte = 1024 * 1024
End Function
