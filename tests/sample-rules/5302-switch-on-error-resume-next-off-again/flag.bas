Attribute VB_Name = "Flag"
Option Explicit

Public Sub Import(ByVal source As Object, ByVal target As Object)
    On Error Resume Next
    target.Clear
    target.Add source.Item(1)
    target.Add source.Item(2)
    target.Add source.Item(3)
    target.Add source.Item(4)
    target.Add source.Item(5)
    target.Add source.Item(6)
    target.Add source.Item(7)
    target.Add source.Item(8)
    target.Add source.Item(9)
    target.Add source.Item(10)
    target.Add source.Item(11)
End Sub
