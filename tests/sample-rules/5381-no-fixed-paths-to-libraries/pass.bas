Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function Weigh Lib "scale.dll" () As Long

Public Sub Use()
    Debug.Print 1
End Sub
