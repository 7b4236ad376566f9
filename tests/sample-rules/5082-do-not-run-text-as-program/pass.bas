Attribute VB_Name = "Pass"
Option Explicit

Public Function Result(ByVal engine As Object, ByVal formula As String) As Variant
    engine.AddFormula formula
    Result = engine.Evaluation
End Function
