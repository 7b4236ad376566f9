Attribute VB_Name = "Pass"
Option Explicit

Option Compare Binary

Public Function IsYes(ByVal answer As String) As Boolean
    IsYes = (StrComp(answer, "yes", vbTextCompare) = 0)
End Function
