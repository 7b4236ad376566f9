Attribute VB_Name = "Other"
Option Explicit

Public Sub Start()
End Sub
