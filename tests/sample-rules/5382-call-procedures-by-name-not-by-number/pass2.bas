Attribute VB_Name = "Pass2"
Option Explicit

#If VBA7 Then
Private Declare PtrSafe Function IsAdmin Lib "shell32" Alias "#680" () As Long
Private Declare PtrSafe Sub Free Lib "shell32" Alias "#68" ()
#End If
