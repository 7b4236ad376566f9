Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function Weigh Lib "C:\Scale\scale.dll" () As Long

Public Sub Use()
    Debug.Print 1
End Sub
