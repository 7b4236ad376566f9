Attribute VB_Name = "Pass2"
Option Explicit

Public Function Fee(ByVal zone As Long, ByVal weight As Long) As Currency
    Select Case zone
        Case 1
            Select Case weight
                Case 1: Fee = 5
                Case Else: Fee = 6
            End Select
        Case 2
            If weight = 1 Then
                Fee = 7
            End If
        Case Else
            If weight = 1 Then
                Fee = 9
            ElseIf weight = 2 Then
                Fee = 8
            End If
    End Select
End Function
