Attribute VB_Name = "Flag"
Option Explicit

Public Sub Fill(ByVal target As Object, ByVal field As String, ByVal content As Variant)
    CallByName target, field, VbLet, content
End Sub
