Attribute VB_Name = "Flag"
Option Explicit

Public Function Result(ByVal engine As Object, ByVal formula As String) As Variant
    engine.AddCode formula
    Result = engine.Eval("Main")
End Function
