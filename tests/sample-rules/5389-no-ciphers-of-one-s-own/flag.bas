Attribute VB_Name = "Flag"
Option Explicit

Public Function Encrypt(ByVal text As String, ByVal key As Long) As String
    Dim i As Long
    For i = 1 To Len(text)
        Encrypt = Encrypt & Chr$(Asc(Mid$(text, i, 1)) Xor key)
    Next i
End Function
