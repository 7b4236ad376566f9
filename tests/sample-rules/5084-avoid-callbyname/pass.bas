Attribute VB_Name = "Pass"
Option Explicit

Public Sub Fill(ByVal target As Object, ByVal field As String, ByVal content As Variant)
    target.CallByName field, content
End Sub
