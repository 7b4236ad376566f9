Attribute VB_Name = "Pass"
Option Explicit

Public Function CheckSum(ByVal text As String, ByVal key As Long) As Long
    Dim i As Long
    For i = 1 To Len(text)
        CheckSum = CheckSum Xor Asc(Mid$(text, i, 1))
    Next i
End Function

Public Function Encrypt(ByVal text As String) As String
    Encrypt = text & "Xor"
End Function
