Attribute VB_Name = "modA"
Option Explicit

#If VBA7 Then
Public Declare Function GetFocus Lib "user32" () As Long
#Else
Public Declare Function GetFocus Lib "user32" () As Long
#End If
