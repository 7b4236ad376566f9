Attribute VB_Name = "Pass"
Option Explicit

Private mOwner As String

Public Sub SetOwner(ByVal owner As String)
    mOwner = owner
    owner = owner & mOwner
End Sub
