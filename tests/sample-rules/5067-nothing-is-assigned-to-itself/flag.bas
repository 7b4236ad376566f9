Attribute VB_Name = "Flag"
Option Explicit

Private mOwner As String

Public Sub SetOwner(ByVal owner As String)
    owner = owner
    Debug.Assert Len(mOwner)
End Sub
